#pragma once

#include "plugin/interface/SSettings.h"

#include <QString>

#include <cstdint>
#include <vector>

// Answers the two duplicate searches from look-up tables, with the result of a depth-first walk of the tree: the path
// of the first node in tree order. Groups are never found, only what is in them.
// Points into the tree it was built from: build it anew after every change of the tree and clear it before.
class TypeIndex
{
public:
    using STreeNode = SSettings::TypeLibrary::STreeNode;

    void build(const std::vector<STreeNode>& tree);
    void clear();

    // Path of the first node with the digest, the empty digest included; empty if there is none.
    QString firstWithDigest(const SMD5& md5) const;

    // Path of the first node whose name is exactly `name`; empty if there is none.
    QString firstWithName(const QString& name) const;

private:
    // Positions in the list of nodes by the hash of a key, the first of those with the same key. One block of memory,
    // half of it used at most: with an allocation for each node a rescan of many types would wait for memory.
    class Table
    {
    public:
        void reset(std::size_t count);

        // The position of the key with this hash; `isKey` tells whether a position has it. -1 when it is not there.
        template<typename IsKey>
        std::int64_t find(std::uint32_t hash, IsKey isKey) const;

        // Adds a position, unless one with the same key is there.
        template<typename IsKey>
        void add(std::uint32_t hash, std::uint32_t position, IsKey isKey);

    private:
        struct Slot
        {
            std::uint32_t hash = 0;
            std::uint32_t next = 0; // position + 1, 0: free
        };

        template<typename IsKey>
        std::size_t slotOf(std::uint32_t hash, IsKey isKey) const;

        std::vector<Slot> m_slots; // none, or a power of two
    };

    void collect(const std::vector<STreeNode>& nodes);

    std::vector<const STreeNode*> m_nodes; // without groups, in tree order
    Table m_byDigest;
    Table m_byName;
};
