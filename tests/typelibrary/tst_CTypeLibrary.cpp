#include "tests/support/StoreFixture.h"
#include "typelibrary/store/CTypeLibrary.h"
#include "typelibrary/store/TypeFileAttributes.h"

#include <QCoreApplication>
#include <QCryptographicHash>

using STreeNode = SSettings::TypeLibrary::STreeNode;

namespace {

SMD5 digestOf(const QByteArray& content)
{
    SMD5 md5;
    const QByteArray hex = QCryptographicHash::hash(content, QCryptographicHash::Md5).toHex();
    std::copy(hex.cbegin(), hex.cend(), md5.data);
    return md5;
}

} // namespace

class tst_CTypeLibrary : public StoreFixture
{
    Q_OBJECT

private Q_SLOTS:
    void topLevelKeepsTypesAndGroupsThatLeadToOne();
    void insideAGroupEveryEntryStands();
    void filesComeBeforeFoldersInNameOrder();
    void hiddenEntriesAreNotListed();
    void nodeOfATypeFile();
    void nodeOfAGroup();
    void nodeOfAnyOtherFile();
    void hostDecidesTheKind();
    void cabinetDetailsComeFromTheRecord();
    void isEmptyBeforeTheFirstFolder();
    void emptyFolderNameGivesAnEmptyTree();
    void missingFolderGivesAnEmptyTree();
    void folderNameIsMadeAbsoluteAndClean();
    void onlyAScanChangesTheTree();
    void searchSameNameIgnoresFolderAndSuffix();
    void searchSameNameFindsOtherFilesInGroupsButNoGroup();
    void searchSameTypeFindsTheFirstInTreeOrder();
    void searchSameTypeFindsTheEmptyDigest();
    void searchSameTypeOfFileSearchesOnlyForTypeFiles();
    void overwrittenFileKeepsItsDigestUntilRemovedFromTheCache();
    void rescanAsksTheHostNothingNew();
    void withoutHandlerTypesAreSingleAndAskedAgainLater();
};

void tst_CTypeLibrary::topLevelKeepsTypesAndGroupsThatLeadToOne()
{
    write(QStringLiteral("a.rcvp"), "a");
    write(QStringLiteral("b.RCVP"), "b");
    write(QStringLiteral("c.txt"), "c");
    makeFolder(QStringLiteral("G"));
    write(QStringLiteral("Texts/only.txt"), "t");
    makeFolder(QStringLiteral("Outer/Inner"));
    write(QStringLiteral("Deep/er/est/d.rcvbp"), "d");

    CTypeLibrary store;
    store.setRootPath(library->path());
    QCOMPARE(outline(store.nodes()),
             QStringList({QStringLiteral("s a"), QStringLiteral("g Deep"), QStringLiteral(" g er"),
                          QStringLiteral("  g est"), QStringLiteral("   s d")}));
}

void tst_CTypeLibrary::insideAGroupEveryEntryStands()
{
    write(QStringLiteral("G/x.txt"), "x");
    write(QStringLiteral("G/y.rcvbp"), "y");
    write(QStringLiteral("G/z.RCVBP"), "z");
    makeFolder(QStringLiteral("G/empty"));
    write(QStringLiteral("G/texts/t.txt"), "t");

    CTypeLibrary store;
    store.setRootPath(library->path());
    QCOMPARE(outline(store.nodes()),
             QStringList({QStringLiteral("g G"), QStringLiteral(" - x"), QStringLiteral(" s y"), QStringLiteral(" - z"),
                          QStringLiteral(" g empty"), QStringLiteral(" g texts"), QStringLiteral("  - t")}));
}

void tst_CTypeLibrary::filesComeBeforeFoldersInNameOrder()
{
    for (const char* name : {"b", "B", "a2", "a10", "_"}) {
        write(QLatin1String(name) + QStringLiteral(".rcvp"), name);
        write(QStringLiteral("Z") + QLatin1String(name) + QStringLiteral("/t.rcvp"), name);
    }
    CTypeLibrary store;
    store.setRootPath(library->path());
    QStringList names;
    for (const STreeNode& node : store.nodes())
        names.append(node.name);
    QCOMPARE(names, QStringList({QStringLiteral("B"), QStringLiteral("_"), QStringLiteral("a10"), QStringLiteral("a2"),
                                 QStringLiteral("b"), QStringLiteral("ZB"), QStringLiteral("Z_"),
                                 QStringLiteral("Za10"), QStringLiteral("Za2"), QStringLiteral("Zb")}));
}

