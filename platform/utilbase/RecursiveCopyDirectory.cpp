#include <utilbase/Utils.h>

#include <QDir>
#include <QDirIterator>

bool Utils::RecursiveCopyDirectory(const QString& source, const QString& target, const QStringList& nameFilters,
                                   const QString& folderName)
{
    const QDir from(source);
    if (source.isEmpty() || target.isEmpty() || !from.exists())
        return false;
    const QDir to(folderName.isEmpty() ? target : target + QLatin1Char('/') + folderName);
    QStringList files;
    for (QDirIterator it(source, nameFilters, QDir::Files | QDir::CaseSensitive, QDirIterator::Subdirectories);
         it.hasNext();)
        files.append(from.relativeFilePath(it.next()));
    bool copied = true;
    for (const QString& file : qAsConst(files)) {
        const QString path = to.filePath(file);
        copied &= QDir().mkpath(QFileInfo(path).path()) && QFile::copy(from.filePath(file), path);
    }
    return copied;
}
