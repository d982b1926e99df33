#include "tests/typelibrary/ViewFixture.h"
#include "typelibrary/store/TypeFileAttributes.h"

#include <QApplication>
#include <QPushButton>
#include <QScreen>

// Deleting one entry, and clearing the library.
class tst_DeleteOperations : public ViewFixture
{
    Q_OBJECT

private Q_SLOTS:
    void deleteAnEntry_data();
    void deleteAnEntry();
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
};

void tst_DeleteOperations::deleteAnEntry_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("box");
    QTest::addColumn<QStringList>("remaining");
    QTest::newRow("type") << QStringLiteral("G/Cab 1.rcvp") << question("Are you sure want to delete type(Cab 1)?")
                          << QStringList({QStringLiteral("G/"), QStringLiteral("North.A/"),
                                          QStringLiteral("North.A/Sub/"), QStringLiteral("North.A/Sub/a.rcvp=a"),
                                          QStringLiteral("North.A/notes.txt=n"), QStringLiteral("b.rcvp=b")});
    QTest::newRow("group that was never expanded")
        << QStringLiteral("North.A") << question("Are you sure want to delete type group(North.A)?")
        << QStringList({QStringLiteral("G/"), QStringLiteral("G/Cab 1.rcvp=c"), QStringLiteral("b.rcvp=b")});
}

void tst_DeleteOperations::deleteAnEntry()
{
    QFETCH(QString, entry);
    QFETCH(QString, box);
    QFETCH(QStringList, remaining);
    write(QStringLiteral("G/Cab 1.rcvp"), "c");
    write(QStringLiteral("North.A/Sub/a.rcvp"), "a");
    write(QStringLiteral("North.A/notes.txt"), "n");
    write(QStringLiteral("b.rcvp"), "b");
    load();
    ModalScript script;
    script.press(CDialog::Yes);
    choose(entry, QStringLiteral("Delete"));
    QCOMPARE(script.seen(), QStringList({box}));
    QCOMPARE(libraryContent(), remaining);
    QVERIFY(agree());
}

void tst_DeleteOperations::deleteAnswerNo()
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

void tst_DeleteOperations::deleteOfATypeInUse()
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

void tst_DeleteOperations::deleteOfAGroupInUse()
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

void tst_DeleteOperations::deleteOfNothing()
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

void tst_DeleteOperations::deleteALink()
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

void tst_DeleteOperations::deleteWhatVanishesMeanwhile()
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

void tst_DeleteOperations::deletingOneByOneGoesOn()
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

void tst_DeleteOperations::clearKeepsTypesInUse()
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

void tst_DeleteOperations::clearOfGroupsNeverLoaded()
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

void tst_DeleteOperations::clearDropsNothingAndRescansNothing()
{
    const QString path = write(QStringLiteral("a.rcvp"), "a");
    load();
    view->clear();
    QTRY_VERIFY(!view->hasRows());
    QVERIFY(TypeFileInfoCache::instance().find(path).known);
    QCOMPARE(outline(CTypeLibrary::instance().nodes()), QStringList({QStringLiteral("s a")}));
}

void tst_DeleteOperations::clearWithoutAHost()
{
    write(QStringLiteral("a.rcvp"), "a");
    load();
    setStoreHandler(nullptr);
    view->clear();
    QCOMPARE(libraryContent(), QStringList());
    CProductTreeView none;
    none.clear();
}

void tst_DeleteOperations::messageOfManyNamesIsCut()
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

SETTINGAREA_TEST_MAIN(tst_DeleteOperations, QApplication)

#include "tst_DeleteOperations.moc"
