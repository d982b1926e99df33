#include "host/tour/TakeTour.h"

#include "host/CHost.h"
#include "host/CLibraryLoader.h"
#include "host/CMainWindow.h"
#include "host/HostPaths.h"
#include "host/PluginLibrary.h"
#include "host/SampleLibrary.h"
#include "host/tour/TourSteps.h"

#include <QApplication>
#include <QDir>
#include <QSettings>
#include <QTemporaryDir>

QString takeTour(const CommandLine& commandLine, const PluginLibrary& plugin, QSize windowSize,
                 const TourStage::Shutter& shutter)
{
    const QTemporaryDir own;
    CommandLine options = commandLine;
    options.settings = own.filePath(QStringLiteral("settings/settings.json"));
    options.library = own.filePath(QStringLiteral("type-library"));
    const QString library = commandLine.library.isEmpty() ? HostPaths::samplesFolder() : commandLine.library;
    if (!own.isValid() || !SampleLibrary::create(options.library, library))
        return QStringLiteral("cannot copy the type library %1").arg(library);

    // File dialogs remember things about their user, which the tour neither shows nor changes.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, own.filePath(QStringLiteral("qt")));
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs); // they could neither be seen nor answered
    QApplication::setCursorFlashTime(0); // a cursor is in the picture or is not, whenever it is taken
    CHost host(options);
    if (!host.start(plugin.initFunction(), plugin.path()))
        return QStringLiteral("the plug-in has no settings area");
    host.window()->resize(windowSize);
    host.window()->move(0, 0);

    TourStage stage(host, QDir(own.path()), shutter);
    if (!stage.waitFor([&host] { return !host.loader()->isBusy(); }, QStringLiteral("the type library")))
        return stage.error();
    int number = 0;
    for (const TourStep& step : tourSteps()) {
        const QString name =
            QStringLiteral("%1-%2").arg(++number, 2, 10, QLatin1Char('0')).arg(QLatin1String(step.name));
        stage.setPicture(name);
        if (!step.run(stage))
            return QStringLiteral("%1: %2").arg(name, stage.error());
    }
    return {};
}
