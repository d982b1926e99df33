#include "host/CLibraryLoader.h"
#include "tests/host/FakeArea.h"
#include "tests/host/NoThreads.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QSignalSpy>

class tst_CLibraryLoader : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void theCallIsMadeOnAWorker();
    void theTypesAreCounted();
    void theLastFolderThatWaitsIsLoadedNext();
    void countingWaitsForNoLoad();
    void aLoaderMayBeDestroyedWhileItLoads();
    void aSystemWithoutThreadsIsReported();
};

void tst_CLibraryLoader::theCallIsMadeOnAWorker()
{
    FakeArea area;
    CLibraryLoader loader(&area);
    QSignalSpy loading(&loader, &CLibraryLoader::notifyLoading);
    QSignalSpy loaded(&loader, &CLibraryLoader::notifyLoaded);
    area.holdScans();
    loader.load(QStringLiteral("/types"));
    QCOMPARE(loading.takeFirst(), QVariantList{QStringLiteral("/types")});
    QVERIFY(loader.isLoading());
    QVERIFY(loader.isBusy());
    QTRY_COMPARE(area.calls(), QStringList{QStringLiteral("setTypeLibraryPath(/types)")});
    QVERIFY(area.scanThread != QThread::currentThread());
    QCOMPARE(loaded.size(), 0);

    area.letScan();
    QTRY_COMPARE(loaded.size(), 1);
    QCOMPARE(loaded.takeFirst(), (QVariantList{QStringLiteral("/types"), true}));
    QVERIFY(!loader.isLoading());
    QTRY_VERIFY(!loader.isBusy()); // it still counts
}

void tst_CLibraryLoader::theTypesAreCounted()
{
    using STreeNode = SSettings::TypeLibrary::STreeNode;
    const auto node = [](STreeNode::NodeType type, std::vector<STreeNode> children = {}) {
        STreeNode made;
        made.nodeType = type;
        made.children = std::move(children);
        return made;
    };
    FakeArea area;
    area.library = {
        node(STreeNode::SingleRcv),
        node(STreeNode::Group, {node(STreeNode::MultiRcv), node(STreeNode::None), node(STreeNode::Group),
                                node(STreeNode::Group, {node(STreeNode::SingleRcv)})}),
    };
    CLibraryLoader loader(&area);
    QSignalSpy counted(&loader, &CLibraryLoader::notifyCounted);
    loader.load(QStringLiteral("/types"));
    QTRY_COMPARE(counted.size(), 1);
    QCOMPARE(counted.takeFirst(), QVariantList{3});
    area.library.clear();
    loader.count();
    QTRY_COMPARE(counted.size(), 1);
    QCOMPARE(counted.takeFirst(), QVariantList{0});
}

void tst_CLibraryLoader::theLastFolderThatWaitsIsLoadedNext()
{
    FakeArea area;
    CLibraryLoader loader(&area);
    QSignalSpy loaded(&loader, &CLibraryLoader::notifyLoaded);
    area.holdScans();
    for (const char* folder : {"/a", "/b", "/c"})
        loader.load(QLatin1String(folder));
    area.letScan();
    area.letScan();
    QTRY_COMPARE(loaded.size(), 2);
    QCOMPARE(loaded.at(0).at(0), QVariant(QStringLiteral("/a")));
    QCOMPARE(loaded.at(1).at(0), QVariant(QStringLiteral("/c")));
    QTRY_VERIFY(!loader.isBusy());
}

void tst_CLibraryLoader::countingWaitsForNoLoad()
{
    FakeArea area;
    CLibraryLoader loader(&area);
    QSignalSpy counted(&loader, &CLibraryLoader::notifyCounted);
    area.holdScans();
    loader.load(QStringLiteral("/types"));
    loader.count();
    area.letScan();
    QTRY_VERIFY(!loader.isBusy());
    QCOMPARE(counted.size(), 1); // the one after the load
}

void tst_CLibraryLoader::aLoaderMayBeDestroyedWhileItLoads()
{
    FakeArea area;
    auto loader = std::make_unique<CLibraryLoader>(&area);
    area.holdScans();
    loader->load(QStringLiteral("/types"));
    QTRY_COMPARE(area.calls().size(), 1);
    loader.reset();
    area.letScan();
    // The worker still comes to its end, which takes this thread's event loop.
    QTRY_COMPARE(area.calls(), (QStringList{QStringLiteral("setTypeLibraryPath(/types)"), QStringLiteral("shown")}));
}

void tst_CLibraryLoader::aSystemWithoutThreadsIsReported()
{
    FakeArea area;
    CLibraryLoader loader(&area);
    QSignalSpy failed(&loader, &CLibraryLoader::notifyFailed);
    QSignalSpy loaded(&loader, &CLibraryLoader::notifyLoaded);
    {
        const NoThreads none;
        loader.load(QStringLiteral("/types"));
        QCOMPARE(failed.size(), 1);
        QCOMPARE(failed.at(0).at(0), QVariant(QStringLiteral("/types")));
        QCOMPARE(failed.at(0).at(1), QVariant(QStringLiteral("Resource temporarily unavailable")));
        expectWarning(QRegularExpression(QStringLiteral("not counted: Resource temporarily unavailable")));
        QTRY_COMPARE(loaded.size(), 1);
        QCOMPARE(loaded.at(0), (QVariantList{QStringLiteral("/types"), false}));
        QVERIFY(!loader.isBusy());
    }
    QCOMPARE(area.calls(), QStringList());
    loader.load(QStringLiteral("/types"));
    QTRY_COMPARE(loaded.size(), 2);
    QCOMPARE(loaded.at(1), (QVariantList{QStringLiteral("/types"), true}));
    QTRY_VERIFY(!loader.isBusy());
}

SETTINGAREA_TEST_MAIN(tst_CLibraryLoader, QApplication)
#include "tst_CLibraryLoader.moc"
