#include "host/SampleLibrary.h"

#include <utilbase/Utils.h>

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

bool SampleLibrary::create(const QString& library, const QString& samples)
{
    if (QFileInfo::exists(library))
        return true;
    if (!QDir().mkpath(QFileInfo(library).absolutePath()))
        return false;
    if (samples.isEmpty())
        return QDir().mkdir(library);
    const QTemporaryDir draft(library + QStringLiteral(".XXXXXX"));
    const QString name = QFileInfo(library).fileName();
    const QStringList types{QStringLiteral("*.rcvp"), QStringLiteral("*.rcvbp")};
    return draft.isValid() && Utils::RecursiveCopyDirectory(samples, draft.path(), types, name) &&
           QDir().rename(draft.filePath(name), library);
}
