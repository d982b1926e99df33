#include "typelibrary/store/TypeIndex.h"

namespace {

std::size_t countOf(const std::vector<SSettings::TypeLibrary::STreeNode>& nodes)
{
    std::size_t count = nodes.size();
    for (const auto& node : nodes)
        count += countOf(node.children);
    return count;
}

} // namespace

void TypeIndex::build(const std::vector<STreeNode>& tree)
{
    clear();
    const std::size_t count = countOf(tree);
    m_byDigest.reserve(count);
    m_byName.reserve(static_cast<int>(count));
    add(tree);
}

void TypeIndex::clear()
{
    m_byDigest.clear();
    m_byName.clear();
}

QString TypeIndex::firstWithDigest(const SMD5& md5) const
{
    const auto found = m_byDigest.find(md5);
    return found == m_byDigest.end() ? QString() : found->second;
}

QString TypeIndex::firstWithName(const QString& name) const
{
    return m_byName.value(name);
}

void TypeIndex::add(const std::vector<STreeNode>& nodes)
{
    for (const STreeNode& node : nodes) {
        if (node.nodeType == STreeNode::Group) {
            add(node.children);
            continue;
        }
        m_byDigest.try_emplace(node.md5, node.path);
        QString& first = m_byName[node.name];
        if (first.isNull())
            first = node.path;
    }
}
