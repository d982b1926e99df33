#include "typelibrary/store/LibraryFiles.h"

#include "typelibrary/store/TypeFileAttributes.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>
#include <QUuid>

#include <cstdio>

namespace {

// Does what QFile::copy() does, which waits for the disk after every file: an import of many would take ten times as
// long. The copy appears under its name when it is complete, and never in the place of another file.
bool copyFile(const QString& source, const QString& target)
{
    constexpr int blockSize = 64 * 1024;
    QFile from(source);
    if (!QFileInfo(source).isFile() || !from.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return false;
    QTemporaryFile to(QFileInfo(target).path() + QLatin1String("/.copy-XXXXXX"));
    if (!to.open())
        return false;
    QByteArray block(blockSize, Qt::Uninitialized);
    qint64 size = 0;
    while ((size = from.read(block.data(), block.size())) > 0) {
        if (to.write(block.constData(), size) != size)
            return false;
    }
    if (size < 0 || !to.flush() || !to.setPermissions(from.permissions()) || !to.rename(target))
        return false;
    to.setAutoRemove(false);
    return true;
}

// Gives the file the name of another in one step, so that the name always leads to one of them. QFile::rename() leaves
// other files alone, and deleting them first would lose both when the process is killed.
bool takePlace(const QString& file, const QString& target)
{
    return std::rename(QFile::encodeName(file).constData(), QFile::encodeName(target).constData()) == 0;
}

} // namespace

bool copyIntoLibrary(const QString& source, const QString& target)
{
    const bool copied = copyFile(source, target);
    removeFromCache(target);
    return copied;
}

bool replaceInLibrary(const QString& source, const QString& old, const QString& target)
{
    // Copied first, beside the target and hidden from scans: whatever comes in between, the old file is not lost.
    const QString copy = QStringLiteral("%1/.new-%2").arg(QFileInfo(target).path(), QUuid::createUuid().toString());
    const bool inPlace = old == target || isSameFile(old, target);
    const bool copied = copyFile(source, copy);
    const bool replaced = copied && (inPlace ? takePlace(copy, target) : QFile::rename(copy, target));
    if (copied && !replaced)
        QFile::remove(copy);
    if (replaced && !isSameFile(old, target))
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
