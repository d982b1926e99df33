#pragma once

#include "plugin/interface/SSettings.h"

#include <QString>

#include <vector>

// Reads the library folder into a tree of nodes. Files come before folders and each in name order. On the top level
// stand only type files and groups that lead to one; inside a group stands every entry. A folder that is its own
// ancestor, by way of a link, has no children. An empty folder name, or a folder that cannot be read, gives no nodes.
// Digests that are not known yet are computed on all cores, at most `threads` of them (0: as many as there are); the
// host is asked on the calling thread only. Returns when all of it is done. [any thread]
std::vector<SSettings::TypeLibrary::STreeNode> scanLibrary(const QString& folder, unsigned threads = 0);
