#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class CProductTreeView;

// Imports as the user meets them: the dialog, the copies, the rescan and the messages. The dialog begins in
// `lastFolder`, which becomes the folder chosen. Boxes and dialogs belong to `view`; once that is destroyed, nothing of
// the caller's is touched any more. [GUI thread]

// Imports a folder into the group `target` of the library folder `root`. `imported` gets the new folders' paths, each
// before those in it, before the user is told what was left out.
void importAsFolder(CProductTreeView* view, const QString& root, const QString& target, QString& lastFolder,
                    const std::function<void(const QStringList&)>& imported);

// Imports type files into the group `target`.
void importCabinetFiles(CProductTreeView* view, const QString& target, QString& lastFolder);
