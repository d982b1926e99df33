#include "tests/support/FileFixture.h"
#include "tests/support/StoreFixture.h"
#include "typelibrary/store/LibraryFolders.h"

#include <QCoreApplication>

class tst_LibraryFolders : public StoreFixture
{
    Q_OBJECT

private Q_SLOTS:
    void levelOfAFolder_data();
    void levelOfAFolder();
    void levelsOfAChosenFolder_data();
    void levelsOfAChosenFolder();
    void levelsWithLinks();
    void nextFreeName();
    void pathsInTheLibrary();
};

void tst_LibraryFolders::levelOfAFolder_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("root");
    QTest::addColumn<int>("level");
    QTest::newRow("library") << QStringLiteral("/lib") << QStringLiteral("/lib") << 0;
    QTest::newRow("group") << QStringLiteral("/lib/A") << QStringLiteral("/lib") << 1;
    QTest::newRow("group in a group") << QStringLiteral("/lib/A/B") << QStringLiteral("/lib") << 2;
    QTest::newRow("deepest") << QStringLiteral("/lib/A/B/C") << QStringLiteral("/lib") << 3;
    QTest::newRow("name of dots") << QStringLiteral("/lib/A/...") << QStringLiteral("/lib") << 2;
    QTest::newRow("the whole disk") << QStringLiteral("/") << QStringLiteral("/") << 0;
    QTest::newRow("on the whole disk") << QStringLiteral("/A/B") << QStringLiteral("/") << 2;
}

void tst_LibraryFolders::levelOfAFolder()
{
    QFETCH(QString, folder);
    QFETCH(QString, root);
    QTEST(groupLevel(folder, root), "level");
}

void tst_LibraryFolders::levelsOfAChosenFolder_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<int>("levels");
    QTest::newRow("empty") << QStringList() << 0;
    QTest::newRow("no types") << QStringList({QStringLiteral("a.txt"), QStringLiteral("A/B/c.RCVP")}) << 0;
    QTest::newRow("types in the folder itself") << QStringList({QStringLiteral("a.rcvp")}) << 1;
    QTest::newRow("in a sub-folder") << QStringList({QStringLiteral("a.rcvp"), QStringLiteral("A/b.rcvbp")}) << 2;
    QTest::newRow("deep") << QStringList({QStringLiteral("A/B/C/d.rcvp"), QStringLiteral("A/e.rcvp")}) << 4;
    QTest::newRow("deep without types") << QStringList({QStringLiteral("A/B/C/d.txt"), QStringLiteral("e.rcvp")}) << 1;
    QTest::newRow("hidden") << QStringList({QStringLiteral(".a.rcvp"), QStringLiteral(".A/b.rcvp")}) << 0;
}

void tst_LibraryFolders::levelsOfAChosenFolder()
{
    QFETCH(QStringList, files);
    for (const QString& file : qAsConst(files))
        write(file, "x");
    QTEST(groupLevelsIn(library->path()), "levels");
}

void tst_LibraryFolders::levelsWithLinks()
{
    const QTemporaryDir outside;
    QVERIFY(writeFile(outside.filePath(QStringLiteral("A/o.rcvp")), "o"));
    makeFolder(QStringLiteral("L"));
    QVERIFY(makeLink(outside.path(), pathOf(QStringLiteral("L/folder"))));
    QVERIFY(makeLink(outside.filePath(QStringLiteral("A/o.rcvp")), pathOf(QStringLiteral("L/o.rcvp"))));
    QVERIFY(makeLink(library->path(), pathOf(QStringLiteral("L/loop"))));
    QCOMPARE(groupLevelsIn(library->path()), 0);
    write(QStringLiteral("data"), "d");
    QVERIFY(makeLink(pathOf(QStringLiteral("data")), pathOf(QStringLiteral("L/d.rcvp")))); // is copied as a file
    QCOMPARE(groupLevelsIn(library->path()), 2);
}

void tst_LibraryFolders::nextFreeName()
{
    const QString name = QStringLiteral("New type folder");
    QCOMPARE(freeName(library->path(), name), name);
    makeFolder(name);
    QCOMPARE(freeName(library->path(), name), QStringLiteral("New type folder(1)"));
    write(QStringLiteral("New type folder(1)"), "a file");
    QVERIFY(makeLink(QStringLiteral("/nowhere"), pathOf(QStringLiteral("New type folder(2)"))));
    QCOMPARE(freeName(library->path(), name), QStringLiteral("New type folder(3)"));
    makeFolder(QStringLiteral("New type folder(3)"));
    QVERIFY(QDir(library->path()).rmdir(name));
    QCOMPARE(freeName(library->path(), name), name);
    makeFolder(QStringLiteral("%1%2"));
    QCOMPARE(freeName(library->path(), QStringLiteral("%1%2")), QStringLiteral("%1%2(1)"));
}

void tst_LibraryFolders::pathsInTheLibrary()
{
    const QString file = write(QStringLiteral("lib/G/a.rcvp"), "a");
    const QString beside = write(QStringLiteral("library/b.rcvp"), "b");
    const QString root = pathOf(QStringLiteral("lib"));
    const QString alias = pathOf(QStringLiteral("alias"));
    QVERIFY(makeLink(root, alias));
    QCOMPARE(pathInLibrary(file, root), file);
    QCOMPARE(pathInLibrary(root, root), root);
    QCOMPARE(pathInLibrary(alias + QStringLiteral("/G/a.rcvp"), root), file);
    QCOMPARE(pathInLibrary(file, alias), alias + QStringLiteral("/G/a.rcvp"));
    QCOMPARE(pathInLibrary(beside, root), QString());
    QCOMPARE(pathInLibrary(library->path(), root), QString());
    QCOMPARE(pathInLibrary(root + QStringLiteral("/missing.rcvp"), root), QString());
    QCOMPARE(pathInLibrary(file, QString()), QString());
}

SETTINGAREA_TEST_MAIN(tst_LibraryFolders, QCoreApplication)

#include "tst_LibraryFolders.moc"
