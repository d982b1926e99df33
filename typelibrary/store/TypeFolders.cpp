#include "typelibrary/store/TypeFolders.h"

#include "typelibrary/store/TypeFileAttributes.h"

#include <QDirIterator>
#include <QFile>
#include <QHash>

#include <sys/stat.h>

#include <mutex>

namespace {

// Two changes within a tick of the file system's clock look like one. No file system that is in use has a longer tick.
constexpr time_t longestTick = 2; // seconds

struct Remembered
{
    std::mutex mutex; // guards the member below
    QHash<QString, FolderStamp> folders;
};

// Never destroyed: a scan may outlive the process's static objects.
Remembered& remembered()
{
    static auto* const instance = new Remembered;
    return *instance;
}

bool isSettled(const FolderStamp& stamp)
{
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    return stamp.inode != 0 && now.tv_sec - stamp.changed.tv_sec > longestTick;
}

bool operator==(const FolderStamp& a, const FolderStamp& b)
{
    return a.device == b.device && a.inode == b.inode && a.changed.tv_sec == b.changed.tv_sec &&
           a.changed.tv_nsec == b.changed.tv_nsec;
}

bool isRemembered(const QString& folder, const FolderStamp& stamp)
{
    const std::lock_guard<std::mutex> lock(remembered().mutex);
    const auto found = remembered().folders.constFind(folder);
    return found != remembered().folders.cend() && *found == stamp;
}

} // namespace

FolderStamp folderStamp(const QString& folder)
{
    struct stat status = {};
    if (::stat(QFile::encodeName(folder).constData(), &status) != 0)
        return {};
    return {status.st_dev, status.st_ino, status.st_ctim};
}

void rememberTypesIn(const QString& folder, const FolderStamp& stamp)
{
    if (!isSettled(stamp))
        return;
    const std::lock_guard<std::mutex> lock(remembered().mutex);
    remembered().folders.insert(folder, stamp);
}

bool isFreeOfTypes(const QString& folder)
{
    const FolderStamp stamp = folderStamp(folder);
    if (isRemembered(folder, stamp))
        return false;

    QDirIterator entries(folder, QDir::AllEntries | QDir::NoDotAndDotDot);
    while (entries.hasNext()) {
        entries.next();
        const QFileInfo entry = entries.fileInfo();
        if (entry.isDir() || hasTypeSuffix(entry)) {
            if (!entry.isSymLink())
                rememberTypesIn(folder, stamp);
            return false;
        }
    }
    return true;
}
