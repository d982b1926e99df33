#include "host/SampleLibrary.h"

#include <utilbase/Utils.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace {

// Keeps other hosts out of a folder while it lives, those only that ask in the same way. It leaves nothing behind, not
// even when the program is killed. Where the disk knows no locks there is none.
class FolderLock
{
public:
    explicit FolderLock(const QString& folder)
        : m_nFolder(::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    {
        if (m_nFolder >= 0)
            ::flock(m_nFolder, LOCK_EX);
    }
    ~FolderLock()
    {
        if (m_nFolder >= 0)
            ::close(m_nFolder);
    }
    Q_DISABLE_COPY(FolderLock)

private:
    const int m_nFolder;
};

const QLatin1String draftSuffix(".new-");

// Of runs that were killed before the library was complete.
void removeDrafts(const QString& library)
{
    const QFileInfo target(library);
    const QFileInfoList drafts =
        target.dir().entryInfoList({QStringLiteral("*.new-??????")}, QDir::Dirs | QDir::NoSymLinks);
    for (const QFileInfo& draft : drafts) {
        if (draft.fileName().startsWith(target.fileName() + draftSuffix))
            QDir(draft.filePath()).removeRecursively();
    }
}

} // namespace

bool SampleLibrary::create(const QString& library, const QString& samples)
{
    if (QFileInfo::exists(library))
        return true;
    const QString folder = QFileInfo(library).absolutePath();
    if (!QDir().mkpath(folder))
        return false;
    const FolderLock lock(folder);
    if (QFileInfo::exists(library)) // another host has made it meanwhile
        return true;
    if (samples.isEmpty())
        return QDir().mkdir(library);
    const QString name = QFileInfo(library).fileName();
    removeDrafts(library);
    const QTemporaryDir draft(library + draftSuffix + QStringLiteral("XXXXXX"));
    const QStringList types{QStringLiteral("*.rcvp"), QStringLiteral("*.rcvbp")};
    return draft.isValid() && Utils::RecursiveCopyDirectory(samples, draft.path(), types, name) &&
           QDir().rename(draft.filePath(name), library);
}