void tst_CTypeLibrary::hiddenEntriesAreNotListed()
{
    write(QStringLiteral(".hidden.rcvp"), "h");
    write(QStringLiteral(".group/x.rcvp"), "x");
    write(QStringLiteral("G/.also.rcvp"), "a");
    write(QStringLiteral("G/seen.rcvp"), "s");
    CTypeLibrary store;
    store.setRootPath(library->path());
    QCOMPARE(outline(store.nodes()), QStringList({QStringLiteral("g G"), QStringLiteral(" s seen")}));
}

void tst_CTypeLibrary::nodeOfATypeFile()
{
    const QString path = write(QStringLiteral("P2.5 indoor.v1.rcvp"), "content");
    handler->resolution = [](const QString&) { return QSize(256, 128); };
    CTypeLibrary store;
    store.setRootPath(library->path());

    const auto nodes = store.nodes();
    QCOMPARE(nodes.size(), std::size_t(1));
    QCOMPARE(nodes[0].name, QStringLiteral("P2.5 indoor.v1"));
    QCOMPARE(nodes[0].path, path);
    QCOMPARE(nodes[0].nodeType, STreeNode::SingleRcv);
    QCOMPARE(QByteArray(nodes[0].md5.data), QByteArray("9a0364b9e99bb480dd25e1f0284c8555"));
    QCOMPARE(nodes[0].resolution, QSize(256, 128));
    QCOMPARE(nodes[0].cabinetList, QList<int>());
    QCOMPARE(nodes[0].cabinetFlag, false);
    QCOMPARE(nodes[0].cabinetBlock, (std::array<std::int64_t, 4>{11, 12, 13, 14}));
    QVERIFY(nodes[0].children.empty());
}

void tst_CTypeLibrary::nodeOfAGroup()
{
    write(QStringLiteral("North.A/x.rcvp"), "x");
    CTypeLibrary store;
    store.setRootPath(library->path());

    const STreeNode group = store.nodes().at(0);
    QCOMPARE(group.name, QStringLiteral("North"));
    QCOMPARE(group.path, pathOf(QStringLiteral("North.A")));
    QCOMPARE(group.nodeType, STreeNode::Group);
    QVERIFY(isEmpty(group.md5));
    QCOMPARE(group.resolution, QSize(-1, -1));
    QCOMPARE(group.cabinetBlock, (std::array<std::int64_t, 4>{}));
    QCOMPARE(group.children.size(), std::size_t(1));
    QCOMPARE(group.children[0].path, pathOf(QStringLiteral("North.A/x.rcvp")));
}

void tst_CTypeLibrary::nodeOfAnyOtherFile()
{
    const QString other = write(QStringLiteral("G/read me.old.txt"), "text");
    write(QStringLiteral("G/x.rcvp"), "x");
    CTypeLibrary store;
    store.setRootPath(library->path());

    const STreeNode node = store.nodes().at(0).children.at(0);
    QCOMPARE(node.name, QStringLiteral("read me.old"));
    QCOMPARE(node.path, other);
    QCOMPARE(node.nodeType, STreeNode::None);
    QVERIFY(isEmpty(node.md5));
    QCOMPARE(node.resolution, QSize(-1, -1));
    QVERIFY(questionsAbout(other).isEmpty());
}

void tst_CTypeLibrary::hostDecidesTheKind()
{
    const QString multi = write(QStringLiteral("multi.rcvp"), "1");
    write(QStringLiteral("single.rcvbp"), "2");
    handler->isMulti = [multi](const QString& path) { return path == multi; };
    CTypeLibrary store;
    store.setRootPath(library->path());
    QCOMPARE(outline(store.nodes()), QStringList({QStringLiteral("m multi"), QStringLiteral("s single")}));
}

