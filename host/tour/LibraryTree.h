#pragma once

#include <QString>

class QModelIndex;
class QTreeView;
class TourStage;

// The type library's tree, as a user works with it on the tour. [GUI thread]
namespace LibraryTree {

// The tree in the settings area. Never null.
QTreeView* of(const TourStage& stage);

// Shows the tab with the tree and opens all groups. False, with the reason at the stage, when they do not come.
bool expandAll(TourStage& stage);

// Selects an entry, by its path in the library, in a tree that is expanded; an empty path selects nothing. False, with
// the reason at the stage, when the entry does not come.
bool select(TourStage& stage, const QString& entry);

// Waits until the tree no longer has the entry.
bool waitUntilGone(TourStage& stage, const QString& entry);

} // namespace LibraryTree
