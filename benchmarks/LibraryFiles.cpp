#include "benchmarks/LibraryFiles.h"

#include <QDir>
#include <QFile>

#include <random>

namespace {

void write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("%s: %s", qPrintable(path), qPrintable(file.errorString()));
}

void make(const LibraryFiles& files, const QString& folder)
{
    // Its sequence is the same everywhere, unlike those of the standard distributions.
    std::mt19937_64 random(static_cast<std::uint64_t>(static_cast<unsigned char>(files.prefix[0])));
    const auto span = static_cast<std::uint64_t>(files.largest - files.smallest) + 1;
    for (int i = 0; i < files.types; ++i) {
        const QString group = QStringLiteral("%1/Group %2").arg(folder).arg(i % files.groups, 3, 10, QLatin1Char('0'));
        if (i < files.groups && !QDir().mkpath(group))
            qFatal("Cannot make %s", qPrintable(group));
        QByteArray content(files.smallest + static_cast<int>(random() % span), Qt::Uninitialized);
        for (char& byte : content)
            byte = static_cast<char>(random());
        const QLatin1String suffix(i % 5 == 0 ? "rcvbp" : "rcvp");
        write(QStringLiteral("%1/%2 %3.%4")
                  .arg(group, QLatin1String(files.prefix))
                  .arg(i, 6, 10, QLatin1Char('0'))
                  .arg(suffix),
              content);
    }
}

} // namespace

QString LibraryFiles::path(const QString& files) const
{
    const QString path = QDir::cleanPath(QDir(files).absoluteFilePath(
        QStringLiteral("%1-%2-%3-%4-%5").arg(types).arg(groups).arg(smallest).arg(largest).arg(QLatin1String(prefix))));
    if (QFileInfo::exists(path))
        return path;
    // Under its name only when it is whole: the program may be ended at any moment.
    const QString unfinished = path + QStringLiteral(".unfinished");
    QDir(unfinished).removeRecursively();
    make(*this, unfinished);
    if (!QDir().rename(unfinished, path))
        qFatal("Cannot make %s", qPrintable(path));
    return path;
}