void tst_CTypeLibrary::cabinetDetailsComeFromTheRecord()
{
    const QString wired = write(QStringLiteral("wired.rcvbp"), "1");
    const QString damaged = write(QStringLiteral("damaged.rcvbp"), "2");
    handler->cabinet = [=](const QString& path, SHwRcvInCabinetInfo& info) {
        if (path == wired) {
            info.columns = 2;
            info.rows = 2;
            info.wiringOrder = {0, 2, 3, 1, 9, 9, 9, 9, 9, 9};
            info.specifyOrientation = true;
        } else if (path == damaged) {
            info.columns = 255;
            info.rows = 255;
        }
    };
    CTypeLibrary store;
    store.setRootPath(library->path());
    const auto nodes = store.nodes();
    QCOMPARE(nodes.at(0).path, damaged);
    QCOMPARE(nodes.at(0).cabinetList, QList<int>({0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    QCOMPARE(nodes.at(0).cabinetFlag, false);
    QCOMPARE(nodes.at(1).cabinetList, QList<int>({0, 2, 3, 1}));
    QCOMPARE(nodes.at(1).cabinetFlag, true);
}

void tst_CTypeLibrary::isEmptyBeforeTheFirstFolder()
{
    write(QStringLiteral("a.rcvp"), "a");
    QVERIFY(QDir::setCurrent(library->path()));
    CTypeLibrary store;
    QVERIFY(store.nodes().empty());
    store.updateLibrary();
    QVERIFY(store.nodes().empty());
    QCOMPARE(store.rootPath(), QString());
    QCOMPARE(store.searchSameName(QStringLiteral("a")), QString());
    QVERIFY(QDir::setCurrent(QDir::rootPath()));
}

void tst_CTypeLibrary::emptyFolderNameGivesAnEmptyTree()
{
    write(QStringLiteral("a.rcvp"), "a");
    QVERIFY(QDir::setCurrent(library->path()));
    CTypeLibrary store;
    store.setRootPath(library->path());
    QCOMPARE(store.nodes().size(), std::size_t(1));
    store.setRootPath(QString());
    QVERIFY(store.nodes().empty());
    QCOMPARE(store.rootPath(), QString());
    QVERIFY(QDir::setCurrent(QDir::rootPath()));
}

void tst_CTypeLibrary::missingFolderGivesAnEmptyTree()
{
    const QString file = write(QStringLiteral("a.rcvp"), "a");
    CTypeLibrary store;
    store.setRootPath(pathOf(QStringLiteral("nowhere")));
    QVERIFY(store.nodes().empty());
    QCOMPARE(store.rootPath(), pathOf(QStringLiteral("nowhere")));
    store.setRootPath(file);
    QVERIFY(store.nodes().empty());
}

void tst_CTypeLibrary::folderNameIsMadeAbsoluteAndClean()
{
    const QString path = write(QStringLiteral("G/a.rcvp"), "a");
    QVERIFY(QDir::setCurrent(pathOf(QStringLiteral("G"))));
    CTypeLibrary store;
    store.setRootPath(QStringLiteral("../G//./"));
    QCOMPARE(store.rootPath(), QDir::currentPath());
    QCOMPARE(QFileInfo(store.nodes().at(0).path).canonicalFilePath(), QFileInfo(path).canonicalFilePath());
    QCOMPARE(store.nodes().at(0).path, QDir::currentPath() + QStringLiteral("/a.rcvp"));
    QVERIFY(QDir::setCurrent(QDir::rootPath()));
}

void tst_CTypeLibrary::onlyAScanChangesTheTree()
{
    write(QStringLiteral("a.rcvp"), "a");
    CTypeLibrary store;
    store.setRootPath(library->path());
    write(QStringLiteral("b.rcvp"), "b");
    QCOMPARE(outline(store.nodes()), QStringList({QStringLiteral("s a")}));
    store.updateLibrary();
    QCOMPARE(outline(store.nodes()), QStringList({QStringLiteral("s a"), QStringLiteral("s b")}));
    QVERIFY(QFile::remove(pathOf(QStringLiteral("a.rcvp"))));
    store.updateLibrary();
    QCOMPARE(outline(store.nodes()), QStringList({QStringLiteral("s b")}));
}

void tst_CTypeLibrary::searchSameNameIgnoresFolderAndSuffix()
{
    const QString path = write(QStringLiteral("G/Cab 1.rcvbp"), "1");
    CTypeLibrary store;
    store.setRootPath(library->path());
    QCOMPARE(store.searchSameName(QStringLiteral("D:/x/Cab 1.rcvp")), path);
    QCOMPARE(store.searchSameName(QStringLiteral("Cab 1.rcvp")), path);
    QCOMPARE(store.searchSameName(QStringLiteral("Cab 1")), path);
    QCOMPARE(store.searchSameName(QStringLiteral("cab 1")), QString());
    QCOMPARE(store.searchSameName(QStringLiteral("Cab 1.x.rcvp")), QString());
    QCOMPARE(store.searchSameName(QStringLiteral("Cab")), QString());
    QCOMPARE(store.searchSameName(QString()), QString());
}

void tst_CTypeLibrary::searchSameNameFindsOtherFilesInGroupsButNoGroup()
{
    const QString text = write(QStringLiteral("G/note.txt"), "n");
    write(QStringLiteral("G/type.rcvp"), "t");
    write(QStringLiteral("note.txt"), "n");
    write(QStringLiteral("G/S/x.rcvp"), "x");
    CTypeLibrary store;
    store.setRootPath(library->path());
    QCOMPARE(store.searchSameName(QStringLiteral("note.rcvp")), text);
    QCOMPARE(store.searchSameName(QStringLiteral("G")), QString());
    QCOMPARE(store.searchSameName(QStringLiteral("S")), QString());
}

void tst_CTypeLibrary::searchSameTypeFindsTheFirstInTreeOrder()
{
    const QString inGroup = write(QStringLiteral("A/x.rcvp"), "same");
    CTypeLibrary store;
    store.setRootPath(library->path());
    QCOMPARE(store.searchSameType(digestOf("same")), inGroup);

    // A copy under another name that stands before it, since files come before folders.
    const QString copy = write(QStringLiteral("z.rcvbp"), "same");
    store.updateLibrary();
    QCOMPARE(store.searchSameType(digestOf("same")), copy);
    QCOMPARE(store.searchSameTypeOfFile(inGroup), copy);
    QCOMPARE(store.searchSameType(digestOf("other")), QString());
}

void tst_CTypeLibrary::searchSameTypeFindsTheEmptyDigest()
{
    const QString text = write(QStringLiteral("G/note.txt"), "n");
    write(QStringLiteral("G/type.rcvp"), "t");
    CTypeLibrary store;
    store.setRootPath(library->path());
    QCOMPARE(store.searchSameType(SMD5{}), text);
}

void tst_CTypeLibrary::searchSameTypeOfFileSearchesOnlyForTypeFiles()
{
    const QString type = write(QStringLiteral("a.rcvp"), "same");
    write(QStringLiteral("G/note.txt"), "n");
    write(QStringLiteral("G/x.rcvp"), "x");
    QTemporaryDir outside;
    const QString text = outside.filePath(QStringLiteral("same.txt"));
    const QString outsideType = outside.filePath(QStringLiteral("other name.rcvbp"));
    QVERIFY(QFile::copy(type, text));
    QVERIFY(QFile::copy(type, outsideType));
    CTypeLibrary store;
    store.setRootPath(library->path());
    QCOMPARE(store.searchSameTypeOfFile(text), QString());
    QCOMPARE(store.searchSameTypeOfFile(outside.filePath(QStringLiteral("gone.rcvp"))), QString());
    QCOMPARE(store.searchSameTypeOfFile(outside.path()), QString());
    QCOMPARE(store.searchSameTypeOfFile(outsideType), type);
}

void tst_CTypeLibrary::overwrittenFileKeepsItsDigestUntilRemovedFromTheCache()
{
    const QString path = write(QStringLiteral("a.rcvp"), "old");
    CTypeLibrary store;
    store.setRootPath(library->path());
    write(QStringLiteral("a.rcvp"), "new");
    store.updateLibrary();
    QCOMPARE(store.searchSameType(digestOf("old")), path);
    QCOMPARE(store.searchSameType(digestOf("new")), QString());
    removeFromCache(path);
    store.updateLibrary();
    QCOMPARE(store.searchSameType(digestOf("old")), QString());
    QCOMPARE(store.searchSameType(digestOf("new")), path);
}

void tst_CTypeLibrary::rescanAsksTheHostNothingNew()
{
    const QString path = write(QStringLiteral("a.rcvp"), "a");
    CTypeLibrary store;
    store.setRootPath(library->path());
    QCOMPARE(questionsAbout(path),
             QStringList({QStringLiteral("isMultiRcvCabinetFile"), QStringLiteral("readCabinetInfo"),
                          QStringLiteral("queryCabinetResolution"), QStringLiteral("queryCabinetBlock")}));
    store.updateLibrary();
    QCOMPARE(handler->calls().size(), 4);
    removeFromCache(path);
    store.updateLibrary();
    QCOMPARE(handler->calls().size(), 8);
}

void tst_CTypeLibrary::withoutHandlerTypesAreSingleAndAskedAgainLater()
{
    write(QStringLiteral("a.rcvbp"), "a");
    setStoreHandler(nullptr);
    CTypeLibrary store;
    store.setRootPath(library->path());
    QCOMPARE(outline(store.nodes()), QStringList({QStringLiteral("s a")}));
    QCOMPARE(store.nodes().at(0).resolution, QSize(-1, -1));
    QVERIFY(store.nodes().at(0).md5 == digestOf("a"));

    handler->isMulti = [](const QString&) { return true; };
    setStoreHandler(handler);
    store.updateLibrary();
    QCOMPARE(outline(store.nodes()), QStringList({QStringLiteral("m a")}));
    QCOMPARE(store.nodes().at(0).resolution, QSize(128, 64));
}

SETTINGAREA_TEST_MAIN(tst_CTypeLibrary, QCoreApplication)
#include "tst_CTypeLibrary.moc"
