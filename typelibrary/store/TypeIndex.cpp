#include "typelibrary/store/TypeIndex.h"

#include "typelibrary/store/Md5.h"

#include <QHash>

namespace {

std::uint32_t hashOf(const SMD5& md5)
{
    return static_cast<std::uint32_t>(Md5Hash()(md5));
}

std::uint32_t hashOf(const QString& name)
{
    return qHash(name);
}

} // namespace

void TypeIndex::Table::reset(std::size_t count)
{
    std::size_t size = 1;
    while (size < 2 * count)
        size *= 2;
    m_slots.assign(count > 0 ? size : 0, {});
}

// The slot of the key, or the free one in which it belongs. There is one.
template<typename IsKey>
std::size_t TypeIndex::Table::slotOf(std::uint32_t hash, IsKey isKey) const
{
    const std::size_t mask = m_slots.size() - 1;
    std::size_t slot = hash & mask;
    while (m_slots[slot].next != 0 && !(m_slots[slot].hash == hash && isKey(m_slots[slot].next - 1)))
        slot = (slot + 1) & mask;
    return slot;
}

template<typename IsKey>
std::int64_t TypeIndex::Table::find(std::uint32_t hash, IsKey isKey) const
{
    return m_slots.empty() ? -1 : std::int64_t{m_slots[slotOf(hash, isKey)].next} - 1;
}

template<typename IsKey>
void TypeIndex::Table::add(std::uint32_t hash, std::uint32_t position, IsKey isKey)
{
    Slot& slot = m_slots[slotOf(hash, isKey)];
    if (slot.next == 0)
        slot = {hash, position + 1};
}

void TypeIndex::build(const std::vector<STreeNode>& tree)
{
    clear();
    collect(tree);
    m_byDigest.reset(m_nodes.size());
    m_byName.reset(m_nodes.size());
    for (std::uint32_t i = 0; i < m_nodes.size(); ++i) {
        const STreeNode& node = *m_nodes[i];
        m_byDigest.add(hashOf(node.md5), i, [&](std::uint32_t other) { return m_nodes[other]->md5 == node.md5; });
        m_byName.add(hashOf(node.name), i, [&](std::uint32_t other) { return m_nodes[other]->name == node.name; });
    }
}

void TypeIndex::clear()
{
    m_nodes.clear();
    m_byDigest.reset(0);
    m_byName.reset(0);
}

QString TypeIndex::firstWithDigest(const SMD5& md5) const
{
    const auto found = m_byDigest.find(hashOf(md5), [&](std::uint32_t i) { return m_nodes[i]->md5 == md5; });
    return found < 0 ? QString() : m_nodes[static_cast<std::size_t>(found)]->path;
}

QString TypeIndex::firstWithName(const QString& name) const
{
    const auto found = m_byName.find(hashOf(name), [&](std::uint32_t i) { return m_nodes[i]->name == name; });
    return found < 0 ? QString() : m_nodes[static_cast<std::size_t>(found)]->path;
}

void TypeIndex::collect(const std::vector<STreeNode>& nodes)
{
    for (const STreeNode& node : nodes) {
        if (node.nodeType == STreeNode::Group)
            collect(node.children);
        else
            m_nodes.push_back(&node);
    }
}
