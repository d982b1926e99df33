#include "multircv/CMultiRcvCabinetSetDlg.h"
#include "tests/typelibrary/ViewFixture.h"
#include "typelibrary/store/TypeFileAttributes.h"

#include <QApplication>
#include <QLineEdit>
#include <QScreen>
#include <QSignalSpy>

// New folders, renaming, deleting and editing.
class tst_ChangeOperations : public ViewFixture
{
    Q_OBJECT

private Q_SLOTS:
    void newFolders();
    void newFolderGoesIntoTheCurrentGroup();
    void newFolderDepth();
    void newFolderWhereNoneCanBeMade();

    void renameAType();
    void renameAGroup();
    void renameCancelled();
    void renameUnchanged();
    void renameEmptied();
    void renameToATakenName();
    void renameOfATypeInUse();
    void renameOfAGroupInUse();
    void renameOfNothing();
    void renameWhileAnotherNameIsEdited();
    void renameOfAGroupThatChangesMeanwhile();
    void renamedGroupIsStillFollowed();
    void groupVanishesWhileItsNameIsEdited();

    void deleteAType();
    void deleteAGroup();
    void deleteAnswerNo();
    void deleteOfATypeInUse();
    void deleteOfAGroupInUse();
    void deleteOfNothing();
    void deleteALink();
    void deleteWhatVanishesMeanwhile();
    void deletingOneByOneGoesOn();

    void clearKeepsTypesInUse();
    void clearOfGroupsNeverLoaded();
    void clearDropsNothingAndRescansNothing();
    void clearWithoutAHost();
    void messageOfManyNamesIsCut();

    void editAMultiReceiverType();
    void editOfATypeInUse();

private:
    QLineEdit* editor() const { return qobject_cast<QLineEdit*>(view->indexWidget(view->currentIndex())); }
    void type(const QString& name)
    {
        QVERIFY(editor());
        editor()->selectAll();
        QTest::keyClick(editor(), Qt::Key_Delete);
        QTest::keyClicks(editor(), name);
        QTest::keyClick(editor(), Qt::Key_Return);
        QCoreApplication::processEvents(); // the delegate writes when the key has been handled
    }
};

void tst_ChangeOperations::newFolders()
{
    load();
    view->newTypeFolder();
    QCOMPARE(currentName(), QStringLiteral("New type folder"));
    view->setCurrentIndex({});
    view->newTypeFolder();
    QCOMPARE(currentName(), QStringLiteral("New type folder(1)"));
    view->setCurrentIndex({});
    view->newTypeFolder();
    QCOMPARE(currentName(), QStringLiteral("New type folder(2)"));
    QCOMPARE(libraryContent(),
             QStringList({QStringLiteral("New type folder(1)/"), QStringLiteral("New type folder(2)/"),
                          QStringLiteral("New type folder/")}));
    QVERIFY(agree());
}

void tst_ChangeOperations::newFolderGoesIntoTheCurrentGroup()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    load();
    makeCurrent(QStringLiteral("G/a.rcvp")); // whose group is the target
    view->collapse(indexOf(QStringLiteral("G")));
    view->newTypeFolder();
    QVERIFY(QFileInfo(pathOf(QStringLiteral("G/New type folder"))).isDir());
    QVERIFY(view->isExpanded(indexOf(QStringLiteral("G"))));
    QCOMPARE(view->currentIndex(), indexOf(QStringLiteral("G/New type folder")));
}

void tst_ChangeOperations::newFolderDepth()
{
    makeFolder(QStringLiteral("1/2"));
    load();
    choose(QStringLiteral("1/2"), QStringLiteral("New type folder"));
    QCOMPARE(view->currentIndex(), indexOf(QStringLiteral("1/2/New type folder")));
    ModalScript script;
    script.press(CDialog::Ok);
    view->newTypeFolder();
    QCOMPARE(script.seen(),
             QStringList({information("The action cannot be done because the subdirectory is limited to 3 layers.")}));
    QCOMPARE(libraryContent(),
             QStringList({QStringLiteral("1/"), QStringLiteral("1/2/"), QStringLiteral("1/2/New type folder/")}));
}

void tst_ChangeOperations::newFolderWhereNoneCanBeMade()
{
    makeFolder(QStringLiteral("G"));
    load();
    makeCurrent(QStringLiteral("G"));
    QVERIFY(QDir(pathOf(QStringLiteral("G"))).removeRecursively());
    view->newTypeFolder(); // before the tree has noticed
    QCOMPARE(libraryContent(), QStringList());
    CProductTreeView none;
    none.newTypeFolder();
    QCOMPARE(none.model(), nullptr);
}

