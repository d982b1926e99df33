#include "typelibrary/store/LibraryScan.h"

#include "typelibrary/store/ScanThread.h"
#include "typelibrary/store/TypeFileAttributes.h"
#include "typelibrary/store/TypeFolders.h"

#include <QDir>

#include <algorithm>
#include <atomic>
#include <exception>
#include <system_error>
#include <thread>

namespace {

using STreeNode = SSettings::TypeLibrary::STreeNode;

// Nodes of type files, to be filled when the tree has its final shape. Their addresses are stable from then on.
using TypeNodes = std::vector<STreeNode*>;

QFileInfoList entriesOf(const QString& folder)
{
    return QDir(folder).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name | QDir::DirsLast);
}

bool isWorthExpander(const QFileInfo& entry)
{
    return !entry.isSymLink() && (entry.isDir() || hasTypeSuffix(entry));
}

// Fills the node of one directory entry and, for a folder, of all below it; true if it is a type file or leads to one.
// `ancestors` are the canonical paths of the folders that the entry lies in.
bool fillNode(const QFileInfo& entry, STreeNode& node, QStringList& ancestors)
{
    ScanThread::checkpoint();
    node.path = entry.filePath();
    node.name = entry.completeBaseName();
    if (!entry.isDir()) {
        if (!hasTypeSuffix(entry))
            return false;
        // Named like a type, but what a link to a pipe or device stands for is not asked about.
        if (entry.isFile())
            node.nodeType = STreeNode::SingleRcv; // until the host has been asked
        return true;
    }

    node.nodeType = STreeNode::Group;
    // Only a link can lead back to an ancestor; resolving every folder would cost a system call per path element.
    const QString canonical =
        entry.isSymLink() ? entry.canonicalFilePath() : ancestors.last() + QLatin1Char('/') + entry.fileName();
    if (ancestors.contains(canonical))
        return false;

    ancestors.append(canonical);
    bool leadsToType = false;
    const FolderStamp stamp = folderStamp(node.path);
    const QFileInfoList children = entriesOf(node.path);
    if (std::any_of(children.cbegin(), children.cend(), isWorthExpander))
        rememberTypesIn(node.path, stamp);
    node.children.reserve(static_cast<std::size_t>(children.size()));
    for (const QFileInfo& child : children)
        leadsToType |= fillNode(child, node.children.emplace_back(), ancestors);
    ancestors.removeLast();
    return leadsToType;
}

void collectTypes(std::vector<STreeNode>& nodes, TypeNodes& types)
{
    for (STreeNode& node : nodes) {
        if (node.nodeType == STreeNode::Group)
            collectTypes(node.children, types);
        else if (node.nodeType == STreeNode::SingleRcv)
            types.push_back(&node);
    }
}

constexpr auto hostsShare = static_cast<std::uint8_t>(TypeFileInfo::All & ~TypeFileInfo::Digest);

void fillHostsShare(STreeNode& node, const TypeFileInfo& info)
{
    node.nodeType = info.nodeType;
    node.resolution = info.resolution;
    node.cabinetList = info.cabinetList;
    node.cabinetFlag = info.cabinetFlag;
    node.cabinetBlock = info.cabinetBlock;
}

void fill(STreeNode& node, const TypeFileInfo& info)
{
    fillHostsShare(node, info);
    node.md5 = info.md5;
}

// Fills the node when everything about its file is known already; false if not.
bool fillFromCache(STreeNode& node)
{
    const TypeFileInfo info = TypeFileInfoCache::instance().findAndShare(node.path);
    if (!info.knows(TypeFileInfo::All))
        return false;
    fill(node, info);
    return true;
}

// Computes digests on several threads. Which thread hashes which file is decided file by file.
class DigestWork
{
public:
    explicit DigestWork(const TypeNodes& types)
        : m_types(types)
    {
    }

    void start(unsigned helpers)
    {
        try {
            for (unsigned i = 0; i < helpers; ++i)
                m_helpers.emplace_back([this] { run(); });
        } catch (const std::system_error&) {
            // No more threads to be had: those that run, and the caller, do the work.
        }
    }

    // The position of a type whose digest the caller is to compute; behind the last when there is none left.
    std::size_t take() { return m_next++; }

    // Waits for the helpers.
    void finish()
    {
        for (std::thread& helper : m_helpers)
            helper.join();
        m_helpers.clear();
        if (m_failed)
            throw std::bad_alloc();
    }

    ~DigestWork()
    {
        m_next = m_types.size();
        for (std::thread& helper : m_helpers)
            helper.join();
    }

    Q_DISABLE_COPY(DigestWork)

private:
    void run() noexcept
    {
        try {
            const ScanThread scanning;
            for (std::size_t i = take(); i < m_types.size(); i = take()) {
                ScanThread::checkpoint();
                m_types[i]->md5 = typeFileInfo(m_types[i]->path, TypeFileInfo::Digest).md5;
            }
        } catch (...) {
            m_failed = true;
        }
    }

    const TypeNodes& m_types;
    std::atomic<std::size_t> m_next{0};
    std::atomic<bool> m_failed{false}; // memory ran out on a helper
    std::vector<std::thread> m_helpers;
};

} // namespace

std::vector<STreeNode> scanLibrary(const QString& folder, unsigned threads)
{
    std::vector<STreeNode> nodes;
    if (folder.isEmpty())
        return nodes;

    const ScanThread scanning;
    QStringList ancestors{QFileInfo(folder).canonicalFilePath()};
    const QFileInfoList entries = entriesOf(folder);
    for (const QFileInfo& entry : entries) {
        STreeNode node;
        if (fillNode(entry, node, ancestors))
            nodes.push_back(std::move(node));
    }

    TypeNodes types;
    collectTypes(nodes, types);
    types.erase(std::remove_if(types.begin(), types.end(), [](STreeNode* node) { return fillFromCache(*node); }),
                types.end());
    if (types.empty())
        return nodes;

    if (threads == 0)
        threads = std::max(1U, std::thread::hardware_concurrency());
    DigestWork digests(types);
    digests.start(std::min(threads - 1, static_cast<unsigned>(types.size() - 1)));
    // The host is asked about all of them here. Meanwhile the helpers write digests into their nodes, and nothing else.
    for (std::size_t asked = 0; asked < types.size(); ++asked) {
        const std::size_t own = digests.take();
        for (; asked < std::min(own, types.size()); ++asked) {
            ScanThread::checkpoint();
            fillHostsShare(*types[asked], typeFileInfo(types[asked]->path, hostsShare));
        }
        ScanThread::checkpoint();
        if (own < types.size())
            fill(*types[own], typeFileInfo(types[own]->path, TypeFileInfo::All));
    }
    digests.finish();
    return nodes;
}
