#include "host/tour/RunTourPass.h"

#include "host/CHost.h"
#include "host/CLibraryLoader.h"
#include "host/CMainWindow.h"
#include "host/HostPaths.h"
#include "host/PluginLibrary.h"
#include "host/SampleLibrary.h"
#include "host/tour/TourPass.h"
#include "host/tour/TourStage.h"
#include "host/tour/TourSteps.h"

#include <QApplication>
#include <QDir>
#include <QSettings>
#include <QTemporaryDir>
#include <QTextStream>

namespace {

constexpr QSize windowSize(1280, 800);

int failed(const QString& reason)
{
    QTextStream(stderr) << reason << '\n';
    return 1;
}

} // namespace

int runTourPass(const CommandLine& commandLine, const PluginLibrary& plugin)
{
    const auto pass = TourPass::named(commandLine.tourPass);
    if (!pass)
        return failed(QStringLiteral("there is no pass '%1'").arg(commandLine.tourPass));
    const QDir folder(QDir(commandLine.tour).filePath(pass->name()));
    const QTemporaryDir own;
    CommandLine options = commandLine;
    options.language = pass->language;
    options.settings = own.filePath(QStringLiteral("settings/settings.json"));
    options.library = own.filePath(QStringLiteral("type-library"));
    const QString library = commandLine.library.isEmpty() ? HostPaths::samplesFolder() : commandLine.library;
    if (!own.isValid() || !SampleLibrary::create(options.library, library))
        return failed(QStringLiteral("cannot copy the type library %1").arg(library));
    if (!folder.mkpath(QStringLiteral(".")))
        return failed(QStringLiteral("cannot make the folder %1").arg(folder.path()));

    // File dialogs remember things about their user, which the tour neither shows nor changes.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, own.filePath(QStringLiteral("qt")));
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs); // they could neither be seen nor answered
    QApplication::setCursorFlashTime(0); // a cursor is in the picture or is not, whenever it is taken
    CHost host(options);
    if (!host.start(plugin.initFunction(), plugin.path()))
        return failed(QStringLiteral("the plug-in has no settings area"));
    host.window()->resize(windowSize);
    host.window()->move(0, 0);

    TourStage stage(host, folder.path(), QDir(own.path()));
    if (!stage.waitFor([&host] { return !host.loader()->isBusy(); }, QStringLiteral("the type library")))
        return failed(stage.error());
    int number = 0;
    for (const TourStep& step : tourSteps()) {
        const QString name =
            QStringLiteral("%1-%2").arg(++number, 2, 10, QLatin1Char('0')).arg(QLatin1String(step.name));
        stage.setPicture(name);
        if (!step.run(stage))
            return failed(QStringLiteral("%1: %2").arg(name, stage.error()));
    }
    return 0;
}
