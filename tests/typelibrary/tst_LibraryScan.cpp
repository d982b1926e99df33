#include "tests/support/FileFixture.h"
#include "tests/support/StoreFixture.h"
#include "typelibrary/store/LibraryScan.h"
#include "typelibrary/store/Md5.h"

#include <QCoreApplication>

using STreeNode = SSettings::TypeLibrary::STreeNode;

namespace {

constexpr auto everybodyMayList = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadGroup |
                                  QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;

} // namespace

// Library folders as no user would make them on purpose.
class tst_LibraryScan : public StoreFixture
{
    Q_OBJECT

private:
    std::vector<STreeNode> scanAsUser() const
    {
        const PermissionsApply permissions;
        return scanLibrary(library->path());
    }

private Q_SLOTS:
    void linksToAnAncestorAreNotEnteredAgain();
    void linksBetweenSiblingsEnd();
    void libraryThatIsItselfALink();
    void linksToFilesAndFoldersElsewhere();
    void linkToNowhereIsNotListed();
    void pipesAndSocketsAreNotListed();
    void linksToPipesAndDevicesAreEntriesButNoTypes();
    void emptyFileIsAType();
    void unreadableFileHasNoDigest();
    void unreadableFolderHasNoChildren();
    void strangeNames_data();
    void strangeNames();
    void sixtyFourLevelsOfFolders();
    void tenThousandFilesInOneFolder();
    void anyNumberOfThreadsGivesTheSameTree();
};

void tst_LibraryScan::linksToAnAncestorAreNotEnteredAgain()
{
    write(QStringLiteral("G/x.rcvp"), "x");
    QVERIFY(QFile::link(QStringLiteral(".."), pathOf(QStringLiteral("G/up"))));
    QVERIFY(QFile::link(QStringLiteral("."), pathOf(QStringLiteral("G/self"))));
    QVERIFY(QFile::link(library->path(), pathOf(QStringLiteral("again"))));
    QCOMPARE(outline(scanLibrary(library->path())), QStringList({QStringLiteral("g G"), QStringLiteral(" s x"),
                                                                 QStringLiteral(" g self"), QStringLiteral(" g up")}));
}

void tst_LibraryScan::linksBetweenSiblingsEnd()
{
    write(QStringLiteral("A/a.rcvp"), "a");
    write(QStringLiteral("B/b.rcvp"), "b");
    QVERIFY(QFile::link(QStringLiteral("../B"), pathOf(QStringLiteral("A/toB"))));
    QVERIFY(QFile::link(QStringLiteral("../A"), pathOf(QStringLiteral("B/toA"))));
    QCOMPARE(
        outline(scanLibrary(library->path())),
        QStringList({QStringLiteral("g A"), QStringLiteral(" s a"), QStringLiteral(" g toB"), QStringLiteral("  s b"),
                     QStringLiteral("  g toA"), QStringLiteral("g B"), QStringLiteral(" s b"), QStringLiteral(" g toA"),
                     QStringLiteral("  s a"), QStringLiteral("  g toB")}));
}

void tst_LibraryScan::libraryThatIsItselfALink()
{
    write(QStringLiteral("real/G/x.rcvp"), "x");
    QVERIFY(QFile::link(pathOf(QStringLiteral("real")), pathOf(QStringLiteral("link"))));
    QVERIFY(QFile::link(pathOf(QStringLiteral("real")), pathOf(QStringLiteral("real/G/up"))));
    const auto nodes = scanLibrary(pathOf(QStringLiteral("link")));
    QCOMPARE(outline(nodes), QStringList({QStringLiteral("g G"), QStringLiteral(" s x"), QStringLiteral(" g up")}));
    QCOMPARE(nodes[0].children[0].path, pathOf(QStringLiteral("link/G/x.rcvp")));
}

