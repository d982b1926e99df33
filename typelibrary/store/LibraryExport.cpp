#include "typelibrary/store/LibraryExport.h"

#include "typelibrary/store/LibraryFiles.h"
#include "typelibrary/store/LibraryFolders.h"
#include "typelibrary/store/Md5.h"
#include "typelibrary/store/TypeFileAttributes.h"

#include <utilbase/Utils.h>

#include <QDir>
#include <QDirIterator>

namespace {

// Whether a copy of the type files below `source` to `target` would put others in the place of types of the library.
bool replacesTypes(const QString& source, const QString& target, const QString& root)
{
    QDirIterator files(source, typeFileFilters(), QDir::Files | QDir::CaseSensitive, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString file = files.next();
        const QString replaced = target + QLatin1Char('/') + QDir(source).relativeFilePath(file);
        if (!pathInLibrary(replaced, root).isEmpty() && !isSameFile(file, replaced) &&
            Utils::getFileMD5(file) != Utils::getFileMD5(replaced))
            return true;
    }
    return false;
}

} // namespace

LibraryExport exportFile(const QString& source, const QString& target, const QString& root)
{
    LibraryExport result;
    if (isSameFile(source, target)) {
        result.done = true;
        return result;
    }
    const QFileInfo existing(target);
    const bool replaces = existing.exists() || existing.isSymLink();
    result.done = replaces ? replaceInLibrary(source, target, target) : copyIntoLibrary(source, target);
    const QString changed = pathInLibrary(target, root);
    if (!changed.isEmpty()) {
        removeFromCache(changed);
        result.rescan = true;
    }
    return result;
}

LibraryExport exportFolder(const QString& source, const QString& target, const QString& root, const QString& folderName)
{
    LibraryExport result;
    QString changed = pathInLibrary(target, root);
    if (changed.isEmpty() && !pathInLibrary(root, target).isEmpty())
        changed = root;
    const QString copy = folderName.isEmpty() ? target : target + QLatin1Char('/') + folderName;
    if (!changed.isEmpty() && replacesTypes(source, copy, root))
        return result;
    result.done = Utils::RecursiveCopyDirectory(source, target, typeFileFilters(), folderName);
    if (!changed.isEmpty()) {
        removeFolderFromCache(changed);
        result.rescan = true;
    }
    return result;
}
