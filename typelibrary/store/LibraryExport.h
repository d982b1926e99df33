#pragma once

#include <QString>

// Copies types out of the library to where the user wants them. That may be the library itself, whose cached attributes
// are then dropped. No type of the library is replaced by another unless the user has chosen its very file.
// [GUI thread]

struct LibraryExport
{
    bool done = false;   // everything was copied
    bool rescan = false; // files of the library may have changed
};

// Copies the type file to the file `target`, which is replaced. A file exported onto itself stays as it is.
LibraryExport exportFile(const QString& source, const QString& target, const QString& root);

// Copies the type files below the group or library folder `source`, in their sub-folders, to `target`/`folderName`, or
// to `target` itself when that is empty. Files that exist there are replaced.
LibraryExport exportFolder(const QString& source, const QString& target, const QString& root,
                           const QString& folderName = {});
