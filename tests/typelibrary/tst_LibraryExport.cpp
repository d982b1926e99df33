#include "tests/support/FileFixture.h"
#include "tests/support/StoreFixture.h"
#include "typelibrary/store/LibraryExport.h"
#include "typelibrary/store/TypeFileAttributes.h"

#include <QCoreApplication>

class tst_LibraryExport : public StoreFixture
{
    Q_OBJECT

private Q_SLOTS:
    void file();
    void fileOverAnother();
    void fileOverALinkToNowhere();
    void fileOntoItself_data();
    void fileOntoItself();
    void fileIntoTheLibrary();
    void fileThatIsGone();
    void fileOntoAFullDisk();
    void fileIntoAnUnwritableFolder();

    void group();
    void wholeLibrary();
    void groupOntoItself();
    void groupIntoTheLibrary();
    void groupOverTypesOfTheLibrary();
    void libraryIntoItself();
    void groupAroundTheLibrary();
    void groupThroughALinkIntoTheLibrary();

protected Q_SLOTS:
    void init();

private:
    QString root() const { return pathOf(QStringLiteral("lib")); }
    QString out(const QString& relativePath) const { return pathOf(QStringLiteral("out/") + relativePath); }
    bool isCached(const QString& path) const { return TypeFileInfoCache::instance().find(path).known != 0; }

    QString m_type; // in the library
};

void tst_LibraryExport::init()
{
    StoreFixture::init();
    m_type = write(QStringLiteral("lib/G/a.rcvp"), "a");
    write(QStringLiteral("lib/G/Sub/b.rcvbp"), "b");
    write(QStringLiteral("lib/G/notes.txt"), "n");
    write(QStringLiteral("lib/c.rcvp"), "c");
    makeFolder(QStringLiteral("out"));
}

void tst_LibraryExport::file()
{
    const LibraryExport result = exportFile(m_type, out(QStringLiteral("x.rcvp")), root());
    QVERIFY(result.done);
    QVERIFY(!result.rescan);
    QCOMPARE(readFile(out(QStringLiteral("x.rcvp"))), QByteArray("a"));
}

void tst_LibraryExport::fileOverAnother()
{
    const QString target = write(QStringLiteral("out/x.rcvp"), "old and longer");
    QVERIFY(exportFile(m_type, target, root()).done);
    QCOMPARE(readFile(target), QByteArray("a"));
    QCOMPARE(QDir(out({})).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList({QStringLiteral("x.rcvp")}));
}

void tst_LibraryExport::fileOverALinkToNowhere()
{
    QVERIFY(makeLink(pathOf(QStringLiteral("nowhere")), out(QStringLiteral("x.rcvp"))));
    QVERIFY(exportFile(m_type, out(QStringLiteral("x.rcvp")), root()).done);
    QVERIFY(!QFileInfo(out(QStringLiteral("x.rcvp"))).isSymLink());
    QCOMPARE(readFile(out(QStringLiteral("x.rcvp"))), QByteArray("a"));
    QVERIFY(!QFile::exists(pathOf(QStringLiteral("nowhere"))));
}

void tst_LibraryExport::fileOntoItself_data()
{
    QTest::addColumn<QString>("target");
    QTest::newRow("same path") << QStringLiteral("lib/G/a.rcvp");
    QTest::newRow("with dots") << QStringLiteral("lib/../lib/G/./a.rcvp");
    QTest::newRow("linked folder") << QStringLiteral("alias/a.rcvp");
    QTest::newRow("linked file") << QStringLiteral("link.rcvp");
}

void tst_LibraryExport::fileOntoItself()
{
    QFETCH(QString, target);
    QVERIFY(makeLink(pathOf(QStringLiteral("lib/G")), pathOf(QStringLiteral("alias"))));
    QVERIFY(makeLink(m_type, pathOf(QStringLiteral("link.rcvp"))));
    const LibraryExport result = exportFile(m_type, pathOf(target), root());
    QVERIFY(result.done);
    QVERIFY(!result.rescan);
    QCOMPARE(readFile(m_type), QByteArray("a"));
}

void tst_LibraryExport::fileIntoTheLibrary()
{
    const QString target = root() + QStringLiteral("/c.rcvp");
    QCOMPARE(typeOfFile(target), SSettings::TypeLibrary::STreeNode::SingleRcv);
    QVERIFY(isCached(target));
    QVERIFY(makeLink(root(), pathOf(QStringLiteral("alias"))));
    const LibraryExport result = exportFile(m_type, pathOf(QStringLiteral("alias/c.rcvp")), root());
    QVERIFY(result.done);
    QVERIFY(result.rescan);
    QVERIFY(!isCached(target));
    QCOMPARE(readFile(target), QByteArray("a"));
}

void tst_LibraryExport::fileThatIsGone()
{
    const QString target = write(QStringLiteral("out/x.rcvp"), "kept");
    QFile::remove(m_type);
    QVERIFY(!exportFile(m_type, target, root()).done);
    QCOMPARE(readFile(target), QByteArray("kept"));
    QVERIFY(!exportFile(m_type, out(QStringLiteral("y.rcvp")), root()).done);
    QVERIFY(!QFile::exists(out(QStringLiteral("y.rcvp"))));
}