void tst_ChangeOperations::renameAType()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    load();
    choose(QStringLiteral("G/a.rcvp"), QStringLiteral("Rename"));
    QCOMPARE(editor()->text(), QStringLiteral("a"));
    QVERIFY(TypeFileInfoCache::instance().find(pathOf(QStringLiteral("G/a.rcvp"))).known);
    type(QStringLiteral("b"));
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("G/"), QStringLiteral("G/b.rcvp=a")}));
    QVERIFY(!TypeFileInfoCache::instance().find(pathOf(QStringLiteral("G/a.rcvp"))).known);
    QVERIFY(agree());
    QCOMPARE(CTypeLibrary::instance().searchSameName(QStringLiteral("b")), pathOf(QStringLiteral("G/b.rcvp")));
}

void tst_ChangeOperations::renameAGroup()
{
    write(QStringLiteral("G/Sub/a.rcvp"), "a");
    load();
    indexOf(QStringLiteral("G/Sub/a.rcvp"));
    choose(QStringLiteral("G"), QStringLiteral("Rename"));
    type(QStringLiteral("H"));
    QCOMPARE(libraryContent(),
             QStringList({QStringLiteral("H/"), QStringLiteral("H/Sub/"), QStringLiteral("H/Sub/a.rcvp=a")}));
    QVERIFY(agree());
    // The old path is free for another type, which gets its own digest.
    write(QStringLiteral("G/Sub/a.rcvp"), "another");
    CTypeLibrary::instance().updateLibrary();
    QVERIFY(agree());
}

void tst_ChangeOperations::renameCancelled()
{
    const QString path = write(QStringLiteral("a.rcvp"), "a");
    load();
    view->editIndex(indexOf(QStringLiteral("a.rcvp")));
    handler->forgetCalls();
    QTest::keyClicks(editor(), QStringLiteral("b"));
    QTest::keyClick(editor(), Qt::Key_Escape);
    QTRY_VERIFY(!editor());
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("a.rcvp=a")}));
    QVERIFY(TypeFileInfoCache::instance().find(path).known);
    QCOMPARE(handler->calls(), QStringList());
}

void tst_ChangeOperations::renameUnchanged()
{
    const QString path = write(QStringLiteral("a.rcvp"), "a");
    load();
    view->editIndex(indexOf(QStringLiteral("a.rcvp")));
    type(QStringLiteral("a"));
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("a.rcvp=a")}));
    QVERIFY(TypeFileInfoCache::instance().find(path).known);
}

void tst_ChangeOperations::renameEmptied()
{
    write(QStringLiteral("a.rcvp"), "a");
    load();
    ModalScript script;
    view->editIndex(indexOf(QStringLiteral("a.rcvp")));
    type({});
    QTRY_VERIFY(!editor());
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("a.rcvp=a")}));
    QCOMPARE(script.seen(), QStringList());
}

void tst_ChangeOperations::renameToATakenName()
{
    write(QStringLiteral("a.rcvp"), "a");
    write(QStringLiteral("G/x.rcvp"), "x");
    load();
    ModalScript script;
    script.press(CDialog::Ok).press(CDialog::Ok);
    view->editIndex(indexOf(QStringLiteral("a.rcvp")));
    write(QStringLiteral("b.rcvp"), "made a moment ago");
    type(QStringLiteral("b"));
    QTRY_COMPARE(script.seen().size(), 1);
    QVERIFY(!editor());
    makeFolder(QStringLiteral("H"));
    view->editIndex(indexOf(QStringLiteral("G")));
    type(QStringLiteral("H"));
    QTRY_COMPARE(script.seen(), QStringList({information("There is already a type with the same name."),
                                             information("There is already a type group with the same name.")}));
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("G/"), QStringLiteral("G/x.rcvp=x"), QStringLiteral("H/"),
                                            QStringLiteral("a.rcvp=a"), QStringLiteral("b.rcvp=made a moment ago")}));
}

void tst_ChangeOperations::renameOfATypeInUse()
{
    write(QStringLiteral("a.rcvp"), "a");
    place("a");
    load();
    ModalScript script;
    script.press(CDialog::Ok);
    view->editIndex(indexOf(QStringLiteral("a.rcvp")));
    QCOMPARE(script.seen(),
             QStringList({information("The action cannot be completed because the type is being used in layout.")}));
    QVERIFY(!editor());
}

void tst_ChangeOperations::renameOfAGroupInUse()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    place("a");
    load();
    view->editIndex(indexOf(QStringLiteral("G")));
    type(QStringLiteral("H"));
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("H/"), QStringLiteral("H/a.rcvp=a")}));
    QVERIFY(agree());
}

