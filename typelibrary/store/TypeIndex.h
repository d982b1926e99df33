#pragma once

#include "typelibrary/store/Md5.h"

#include "plugin/interface/SSettings.h"

#include <QHash>
#include <QString>

#include <unordered_map>
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
    void add(const std::vector<STreeNode>& nodes);

    // Paths rather than nodes: a search that finds the path here touches less memory.
    std::unordered_map<SMD5, QString, Md5Hash> m_byDigest;
    QHash<QString, QString> m_byName;
};
