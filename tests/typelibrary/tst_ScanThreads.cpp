#include "tests/support/StoreFixture.h"
#include "typelibrary/store/CTypeLibrary.h"
#include "typelibrary/store/TypeFileAttributes.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>

#include <algorithm>
#include <atomic>
#include <future>
#include <thread>

namespace {

int threadCount()
{
    return QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size();
}

} // namespace

// What happens around a scan that is under way.
class tst_ScanThreads : public StoreFixture
{
    Q_OBJECT

private Q_SLOTS:
    void startUpdateScansOnAnotherThread();
    void searchWaitsForTheScan();
    void laterScanWins();
    void requestsThatWaitShareOneScan();
    void hostMayCallBackFromAQuery();
    void destructionDoesNotWaitForAScan();
    void digestsAreComputedWhileTheHostIsAsked();
    void folderVanishesDuringTheScan();
};

void tst_ScanThreads::startUpdateScansOnAnotherThread()
{
    CTypeLibrary store;
    store.setRootPath(library->path());
    write(QStringLiteral("a.rcvp"), "a");
    store.startUpdate();
    QTRY_COMPARE(store.nodes().size(), std::size_t(1));
    QCOMPARE(handler->queryThreads().size(), 1);
    QVERIFY(!handler->queryThreads().contains(QThread::currentThread()));
}

void tst_ScanThreads::searchWaitsForTheScan()
{
    const QString path = write(QStringLiteral("a.rcvp"), "a");
    std::promise<void> asked;
    std::promise<void> answer;
    handler->isMulti = [&](const QString&) {
        asked.set_value();
        answer.get_future().wait();
        return false;
    };
    CTypeLibrary store;
    std::thread scan([&] { store.setRootPath(library->path()); });
    asked.get_future().wait();
    auto search = std::async(std::launch::async, [&] { return store.searchSameName(QStringLiteral("a")); });
    QCOMPARE(search.wait_for(std::chrono::milliseconds(20)), std::future_status::timeout);
    answer.set_value();
    QCOMPARE(search.get(), path);
    scan.join();
}

void tst_ScanThreads::laterScanWins()
{
    write(QStringLiteral("a.rcvp"), "a");
    std::promise<void> asked;
    std::promise<void> answer;
    handler->isMulti = [&](const QString& path) {
        if (path.endsWith(QLatin1String("a.rcvp"))) {
            asked.set_value();
            answer.get_future().wait();
        }
        return false;
    };
    CTypeLibrary store;
    std::thread first([&] { store.setRootPath(library->path()); });
    asked.get_future().wait();
    write(QStringLiteral("b.rcvp"), "b");
    std::thread second([&] { store.updateLibrary(); });
    answer.set_value();
    first.join();
    second.join();
    QCOMPARE(outline(store.nodes()), QStringList({QStringLiteral("s a"), QStringLiteral("s b")}));
}

void tst_ScanThreads::requestsThatWaitShareOneScan()
{
    const QString path = write(QStringLiteral("a.rcvp"), "a");
    CTypeLibrary store;
    store.setRootPath(library->path());
    std::promise<void> asked;
    std::promise<void> answer;
    std::atomic_int scans{0};
    handler->isMulti = [&](const QString& file) {
        removeFromCache(file); // each scan asks anew
        if (file == path && ++scans == 1) {
            asked.set_value();
            answer.get_future().wait();
        }
        return false;
    };
    removeFromCache(path);
    const int threads = threadCount();
    store.startUpdate();
    asked.get_future().wait();

    write(QStringLiteral("b.rcvp"), "b");
    for (int i = 0; i < 5; ++i)
        store.startUpdate();
    QCOMPARE(threadCount(), threads + 2);
    answer.set_value();
    QTRY_COMPARE(threadCount(), threads);
    QCOMPARE(scans, 2);
    QCOMPARE(outline(store.nodes()), QStringList({QStringLiteral("s a"), QStringLiteral("s b")}));

    store.updateLibrary(); // nothing waits: a scan of its own
    QCOMPARE(scans, 3);
}

