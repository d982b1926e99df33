#pragma once

#include "plugin/interface/ISettingInterface.h"

class QAbstractItemModel;
class QModelIndex;

// The settings area with a host's handler, as every row needs it: the store asks the handler through the area.
ISettingInterface& settingArea();

// Drops what is known about the types of the tree: the next scan hashes and asks about every file.
void forget(const std::vector<SSettings::TypeLibrary::STreeNode>& nodes);

// Runs the event loop for a while.
void processEventsFor(int milliseconds);

// Runs the event loop until the folder shows so many rows.
void waitForRows(const QAbstractItemModel& model, const QModelIndex& folder, int rows);
