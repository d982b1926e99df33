#include "host/tour/RunTourPass.h"

#include "host/tour/Camera.h"
#include "host/tour/TakeTour.h"
#include "host/tour/TourPass.h"

#include <QDir>
#include <QTextStream>

namespace {

constexpr QSize windowSize(1280, 800);

QString takePass(const CommandLine& commandLine, const PluginLibrary& plugin)
{
    const auto pass = TourPass::named(commandLine.tourPass);
    if (!pass)
        return QStringLiteral("there is no pass '%1'").arg(commandLine.tourPass);
    const QString folder = QDir(commandLine.tour).filePath(pass->name());
    if (!QDir().mkpath(folder))
        return QStringLiteral("cannot make the folder %1").arg(folder);
    CommandLine options = commandLine;
    options.language = pass->language;
    return takeTour(options, plugin, windowSize, [&folder](TourStage& stage) { return takePicture(stage, folder); });
}

} // namespace

int runTourPass(const CommandLine& commandLine, const PluginLibrary& plugin)
{
    const QString failure = takePass(commandLine, plugin);
    if (failure.isEmpty())
        return 0;
    QTextStream(stderr) << failure << '\n';
    return 1;
}