void tst_ChangeOperations::renameOfNothing()
{
    write(QStringLiteral("a.rcvp"), "a");
    load();
    view->editIndex({});
    view->editIndex(view->rootIndex());
    view->editIndex(view->rootIndex().parent());
    QVERIFY(!editor());
}

void tst_ChangeOperations::renameWhileAnotherNameIsEdited()
{
    write(QStringLiteral("a.rcvp"), "a");
    write(QStringLiteral("b.rcvp"), "b");
    load();
    view->editIndex(indexOf(QStringLiteral("a.rcvp")));
    QTest::keyClicks(editor(), QStringLiteral("c"));
    view->editIndex(indexOf(QStringLiteral("a.rcvp"))); // goes on
    QCOMPARE(editor()->text(), QStringLiteral("c"));
    view->editIndex(indexOf(QStringLiteral("b.rcvp"))); // writes the first name
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("b.rcvp=b"), QStringLiteral("c.rcvp=a")}));
    QCOMPARE(editor()->text(), QStringLiteral("b"));
    type(QStringLiteral("d"));
    QVERIFY(agree());
}

void tst_ChangeOperations::renameOfAGroupThatChangesMeanwhile()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    load();
    indexOf(QStringLiteral("G/a.rcvp"));
    view->editIndex(indexOf(QStringLiteral("G")));
    QTest::keyClicks(editor(), QStringLiteral("begun"));
    Q_EMIT view->model()->dataChanged(indexOf(QStringLiteral("G")), indexOf(QStringLiteral("G")));
    QCOMPARE(editor()->text(), QStringLiteral("begun"));
}

void tst_ChangeOperations::renamedGroupIsStillFollowed()
{
    write(QStringLiteral("G/Sub/a.rcvp"), "a");
    load();
    makeCurrent(QStringLiteral("G/Sub/a.rcvp"));
    const QPersistentModelIndex group = indexOf(QStringLiteral("G"));
    const QSignalSpy loaded(static_cast<CProductTreeModel*>(view->model()), &CProductTreeModel::directoryLoaded);
    for (const char* name : {"H", "I"}) {
        view->editIndex(group);
        type(QLatin1String(name));
        QVERIFY(agree());
        QVERIFY(view->isExpanded(group));
        QTRY_VERIFY(loaded.contains({pathOf(QLatin1String(name) + QStringLiteral("/Sub"))}));
        view->setCurrentIndex(indexOf(QLatin1String(name) + QStringLiteral("/Sub/a.rcvp")));
    }
    ModalScript script;
    script.press(CDialog::Yes);
    view->deleteIndex(view->currentIndex());
    QVERIFY(agree());
    QCOMPARE(rows(), QStringList({QStringLiteral("I"), QStringLiteral(" Sub")}));
    view->newTypeFolder(); // in "Sub", which is current now
    QCOMPARE(view->currentIndex(), indexOf(QStringLiteral("I/Sub/New type folder")));
    QVERIFY(agree());
}

void tst_ChangeOperations::groupVanishesWhileItsNameIsEdited()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    write(QStringLiteral("b.rcvp"), "b");
    load();
    view->editIndex(indexOf(QStringLiteral("G")));
    QVERIFY(editor());
    QVERIFY(QDir(pathOf(QStringLiteral("G"))).removeRecursively());
    QTRY_VERIFY(!editor());
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("b.rcvp=b")}));
}

void tst_ChangeOperations::deleteAType()
{
    write(QStringLiteral("G/Cab 1.rcvp"), "a");
    write(QStringLiteral("b.rcvp"), "b");
    load();
    ModalScript script;
    script.press(CDialog::Yes);
    choose(QStringLiteral("G/Cab 1.rcvp"), QStringLiteral("Delete"));
    QCOMPARE(script.seen(), QStringList({question("Are you sure want to delete type(Cab 1)?")}));
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("G/"), QStringLiteral("b.rcvp=b")}));
    QVERIFY(agree());
}

void tst_ChangeOperations::deleteAGroup()
{
    write(QStringLiteral("North.A/Sub/a.rcvp"), "a");
    write(QStringLiteral("North.A/notes.txt"), "n");
    write(QStringLiteral("b.rcvp"), "b");
    load();
    ModalScript script;
    script.press(CDialog::Yes);
    choose(QStringLiteral("North.A"), QStringLiteral("Delete")); // never expanded
    QCOMPARE(script.seen(), QStringList({question("Are you sure want to delete type group(North.A)?")}));
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("b.rcvp=b")}));
    QVERIFY(agree());
}

