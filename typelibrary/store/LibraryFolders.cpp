#include "typelibrary/store/LibraryFolders.h"

#include <QDir>
#include <QDirIterator>

#include <algorithm>

namespace {

// Whether the canonical path `path` is that of the folder or of something in it.
bool isWithin(const QString& path, const QString& folder)
{
    return path == folder || path.startsWith(folder.endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/'));
}

} // namespace

QStringList typeFileFilters()
{
    return {QStringLiteral("*.rcvp"), QStringLiteral("*.rcvbp")};
}

int groupLevel(const QString& folder, const QString& root)
{
    return folder == root ? 0 : QDir(root).relativeFilePath(folder).count(QLatin1Char('/')) + 1;
}

int groupLevelsIn(const QString& folder)
{
    const QDir top(folder);
    const QString canonical = top.canonicalPath();
    int levels = 0;
    QDirIterator files(folder, typeFileFilters(), QDir::Files | QDir::CaseSensitive, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        if (!files.fileInfo().isSymLink() || isWithin(files.fileInfo().canonicalFilePath(), canonical))
            levels = std::max(levels, top.relativeFilePath(path).count(QLatin1Char('/')) + 1);
    }
    return levels;
}

QString freeName(const QString& folder, const QString& name)
{
    const auto isTaken = [&folder](const QString& candidate) {
        const QFileInfo entry(folder + QLatin1Char('/') + candidate);
        return entry.exists() || entry.isSymLink(); // to nowhere
    };
    QString free = name;
    for (int i = 1; isTaken(free); ++i)
        free = QStringLiteral("%1(%2)").arg(name, QString::number(i));
    return free;
}

QString pathInLibrary(const QString& path, const QString& root)
{
    const QString canonicalRoot = QFileInfo(root).canonicalFilePath();
    const QString canonical = QFileInfo(path).canonicalFilePath();
    if (canonicalRoot.isEmpty() || !isWithin(canonical, canonicalRoot))
        return {};
    return QDir::cleanPath(root + QLatin1Char('/') + canonical.mid(canonicalRoot.size()));
}
