#include "multircv/CMultiRcvCabinetSetDlg.h"
#include "tests/typelibrary/ViewFixture.h"
#include "typelibrary/store/TypeFileAttributes.h"

#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>

// New folders, renaming and editing.
class tst_RenameOperations : public ViewFixture
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
    void renameToTheSameOrNothing_data();
    void renameToTheSameOrNothing();
    void renameToATakenName();
    void renameOfATypeInUse();
    void renameOfAGroupInUse();
    void renameOfNothing();
    void renameWhileAnotherNameIsEdited();
    void renameOfAGroupThatChangesMeanwhile();
    void renamedGroupIsStillFollowed();
    void groupVanishesWhileItsNameIsEdited();

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

void tst_RenameOperations::newFolders()
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

void tst_RenameOperations::newFolderGoesIntoTheCurrentGroup()
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

void tst_RenameOperations::newFolderDepth()
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

void tst_RenameOperations::newFolderWhereNoneCanBeMade()
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

void tst_RenameOperations::renameAType()
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

void tst_RenameOperations::renameAGroup()
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

void tst_RenameOperations::renameCancelled()
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

void tst_RenameOperations::renameToTheSameOrNothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("the same") << QStringLiteral("a");
    QTest::newRow("nothing") << QString();
}

void tst_RenameOperations::renameToTheSameOrNothing()
{
    QFETCH(QString, name);
    const QString path = write(QStringLiteral("a.rcvp"), "a");
    load();
    ModalScript script;
    view->editIndex(indexOf(QStringLiteral("a.rcvp")));
    type(name);
    QTRY_VERIFY(!editor());
    QCoreApplication::processEvents(); // a message box would open now
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("a.rcvp=a")}));
    QVERIFY(TypeFileInfoCache::instance().find(path).known);
    QCOMPARE(script.seen(), QStringList());
}

void tst_RenameOperations::renameToATakenName()
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

void tst_RenameOperations::renameOfATypeInUse()
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

void tst_RenameOperations::renameOfAGroupInUse()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    place("a");
    load();
    view->editIndex(indexOf(QStringLiteral("G")));
    type(QStringLiteral("H"));
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("H/"), QStringLiteral("H/a.rcvp=a")}));
    QVERIFY(agree());
}

void tst_RenameOperations::renameOfNothing()
{
    write(QStringLiteral("a.rcvp"), "a");
    load();
    view->editIndex({});
    view->editIndex(view->rootIndex());
    view->editIndex(view->rootIndex().parent());
    QVERIFY(!editor());
}

void tst_RenameOperations::renameWhileAnotherNameIsEdited()
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

void tst_RenameOperations::renameOfAGroupThatChangesMeanwhile()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    load();
    indexOf(QStringLiteral("G/a.rcvp"));
    view->editIndex(indexOf(QStringLiteral("G")));
    QTest::keyClicks(editor(), QStringLiteral("begun"));
    Q_EMIT view->model()->dataChanged(indexOf(QStringLiteral("G")), indexOf(QStringLiteral("G")));
    QCOMPARE(editor()->text(), QStringLiteral("begun"));
}

void tst_RenameOperations::renamedGroupIsStillFollowed()
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

void tst_RenameOperations::groupVanishesWhileItsNameIsEdited()
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

void tst_RenameOperations::editAMultiReceiverType()
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

void tst_RenameOperations::editOfATypeInUse()
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

SETTINGAREA_TEST_MAIN(tst_RenameOperations, QApplication)

#include "tst_RenameOperations.moc"