void tst_LibraryExport::fileOntoAFullDisk()
{
    const QString large = write(QStringLiteral("lib/large.rcvp"), QByteArray(100'000, 'x'));
    const QString target = write(QStringLiteral("out/x.rcvp"), "kept");
    const DiskIsFull full(50'000);
    QVERIFY(!exportFile(large, target, root()).done);
    QCOMPARE(readFile(target), QByteArray("kept"));
    QVERIFY(!exportFile(large, out(QStringLiteral("y.rcvp")), root()).done);
    QCOMPARE(QDir(out({})).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList({QStringLiteral("x.rcvp")}));
}

void tst_LibraryExport::fileIntoAnUnwritableFolder()
{
    QFile::setPermissions(library->path(), QFileDevice::Permissions(0x7777));
    QFile::setPermissions(out({}), QFileDevice::Permissions(0x5555));
    const PermissionsApply user;
    QVERIFY(!exportFile(m_type, out(QStringLiteral("x.rcvp")), root()).done);
    QVERIFY(!exportFolder(root(), out({}), root()).done);
}

void tst_LibraryExport::group()
{
    write(QStringLiteral("out/a.rcvp"), "old");
    write(QStringLiteral("out/other.rcvp"), "other");
    const LibraryExport result = exportFolder(root() + QStringLiteral("/G"), out({}), root());
    QVERIFY(result.done);
    QVERIFY(!result.rescan);
    QCOMPARE(readFile(out(QStringLiteral("a.rcvp"))), QByteArray("a"));
    QCOMPARE(readFile(out(QStringLiteral("Sub/b.rcvbp"))), QByteArray("b"));
    QCOMPARE(readFile(out(QStringLiteral("other.rcvp"))), QByteArray("other"));
    QVERIFY(!QFile::exists(out(QStringLiteral("notes.txt"))));
    QVERIFY(!QFile::exists(out(QStringLiteral("G"))));
}

void tst_LibraryExport::wholeLibrary()
{
    QVERIFY(exportFolder(root(), out({}), root(), QStringLiteral("All types")).done);
    QCOMPARE(readFile(out(QStringLiteral("All types/G/a.rcvp"))), QByteArray("a"));
    QCOMPARE(readFile(out(QStringLiteral("All types/G/Sub/b.rcvbp"))), QByteArray("b"));
    QCOMPARE(readFile(out(QStringLiteral("All types/c.rcvp"))), QByteArray("c"));
}

void tst_LibraryExport::groupOntoItself()
{
    const LibraryExport result = exportFolder(root() + QStringLiteral("/G"), root() + QStringLiteral("/G"), root());
    QVERIFY(result.done);
    QCOMPARE(readFile(m_type), QByteArray("a"));
}

void tst_LibraryExport::groupIntoTheLibrary()
{
    const QString stale = root() + QStringLiteral("/H/a.rcvp");
    makeFolder(QStringLiteral("lib/H"));
    write(QStringLiteral("lib/H/a.rcvp"), "stale");
    QVERIFY(!isEmpty(md5OfFile(stale)));
    QFile::remove(stale);
    const LibraryExport result = exportFolder(root() + QStringLiteral("/G"), root() + QStringLiteral("/H"), root());
    QVERIFY(result.done);
    QVERIFY(result.rescan);
    QVERIFY(!isCached(stale));
    QCOMPARE(readFile(stale), QByteArray("a"));
    QCOMPARE(readFile(root() + QStringLiteral("/H/Sub/b.rcvbp")), QByteArray("b"));
}

void tst_LibraryExport::groupOverTypesOfTheLibrary()
{
    const QString other = write(QStringLiteral("lib/H/a.rcvp"), "another type");
    const LibraryExport result = exportFolder(root() + QStringLiteral("/G"), root() + QStringLiteral("/H"), root());
    QVERIFY(!result.done);
    QCOMPARE(readFile(other), QByteArray("another type"));
    QVERIFY(!QFile::exists(root() + QStringLiteral("/H/Sub")));
}

void tst_LibraryExport::libraryIntoItself()
{
    const LibraryExport result = exportFolder(root(), root(), root(), QStringLiteral("All types"));
    QVERIFY(result.done);
    QVERIFY(result.rescan);
    QCOMPARE(readFile(root() + QStringLiteral("/All types/G/a.rcvp")), QByteArray("a"));
    QVERIFY(!QFile::exists(root() + QStringLiteral("/All types/All types")));
}

void tst_LibraryExport::groupAroundTheLibrary()
{
    // A sub-group with the name of the library folder would land in the library itself.
    write(QStringLiteral("lib/K/lib/c.rcvp"), "another");
    QVERIFY(!exportFolder(root() + QStringLiteral("/K"), library->path(), root()).done);
    QCOMPARE(readFile(root() + QStringLiteral("/c.rcvp")), QByteArray("c"));
}

void tst_LibraryExport::groupThroughALinkIntoTheLibrary()
{
    const QString other = write(QStringLiteral("lib/H/b.rcvbp"), "another type");
    QVERIFY(makeLink(root() + QStringLiteral("/H"), out(QStringLiteral("Sub"))));
    QVERIFY(!exportFolder(root() + QStringLiteral("/G"), out({}), root()).done);
    QVERIFY(!exportFolder(root() + QStringLiteral("/G/Sub"), out({}), root(), QStringLiteral("Sub")).done);
    QCOMPARE(readFile(other), QByteArray("another type"));
    QCOMPARE(readFile(out(QStringLiteral("a.rcvp"))), QByteArray("a"));
}

SETTINGAREA_TEST_MAIN(tst_LibraryExport, QCoreApplication)

#include "tst_LibraryExport.moc"