void tst_ChangeOperations::deleteAnswerNo()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    load();
    const QStringList before = libraryContent();
    ModalScript script;
    script.press(CDialog::No).press(CDialog::No);
    view->deleteIndex(indexOf(QStringLiteral("G/a.rcvp")));
    view->deleteIndex(indexOf(QStringLiteral("G")));
    QCOMPARE(script.seen().size(), 2);
    QCOMPARE(libraryContent(), before);
    QVERIFY(TypeFileInfoCache::instance().find(pathOf(QStringLiteral("G/a.rcvp"))).known);
}

void tst_ChangeOperations::deleteOfATypeInUse()
{
    write(QStringLiteral("Cab.rcvbp"), "multi");
    place("multi");
    load();
    ModalScript script;
    script.press(CDialog::Ok);
    view->deleteIndex(indexOf(QStringLiteral("Cab.rcvbp")));
    QCOMPARE(
        script.seen(),
        QStringList({information("The action cannot be completed because the type (Cab) is being used in layout.")}));
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("Cab.rcvbp=multi")}));
}

void tst_ChangeOperations::deleteOfAGroupInUse()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    place("a");
    load();
    const QModelIndex group = indexOf(QStringLiteral("G"));
    handler->forgetCalls();
    ModalScript script;
    script.press(CDialog::Yes);
    view->deleteIndex(group);
    QCOMPARE(libraryContent(), QStringList());
    QVERIFY(handler->calls().filter(QStringLiteral("isTypeUsedInLayout")).isEmpty());
    QVERIFY(agree());
}

void tst_ChangeOperations::deleteOfNothing()
{
    write(QStringLiteral("a.rcvp"), "a");
    load();
    ModalScript script;
    view->deleteIndex({});
    view->deleteIndex(view->rootIndex());
    view->deleteIndex(view->rootIndex().parent());
    QCOMPARE(script.seen(), QStringList());
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("a.rcvp=a")}));
}

void tst_ChangeOperations::deleteALink()
{
    put(QStringLiteral("o.rcvp"), "o");
    QVERIFY(makeLink(outside->path(), pathOf(QStringLiteral("Link"))));
    write(QStringLiteral("b.rcvp"), "b");
    load();
    indexOf(QStringLiteral("Link/o.rcvp"));
    ModalScript script;
    script.press(CDialog::Yes);
    view->deleteIndex(indexOf(QStringLiteral("Link")));
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("b.rcvp=b")}));
    QCOMPARE(outsideContent(), QStringList({QStringLiteral("o.rcvp=o")}));
    QVERIFY(!TypeFileInfoCache::instance().find(pathOf(QStringLiteral("Link/o.rcvp"))).known);
    QVERIFY(agree());
}

void tst_ChangeOperations::deleteWhatVanishesMeanwhile()
{
    write(QStringLiteral("a.rcvp"), "a");
    write(QStringLiteral("b.rcvp"), "b");
    load();
    const QPersistentModelIndex a = indexOf(QStringLiteral("a.rcvp"));
    ModalScript script;
    script.use([&](QWidget* box) {
        QFile::remove(pathOf(QStringLiteral("a.rcvp")));
        QTRY_VERIFY(!a.isValid());
        write(QStringLiteral("a.rcvp"), "another of that name");
        static_cast<CMessageBox*>(box)->button(CDialog::Yes)->click();
    });
    view->deleteIndex(a);
    QCOMPARE(libraryContent(),
             QStringList({QStringLiteral("a.rcvp=another of that name"), QStringLiteral("b.rcvp=b")}));
    QVERIFY(agree());
}

void tst_ChangeOperations::deletingOneByOneGoesOn()
{
    for (const char* name : {"a", "b", "c"})
        write(QLatin1String(name) + QStringLiteral(".rcvp"), name);
    load();
    makeCurrent(QStringLiteral("a.rcvp"));
    ModalScript script;
    script.press(CDialog::Yes).press(CDialog::Yes);
    view->deleteIndex(view->currentIndex());
    QVERIFY(agree());
    QCOMPARE(currentName(), QStringLiteral("b.rcvp"));
    view->deleteIndex(view->currentIndex());
    QVERIFY(agree());
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("c.rcvp=c")}));
}

