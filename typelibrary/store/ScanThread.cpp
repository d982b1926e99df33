#include "typelibrary/store/ScanThread.h"

#include <QTextCodec>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <mutex>
#include <thread>

namespace {

// The longest that the end of the process is held up by scans that do not reach a checkpoint.
constexpr std::chrono::milliseconds patience(200);

struct Process
{
    std::mutex mutex; // guards the members below
    std::condition_variable stoodStill;
    int scanning = 0; // threads between two checkpoints
    std::thread::id endingThread;

    std::atomic_bool ending{false};
};

// Never destroyed: threads stand still in it when everything else is gone.
Process& process()
{
    static auto* const instance = new Process;
    return *instance;
}

thread_local int nesting = 0;

void standStill(std::unique_lock<std::mutex>& lock)
{
    process().stoodStill.notify_all();
    std::condition_variable never;
    never.wait(lock, [] { return false; });
}

void endScans()
{
    Process& p = process();
    std::unique_lock<std::mutex> lock(p.mutex);
    p.ending = true;
    p.endingThread = std::this_thread::get_id();
    const int ownScan = nesting > 0 ? 1 : 0;
    p.stoodStill.wait_for(lock, patience, [&] { return p.scanning == ownScan; });
}

} // namespace

void ScanThread::prepare()
{
    // After the codec has been made: what is registered last runs first when the process ends.
    static const bool registered = [] {
        QTextCodec::codecForLocale();
        return std::atexit(endScans) == 0;
    }();
    Q_UNUSED(registered)
}

ScanThread::ScanThread()
{
    if (nesting++ > 0)
        return;
    std::unique_lock<std::mutex> lock(process().mutex);
    if (process().ending && process().endingThread != std::this_thread::get_id())
        standStill(lock);
    ++process().scanning;
}

ScanThread::~ScanThread()
{
    if (--nesting > 0)
        return;
    const std::lock_guard<std::mutex> lock(process().mutex);
    --process().scanning;
    process().stoodStill.notify_all();
}

void ScanThread::checkpoint()
{
    if (!processEnds())
        return;
    Process& p = process();
    std::unique_lock<std::mutex> lock(p.mutex);
    if (p.endingThread == std::this_thread::get_id())
        return;
    --p.scanning;
    standStill(lock);
}

bool ScanThread::processEnds()
{
    return process().ending.load(std::memory_order_relaxed);
}