void tst_LibraryScan::linksToFilesAndFoldersElsewhere()
{
    QTemporaryDir elsewhere;
    QVERIFY(QDir(elsewhere.path()).mkdir(QStringLiteral("F")));
    const QString file = elsewhere.filePath(QStringLiteral("F/x.rcvp"));
    QVERIFY(writeFile(file, {}));
    QVERIFY(QFile::link(elsewhere.filePath(QStringLiteral("F")), pathOf(QStringLiteral("folder"))));
    QVERIFY(QFile::link(file, pathOf(QStringLiteral("file.rcvp"))));
    const auto nodes = scanLibrary(library->path());
    QCOMPARE(outline(nodes),
             QStringList({QStringLiteral("s file"), QStringLiteral("g folder"), QStringLiteral(" s x")}));
    QCOMPARE(nodes[0].path, pathOf(QStringLiteral("file.rcvp")));
    QCOMPARE(nodes[1].children[0].path, pathOf(QStringLiteral("folder/x.rcvp")));
}

void tst_LibraryScan::linkToNowhereIsNotListed()
{
    write(QStringLiteral("G/x.rcvp"), "x");
    QVERIFY(QFile::link(QStringLiteral("nowhere"), pathOf(QStringLiteral("G/broken.rcvp"))));
    QVERIFY(QFile::link(QStringLiteral("round.rcvp"), pathOf(QStringLiteral("G/round.rcvp"))));
    QCOMPARE(outline(scanLibrary(library->path())), QStringList({QStringLiteral("g G"), QStringLiteral(" s x")}));
}

void tst_LibraryScan::pipesAndSocketsAreNotListed()
{
    write(QStringLiteral("G/x.rcvp"), "x");
    QVERIFY(makeFifo(pathOf(QStringLiteral("G/pipe.rcvp"))));
    QVERIFY(makeSocket(pathOf(QStringLiteral("G/socket.rcvp"))));
    QCOMPARE(outline(scanLibrary(library->path())), QStringList({QStringLiteral("g G"), QStringLiteral(" s x")}));
}

void tst_LibraryScan::linksToPipesAndDevicesAreEntriesButNoTypes()
{
    QVERIFY(makeFifo(pathOf(QStringLiteral("pipe"))));
    QVERIFY(QFile::link(pathOf(QStringLiteral("pipe")), pathOf(QStringLiteral("a.rcvp"))));
    QVERIFY(QFile::link(QStringLiteral("/dev/zero"), pathOf(QStringLiteral("b.rcvp"))));
    QVERIFY(QFile::link(QStringLiteral("/dev/zero"), pathOf(QStringLiteral("c.txt"))));
    const auto nodes = scanLibrary(library->path());
    QCOMPARE(outline(nodes), QStringList({QStringLiteral("- a"), QStringLiteral("- b")}));
    QVERIFY(isEmpty(nodes[1].md5));
    QVERIFY(handler->calls().isEmpty());
}

void tst_LibraryScan::emptyFileIsAType()
{
    write(QStringLiteral("empty.rcvp"), QByteArray());
    const auto nodes = scanLibrary(library->path());
    QCOMPARE(outline(nodes), QStringList({QStringLiteral("s empty")}));
    QCOMPARE(QByteArray(nodes[0].md5.data), QByteArray("d41d8cd98f00b204e9800998ecf8427e"));
}

void tst_LibraryScan::unreadableFileHasNoDigest()
{
    const QString path = write(QStringLiteral("a.rcvp"), "a");
    QVERIFY(QFile::setPermissions(library->path(), everybodyMayList));
    QVERIFY(QFile::setPermissions(path, {}));
    const auto nodes = scanAsUser();
    QCOMPARE(outline(nodes), QStringList({QStringLiteral("s a")}));
    QVERIFY(isEmpty(nodes[0].md5));
}

void tst_LibraryScan::unreadableFolderHasNoChildren()
{
    write(QStringLiteral("closed/a.rcvp"), "a");
    write(QStringLiteral("open/b.rcvp"), "b");
    write(QStringLiteral("open/closed too/c.rcvp"), "c");
    QVERIFY(QFile::setPermissions(library->path(), everybodyMayList));
    for (const auto& closed : {QStringLiteral("closed"), QStringLiteral("open/closed too")})
        QVERIFY(QFile::setPermissions(pathOf(closed), {}));
    QCOMPARE(outline(scanAsUser()),
             QStringList({QStringLiteral("g open"), QStringLiteral(" s b"), QStringLiteral(" g closed too")}));
    for (const auto& closed : {QStringLiteral("closed"), QStringLiteral("open/closed too")})
        QVERIFY(QFile::setPermissions(pathOf(closed), everybodyMayList));
}

