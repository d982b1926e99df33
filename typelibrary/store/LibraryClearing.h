#pragma once

#include "plugin/interface/SSettings.h"

#include <QString>
#include <QStringList>

#include <functional>

// Deletes everything that the tree shows below the library folder `root`, and with each group all that is in it, but
// neither the types that `isUsed` answers true for nor the groups above them. A link is deleted itself; where it leads
// to nothing is touched, and it stays when it leads to a type in use. Works on the disk, loaded or not; the attribute
// cache is left alone. Gives the base names of the types that were kept, folder by folder, each in name order.
// [GUI thread]
QStringList clearLibrary(const QString& root, const std::function<bool(const SMD5&)>& isUsed);
