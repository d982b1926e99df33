#include "host/CLibraryLoader.h"

#include "host/Logging.h"
#include "plugin/interface/ISettingInterface.h"

#include <mutex>
#include <system_error>
#include <thread>

namespace {

using STreeNode = SSettings::TypeLibrary::STreeNode;

int typesIn(const std::vector<STreeNode>& nodes)
{
    int types = 0;
    for (const STreeNode& node : nodes) {
        const bool isType = node.nodeType == STreeNode::SingleRcv || node.nodeType == STreeNode::MultiRcv;
        types += isType ? 1 : typesIn(node.children);
    }
    return types;
}

} // namespace

// How a worker reaches the loader, which may be gone by then.
struct CLibraryLoader::Link
{
    std::mutex mutex; // guards `loader`
    CLibraryLoader* loader = nullptr;
};

CLibraryLoader::CLibraryLoader(ISettingInterface* area, QObject* parent)
    : QObject(parent),
      m_pArea(area),
      m_pLink(std::make_shared<Link>())
{
    m_pLink->loader = this;
    connect(this, &CLibraryLoader::notifyLoadDone, this, &CLibraryLoader::finishLoad, Qt::QueuedConnection);
    connect(this, &CLibraryLoader::notifyCountDone, this, &CLibraryLoader::finishCount, Qt::QueuedConnection);
}

CLibraryLoader::~CLibraryLoader()
{
    const std::lock_guard<std::mutex> lock(m_pLink->mutex);
    m_pLink->loader = nullptr;
}

// Runs `work` on a detached thread, and then emits `done` with its result. False when the system has no thread to give.
template<typename Work, typename Signal>
bool CLibraryLoader::run(Work work, Signal done, QString& error)
try {
    std::thread([link = m_pLink, work, done] {
        const auto result = work();
        const std::lock_guard<std::mutex> lock(link->mutex);
        if (link->loader)
            Q_EMIT(link->loader->*done)(result, {});
    }).detach();
    return true;
} catch (const std::system_error& failure) {
    error = QString::fromLocal8Bit(failure.what());
    return false;
}

void CLibraryLoader::load(const QString& folder)
{
    m_next = folder;
    m_bHasNext = true;
    if (!m_bLoading)
        start();
}

void CLibraryLoader::start()
{
    m_folder = m_next;
    m_bHasNext = false;
    m_bLoading = true;
    qCInfo(logLibrary, "loading %ls", qUtf16Printable(m_folder));
    Q_EMIT notifyLoading(m_folder);
    QString error;
    if (run([area = m_pArea, folder = m_folder] { return area->setTypeLibraryPath(folder); },
            &CLibraryLoader::notifyLoadDone, error))
        return;
    Q_EMIT notifyFailed(m_folder, error);
    Q_EMIT notifyLoadDone(false, {}); // queued, as from the worker
}

void CLibraryLoader::finishLoad(bool shown)
{
    m_bLoading = false;
    qCInfo(logLibrary, "%s %ls", shown ? "loaded" : "could not show", qUtf16Printable(m_folder));
    Q_EMIT notifyLoaded(m_folder, shown);
    if (m_bHasNext)
        start();
    else
        count();
}

void CLibraryLoader::count()
{
    if (m_bLoading)
        return;
    QString error;
    if (run([area = m_pArea] { return typesIn(area->getTypeLibrary()); }, &CLibraryLoader::notifyCountDone, error))
        ++m_nCounting; // its end is queued
    else
        qCWarning(logLibrary, "not counted: %ls", qUtf16Printable(error));
}

void CLibraryLoader::finishCount(int types)
{
    --m_nCounting;
    Q_EMIT notifyCounted(types);
}