void tst_ChangeOperations::clearKeepsTypesInUse()
{
    write(QStringLiteral("G/H/used.rcvp"), "used");
    write(QStringLiteral("G/H/free.rcvp"), "free");
    write(QStringLiteral("I/free 2.rcvp"), "free 2");
    write(QStringLiteral("also used.rcvp"), "also");
    place("used");
    place("also");
    load();
    indexOf(QStringLiteral("G/H/used.rcvp"));
    ModalScript script;
    script.press(CDialog::Ok);
    view->clear();
    QCOMPARE(script.seen(), QStringList({information("The action cannot be completed because the type (used, also "
                                                     "used) is being used in layout.")}));
    QCOMPARE(libraryContent(),
             QStringList({QStringLiteral("G/"), QStringLiteral("G/H/"), QStringLiteral("G/H/used.rcvp=used"),
                          QStringLiteral("also used.rcvp=also")}));
    QTRY_COMPARE(rows(), QStringList({QStringLiteral("G"), QStringLiteral(" H"), QStringLiteral("  used.rcvp"),
                                      QStringLiteral("also used.rcvp")}));
}

void tst_ChangeOperations::clearOfGroupsNeverLoaded()
{
    write(QStringLiteral("G/H/I/a.rcvp"), "a");
    makeFolder(QStringLiteral("Empty"));
    load();
    ModalScript script;
    view->clear();
    QCOMPARE(script.seen(), QStringList());
    QCOMPARE(libraryContent(), QStringList());
    QTRY_VERIFY(!view->hasRows());
}

void tst_ChangeOperations::clearDropsNothingAndRescansNothing()
{
    const QString path = write(QStringLiteral("a.rcvp"), "a");
    load();
    view->clear();
    QTRY_VERIFY(!view->hasRows());
    QVERIFY(TypeFileInfoCache::instance().find(path).known);
    QCOMPARE(outline(CTypeLibrary::instance().nodes()), QStringList({QStringLiteral("s a")}));
}

void tst_ChangeOperations::clearWithoutAHost()
{
    write(QStringLiteral("a.rcvp"), "a");
    load();
    setStoreHandler(nullptr);
    view->clear();
    QCOMPARE(libraryContent(), QStringList());
    CProductTreeView none;
    none.clear();
}

void tst_ChangeOperations::messageOfManyNamesIsCut()
{
    QStringList first;
    for (int i = 0; i < 300; ++i) {
        const QString name = QStringLiteral("Cab %1").arg(i, 3, 10, QLatin1Char('0'));
        write(name + QStringLiteral(".rcvp"), name.toUtf8());
        if (i < 20)
            first.append(name);
    }
    handler->isUsed = [](const SMD5&) { return true; };
    load();
    QString text;
    bool fits = false;
    ModalScript script;
    script.use([&](QWidget* box) {
        text = static_cast<CMessageBox*>(box)->text();
        fits = box->screen()->availableGeometry().contains(box->frameGeometry());
        static_cast<CMessageBox*>(box)->button(CDialog::Ok)->click();
    });
    view->clear();
    QCOMPARE(text, QStringLiteral("The action cannot be completed because the type (%1 and 280 more) is being used in "
                                  "layout.")
                       .arg(first.join(QStringLiteral(", "))));
    QVERIFY(fits);
    QCOMPARE(libraryContent().size(), 300);
}

void tst_ChangeOperations::editAMultiReceiverType()
{
    write(QStringLiteral("G/Cab.rcvbp"), "multi");
    load();
    write(QStringLiteral("G/late.rcvp"), "late");
    QString lateType;
    ModalScript script;
    script.use([&](QWidget* dialog) {
        QVERIFY(qobject_cast<CMultiRcvCabinetSetDlg*>(dialog));
        lateType = CTypeLibrary::instance().searchSameName(QStringLiteral("late"));
        write(QStringLiteral("G/Cab.rcvbp"), "multi, changed");
        static_cast<QDialog*>(dialog)->reject();
    });
    choose(QStringLiteral("G/Cab.rcvbp"), QStringLiteral("Edit"));
    QCOMPARE(lateType, pathOf(QStringLiteral("G/late.rcvp")));
    QVERIFY(agree()); // the file's path was dropped, though the wizard was cancelled
}

void tst_ChangeOperations::editOfATypeInUse()
{
    write(QStringLiteral("Cab.rcvbp"), "multi");
    place("multi");
    load();
    ModalScript script;
    script.press(CDialog::Ok);
    choose(QStringLiteral("Cab.rcvbp"), QStringLiteral("Edit"));
    QCOMPARE(script.seen(),
             QStringList({information("The action cannot be completed because the type is being used in layout.")}));
}

SETTINGAREA_TEST_MAIN(tst_ChangeOperations, QApplication)

#include "tst_ChangeOperations.moc"
