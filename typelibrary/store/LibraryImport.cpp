#include "typelibrary/store/LibraryImport.h"

#include "typelibrary/store/CTypeLibrary.h"
#include "typelibrary/store/LibraryFiles.h"
#include "typelibrary/store/LibraryFolders.h"
#include "typelibrary/store/TypeFileAttributes.h"

#include <utilbase/Utils.h>

#include <QDir>
#include <QSet>

namespace {

// Decides, file by file, which files of one import are new to the library.
class Newcomers
{
public:
    enum Verdict
    {
        New,
        SameContent,
        SameName,
    };

    Verdict judge(const QFileInfo& file) const
    {
        if (!m_library.searchSameTypeOfFile(file.filePath()).isEmpty())
            return SameContent;
        const bool isTaken =
            m_met.contains(file.completeBaseName()) || !m_library.searchSameName(file.filePath()).isEmpty();
        return isTaken ? SameName : New;
    }

    // The library does not know the files of this import yet.
    void meet(const QFileInfo& file) { m_met.insert(file.completeBaseName()); }

private:
    const CTypeLibrary& m_library = CTypeLibrary::instance();
    QSet<QString> m_met; // names
};

// Deletes what the library holds already from the copy of a folder; true if something stays.
bool keepNew(const QString& folder, Newcomers& newcomers, FolderImport& import)
{
    const int place = import.folders.size();
    import.folders.append(folder);
    bool stays = false;
    const QFileInfoList entries =
        QDir(folder).entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name | QDir::DirsLast);
    for (const QFileInfo& entry : entries) {
        if (entry.isHidden()) {
            // The library does not show it: the user would not know that it is there.
            entry.isDir() ? QDir(entry.filePath()).removeRecursively() : QFile::remove(entry.filePath());
        } else if (entry.isDir()) {
            stays |= keepNew(entry.filePath(), newcomers, import);
        } else {
            const bool isNew = newcomers.judge(entry) == Newcomers::New;
            newcomers.meet(entry);
            if (isNew) {
                ++import.added;
                stays = true;
            } else {
                QFile::remove(entry.filePath());
                removeFromCache(entry.filePath());
                import.known.append(entry.completeBaseName());
            }
        }
    }
    if (!stays) {
        import.folders.erase(import.folders.begin() + place, import.folders.end());
        QDir(folder).removeRecursively();
    }
    return stays;
}

} // namespace

FolderImport importFolder(const QString& source, const QString& target)
{
    FolderImport import;
    removeFolderFromCache(target); // of a folder that had the name before
    // Made here, so that nothing but copies is deleted from it, and not the folders above it.
    const QFileInfo folder(target);
    if (!QDir(folder.path()).mkdir(folder.fileName()))
        return import;
    import.copied = Utils::RecursiveCopyDirectory(source, target, typeFileFilters());
    Newcomers newcomers;
    keepNew(target, newcomers, import);
    return import;
}

FilesImport importFiles(const QStringList& files, const QString& folder)
{
    FilesImport import;
    Newcomers newcomers;
    for (const QString& path : files) {
        const QFileInfo file(path);
        if (!isTypeFile(file) || file.isHidden()) { // which the library would not show
            import.failed = true;
            continue;
        }
        removeFromCache(path); // nothing tells the cache when a file outside of the library changes
        const Newcomers::Verdict verdict = newcomers.judge(file);
        removeFromCache(path);
        if (verdict == Newcomers::SameContent)
            import.sameContent.append(file.completeBaseName());
        else if (verdict == Newcomers::SameName)
            import.sameName.append(file.completeBaseName());
        else if (copyIntoLibrary(path, folder + QLatin1Char('/') + file.fileName()))
            newcomers.meet(file);
        else
            import.failed = true;
    }
    return import;
}
