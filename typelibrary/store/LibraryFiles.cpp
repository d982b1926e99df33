#include "typelibrary/store/LibraryFiles.h"

#include "typelibrary/store/TypeFileAttributes.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

bool copyIntoLibrary(const QString& source, const QString& target)
{
    const bool copied = QFile::copy(source, target);
    removeFromCache(target);
    return copied;
}

bool replaceInLibrary(const QString& source, const QString& old, const QString& target)
{
    // Copied first, beside the target and hidden from scans: on a full disk the old file is not lost.
    const QTemporaryDir staging(QFileInfo(target).path() + QLatin1String("/.new-XXXXXX"));
    const QString copy = staging.filePath(QStringLiteral("type"));
    const bool inPlace = old == target || isSameFile(old, target);
    bool replaced = staging.isValid() && QFile::copy(source, copy);
    if (replaced && inPlace)
        QFile::remove(old);
    replaced = replaced && QFile::rename(copy, target);
    if (replaced && !inPlace)
        QFile::remove(old);
    removeFromCache(old);
    removeFromCache(target);
    return replaced;
}

bool isSameFile(const QString& a, const QString& b)
{
    const QString canonical = QFileInfo(a).canonicalFilePath();
    return !canonical.isEmpty() && canonical == QFileInfo(b).canonicalFilePath();
}
