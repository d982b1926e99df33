#include "host/HostPaths.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

namespace {

QString besideExecutable(const QString& name)
{
    return QDir::cleanPath(QDir(QCoreApplication::applicationDirPath()).filePath(name));
}

// The place of shared data: the build tree's, if there is one, else the installed one.
QString dataFolder(const QString& name)
{
    const QString built = besideExecutable(name);
    return QDir(built).exists() ? built : besideExecutable(QStringLiteral(ORVEL_DATA_FROM_BIN "/orvel/") + name);
}

} // namespace

QStringList HostPaths::pluginCandidates()
{
    const QString name = QStringLiteral("libsettingarea.so");
    return {besideExecutable(name), besideExecutable(QStringLiteral(ORVEL_LIB_FROM_BIN "/") + name)};
}

QString HostPaths::translationsFolder()
{
    return dataFolder(QStringLiteral("translations"));
}

QString HostPaths::samplesFolder()
{
    const QString folder = dataFolder(QStringLiteral("type-library"));
    return QDir(folder).exists() ? folder : QString();
}

QString HostPaths::settingsFile()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation))
        .filePath(QStringLiteral("settings.json"));
}

QString HostPaths::defaultLibraryFolder()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation))
        .filePath(QStringLiteral("type-library"));
}
