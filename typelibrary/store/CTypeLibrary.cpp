#include "typelibrary/store/CTypeLibrary.h"

#include "typelibrary/store/LibraryScan.h"
#include "typelibrary/store/ScanThread.h"
#include "typelibrary/store/TypeFileAttributes.h"
#include "typelibrary/store/TypeIndex.h"

#include <QDir>

#include <atomic>
#include <cstdint>
#include <mutex>
#include <shared_mutex>
#include <system_error>
#include <thread>

struct CTypeLibrary::State
{
    // Guards the members below. Not QReadWriteLock: threads that wait for one use a pool that Qt destroys at exit.
    std::shared_mutex lock;
    std::vector<STreeNode> nodes;
    QString folder;
    TypeIndex index;           // of `nodes`
    std::uint64_t scanned = 0; // the last request that was made before the latest complete scan began

    std::atomic<std::uint64_t> requests{0};  // scans that were asked for so far
    std::atomic_bool updateIsWaiting{false}; // a detached thread has yet to begin its scan

    // The state that the current thread is scanning for: its lock is held by this very thread.
    static thread_local const State* scannedHere;

    // Scans the folder, after having replaced it if `newFolder` is given. Requests that wait share one scan.
    void scan(const QString* newFolder = nullptr)
    {
        if (scannedHere == this)
            return; // asked for by a host query of the scan that is under way
        ++requests;
        scanOnce(newFolder);
    }

    // Scans on a detached thread, unless one that has not begun yet will do.
    static void startScan(const std::shared_ptr<State>& state)
    {
        ++state->requests;
        if (state->updateIsWaiting.exchange(true))
            return;
        const auto update = [state] {
            try {
                state->scanOnce();
            } catch (...) {
                // No memory, or a host query threw. The tree is empty; the next scan may do better.
            }
        };
        try {
            std::thread(update).detach();
        } catch (const std::system_error&) {
            update(); // no more threads to be had: a frozen moment is better than a tree that is out of date
        }
    }

    // Runs `read` under the read lock, which the scanning thread has no need of.
    template<typename Function>
    auto read(Function function)
    {
        if (scannedHere == this)
            return function();
        if (ScanThread::processEnds()) {
            // A scan that stands still may hold the lock for ever.
            const std::shared_lock<std::shared_mutex> locker(lock, std::try_to_lock);
            return locker ? function() : decltype(function())();
        }
        const std::shared_lock<std::shared_mutex> locker(lock);
        return function();
    }

private:
    // Scans the folder, unless a scan that began after the last request has done so.
    void scanOnce(const QString* newFolder = nullptr)
    {
        if (ScanThread::processEnds())
            return;
        const std::unique_lock<std::shared_mutex> locker(lock);
        updateIsWaiting = false; // before `requests` is read: later ones get a thread of their own
        const std::uint64_t request = requests;
        if (!newFolder && scanned == request)
            return;
        const ScanMark mark(this);
        index.clear();
        nodes.clear();
        if (newFolder)
            folder = *newFolder;
        nodes = scanLibrary(folder);
        index.build(nodes);
        scanned = request;
    }

    struct ScanMark
    {
        explicit ScanMark(const State* state)
            : outer(scannedHere)
        {
            scannedHere = state;
        }
        ~ScanMark() { scannedHere = outer; }
        Q_DISABLE_COPY(ScanMark)

        const State* const outer;
    };
};

thread_local const CTypeLibrary::State* CTypeLibrary::State::scannedHere = nullptr;

CTypeLibrary::CTypeLibrary()
    : m_pState(std::make_shared<State>())
{
    ScanThread::prepare();
}

CTypeLibrary::~CTypeLibrary() = default;

void CTypeLibrary::setRootPath(const QString& folder)
{
    QString clean;
    if (!folder.isEmpty()) {
        const ScanThread scanning; // Qt's file classes, and not yet the wait for another scan
        // The model shows clean absolute paths: the same path must give the same text everywhere.
        clean = QDir::cleanPath(QDir(folder).absolutePath());
    }
    m_pState->scan(&clean);
}

void CTypeLibrary::updateLibrary()
{
    m_pState->scan();
}

void CTypeLibrary::startUpdate()
{
    State::startScan(m_pState);
}

QString CTypeLibrary::rootPath() const
{
    return m_pState->read([this] { return m_pState->folder; });
}

std::vector<CTypeLibrary::STreeNode> CTypeLibrary::nodes() const
{
    return m_pState->read([this] { return m_pState->nodes; });
}

QString CTypeLibrary::searchSameType(const SMD5& md5) const
{
    return m_pState->read([&] { return m_pState->index.firstWithDigest(md5); });
}

QString CTypeLibrary::searchSameTypeOfFile(const QString& file) const
{
    const SMD5 md5 = md5OfFile(file);
    return isEmpty(md5) ? QString() : searchSameType(md5);
}

QString CTypeLibrary::searchSameName(const QString& fileOrName) const
{
    const QString name = QFileInfo(fileOrName).completeBaseName();
    return m_pState->read([&] { return m_pState->index.firstWithName(name); });
}