void tst_LibraryScan::strangeNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("255 bytes") << QString(250, QLatin1Char('n'));
    QTest::newRow("newline") << QStringLiteral("two\nlines");
    QTest::newRow("right to left") << QStringLiteral("\u202e\u05d0\u05d1\u05d2");
    QTest::newRow("combining characters") << QStringLiteral("e\u0301\u0323\u0308");
    QTest::newRow("Chinese") << QStringLiteral("舞台背景屏");
    QTest::newRow("beyond the basic plane") << QString::fromUtf8("\xF0\x9F\x92\xA1");
    QTest::newRow("blanks") << QStringLiteral("  a  ");
    QTest::newRow("percent") << QStringLiteral("100%1");
    QTest::newRow("markup") << QStringLiteral("<b>a&amp;");
    QTest::newRow("backslash") << QStringLiteral("a\\b");
}

void tst_LibraryScan::strangeNames()
{
    QFETCH(QString, name);
    const QString path = write(name + QStringLiteral(".rcvp"), "x");
    const auto nodes = scanLibrary(library->path());
    QCOMPARE(nodes.size(), std::size_t(1));
    QCOMPARE(nodes[0].name, name);
    QCOMPARE(nodes[0].path, path);
    QVERIFY(!isEmpty(nodes[0].md5));
}

void tst_LibraryScan::sixtyFourLevelsOfFolders()
{
    QString path;
    for (int level = 0; level < 64; ++level)
        path += QStringLiteral("%1/").arg(level);
    write(path + QStringLiteral("x.rcvp"), "x");
    auto nodes = scanLibrary(library->path());
    for (int level = 0; level < 64; ++level) {
        QCOMPARE(nodes.size(), std::size_t(1));
        QCOMPARE(nodes[0].name, QString::number(level));
        QCOMPARE(nodes[0].nodeType, STreeNode::Group);
        nodes = std::vector<STreeNode>(nodes[0].children);
    }
    QCOMPARE(outline(nodes), QStringList({QStringLiteral("s x")}));
}

void tst_LibraryScan::tenThousandFilesInOneFolder()
{
    for (int i = 0; i < 10'000; ++i)
        write(QStringLiteral("G/%1.rcvp").arg(i, 5, 10, QLatin1Char('0')), QByteArray::number(i));
    const auto nodes = scanLibrary(library->path());
    QCOMPARE(nodes.size(), std::size_t(1));
    QCOMPARE(nodes[0].children.size(), std::size_t(10'000));
    for (int i = 0; i < 10'000; ++i) {
        const STreeNode& node = nodes[0].children[std::size_t(i)];
        QCOMPARE(node.name.toInt(), i);
        QVERIFY(!isEmpty(node.md5));
        QCOMPARE(node.resolution, QSize(128, 64));
    }
}

void tst_LibraryScan::anyNumberOfThreadsGivesTheSameTree()
{
    for (int i = 0; i < 20; ++i)
        write(QStringLiteral("%1.rcvp").arg(i), QByteArray::number(i));
    QStringList digests;
    for (const unsigned threads : {1U, 2U, 7U, 64U}) {
        QTemporaryDir copy;
        const QStringList names = QDir(library->path()).entryList(QDir::Files);
        for (const QString& name : names)
            QVERIFY(QFile::copy(pathOf(name), copy.filePath(name)));
        QStringList found;
        for (const STreeNode& node : scanLibrary(copy.path(), threads))
            found.append(node.name + QLatin1Char(' ') + QLatin1String(node.md5.data));
        QCOMPARE(found.size(), 20);
        if (digests.isEmpty())
            digests = found;
        QCOMPARE(found, digests);
    }
}

SETTINGAREA_TEST_MAIN(tst_LibraryScan, QCoreApplication)
#include "tst_LibraryScan.moc"
