#include "host/CLibraryLoader.h"

#include "host/Logging.h"
#include "plugin/interface/ISettingInterface.h"

#include <mutex>
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
    CLibraryLoader* loader;
};

CLibraryLoader::CLibraryLoader(ISettingInterface* area, QObject* parent)
    : QObject(parent),
      m_pArea(area),
      m_pLink(std::make_shared<Link>())
{
    m_pLink->loader = this;
}

CLibraryLoader::~CLibraryLoader()
{
    const std::lock_guard<std::mutex> lock(m_pLink->mutex);
    m_pLink->loader = nullptr;
}

// Runs `work` on a detached thread and then `done` with its result on the GUI thread.
template<typename Work, typename Done>
void CLibraryLoader::run(Work work, Done done)
{
    std::thread([link = m_pLink, work, done] {
        const auto result = work();
        const std::lock_guard<std::mutex> lock(link->mutex);
        if (link->loader)
            QMetaObject::invokeMethod(
                link->loader, [done, result] { done(result); }, Qt::QueuedConnection);
    }).detach();
}

void CLibraryLoader::load(const QString& folder)
{
    m_next = folder;
    m_bHasNext = true;
    if (!m_bLoading)
        start(folder);
}

void CLibraryLoader::start(const QString& folder)
{
    m_bHasNext = false;
    m_bLoading = true;
    qCInfo(logLibrary, "loading %ls", qUtf16Printable(folder));
    Q_EMIT notifyLoading(folder);
    run([area = m_pArea, folder] { return area->setTypeLibraryPath(folder); },
        [this, folder](bool shown) {
            m_bLoading = false;
            qCInfo(logLibrary, "%s %ls", shown ? "loaded" : "could not show", qUtf16Printable(folder));
            Q_EMIT notifyLoaded(folder, shown);
            if (m_bHasNext)
                start(m_next);
            else
                count();
        });
}

void CLibraryLoader::count()
{
    if (m_bLoading)
        return;
    ++m_nCounting;
    run([area = m_pArea] { return typesIn(area->getTypeLibrary()); },
        [this](int types) {
            --m_nCounting;
            Q_EMIT notifyCounted(types);
        });
}