void tst_ScanThreads::hostMayCallBackFromAQuery()
{
    write(QStringLiteral("a.rcvp"), "a");
    CTypeLibrary store;
    store.setRootPath(library->path());
    write(QStringLiteral("b.rcvp"), "b");
    bool wasEmpty = false;
    QString found = QStringLiteral("not asked");
    handler->isMulti = [&](const QString&) {
        wasEmpty = store.nodes().empty();
        found = store.searchSameName(QStringLiteral("a"));
        store.updateLibrary();
        return false;
    };
    store.updateLibrary();
    QVERIFY(wasEmpty);
    QCOMPARE(found, QString());
    QCOMPARE(store.nodes().size(), std::size_t(2));
}

void tst_ScanThreads::destructionDoesNotWaitForAScan()
{
    // Owned by the handler, and so by the scan: it goes on when this function has ended.
    const auto asked = std::make_shared<std::promise<void>>();
    const auto answer = std::make_shared<std::promise<void>>();
    const auto ended = std::make_shared<std::promise<void>>();
    handler->isMulti = [=](const QString&) {
        asked->set_value();
        answer->get_future().wait();
        return false;
    };
    handler->resolution = [=](const QString&) {
        ended->set_value();
        return QSize();
    };
    auto store = std::make_unique<CTypeLibrary>();
    store->setRootPath(library->path());
    write(QStringLiteral("a.rcvp"), "a");
    store->startUpdate();
    asked->get_future().wait();
    store.reset();
    answer->set_value();
    QCOMPARE(ended->get_future().wait_for(std::chrono::seconds(30)), std::future_status::ready);
}

void tst_ScanThreads::digestsAreComputedWhileTheHostIsAsked()
{
    if (std::thread::hardware_concurrency() < 2)
        QSKIP("One core only: the scanning thread hashes alone");
    const QStringList paths = {write(QStringLiteral("a.rcvp"), "a"), write(QStringLiteral("b.rcvp"), "b"),
                               write(QStringLiteral("c.rcvp"), "c")};
    // The first query does not return before all digests but one are there, which the helper threads must have
    // computed: the scanning thread takes at most one itself, and cannot get to it before the query returns.
    bool hashed = false;
    handler->isMulti = [&](const QString& /*asked*/) {
        const auto isHashed = [](const QString& path) {
            return TypeFileInfoCache::instance().find(path).knows(TypeFileInfo::Digest);
        };
        QElapsedTimer timer;
        timer.start();
        while (!hashed && timer.elapsed() < 10'000) {
            hashed = std::count_if(paths.cbegin(), paths.cend(), isHashed) >= paths.size() - 1;
            std::this_thread::yield();
        }
        return false;
    };
    CTypeLibrary store;
    store.setRootPath(library->path());
    QVERIFY(hashed);
    QCOMPARE(handler->queryThreads(), QSet<QThread*>({QThread::currentThread()}));
}

void tst_ScanThreads::folderVanishesDuringTheScan()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    write(QStringLiteral("G/b.rcvp"), "b");
    handler->isMulti = [&](const QString&) {
        QDir(pathOf(QStringLiteral("G"))).removeRecursively();
        return true;
    };
    CTypeLibrary store;
    store.setRootPath(library->path());
    QCOMPARE(outline(store.nodes()),
             QStringList({QStringLiteral("g G"), QStringLiteral(" m a"), QStringLiteral(" m b")}));
    store.updateLibrary();
    QVERIFY(store.nodes().empty());

    // What the host said of files that vanished meanwhile is not held against new ones of the same name.
    handler->isMulti = [](const QString&) { return false; };
    write(QStringLiteral("G/a.rcvp"), "new");
    store.updateLibrary();
    QCOMPARE(outline(store.nodes()), QStringList({QStringLiteral("g G"), QStringLiteral(" s a")}));
}

SETTINGAREA_TEST_MAIN(tst_ScanThreads, QCoreApplication)
#include "tst_ScanThreads.moc"
