#include "host/SampleLibrary.h"

#include <utilbase/Utils.h>

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

namespace {

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
    if (!QDir().mkpath(QFileInfo(library).absolutePath()))
        return false;
    if (samples.isEmpty())
        return QDir().mkdir(library);
    const QString name = QFileInfo(library).fileName();
    removeDrafts(library);
    const QTemporaryDir draft(library + draftSuffix + QStringLiteral("XXXXXX"));
    const QStringList types{QStringLiteral("*.rcvp"), QStringLiteral("*.rcvbp")};
    return draft.isValid() && Utils::RecursiveCopyDirectory(samples, draft.path(), types, name) &&
           QDir().rename(draft.filePath(name), library);
}
