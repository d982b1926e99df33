#pragma once

#include "plugin/interface/SSettings.h"

#include <QString>

#include <vector>

class QWidget;

// Whether everything that the settings area knows of the library is what lies on the disk: names, kinds, digests and
// cabinets of the tree that the host gets, and the rows of the tree that the user sees. [GUI thread]
class LibraryInvariant
{
public:
    using Nodes = std::vector<SSettings::TypeLibrary::STreeNode>;

    // The first difference between the nodes and the folder, in words; empty when there is none.
    static QString differenceOfNodes(const Nodes& nodes, const QString& folder);

    // The same for the rows that the tree on the Type library tab shows.
    static QString differenceOfRows(const QWidget& area, const QString& folder);

    // Whether the tree is in sight and has not caught up with the disk yet, as far as names go.
    static bool isTreeBehind(const QWidget& area, const QString& folder);
};
