#include "host/CHost.h"
#include "host/CMainWindow.h"
#include "host/CTerminationSignals.h"
#include "host/HostPaths.h"
#include "host/PluginLibrary.h"
#include "host/keychain/DesktopKeychain.h"
#include "host/theme/Theme.h"
#include "host/tour/RunTour.h"
#include "host/tour/RunTourPass.h"

#include <QApplication>
#include <QTextStream>

#include <csignal>
#include <cstdlib>

namespace {

constexpr int startFailed = 2;

int openWindow(const CommandLine& commandLine, const PluginLibrary& plugin)
{
    const CTerminationSignals termination; // one that comes during the start is not lost
    bool isTerminated = false;
    QObject::connect(&termination, &CTerminationSignals::notifyTerminate, &termination,
                     [&isTerminated] { isTerminated = true; });
    // A settings file of the user's choice holds everything itself.
    CHost host(commandLine, commandLine.settings.isEmpty() ? DesktopKeychain::open() : nullptr);
    if (!host.start(plugin.initFunction(), plugin.path())) {
        QTextStream(stderr) << "orvel: " << plugin.path() << ": the plug-in has no settings area to give\n";
        return startFailed;
    }
    QObject::connect(&termination, &CTerminationSignals::notifyTerminate, host.window(), &QWidget::close);
    if (isTerminated) // while the keychain was asked
        QMetaObject::invokeMethod(host.window(), &QWidget::close, Qt::QueuedConnection);
    QObject::connect(&host, &CHost::notifyFinished, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    const int result = QApplication::exec();
    // What is still at work cannot be broken off at once and uses what the end of the program takes down: the plug-in's
    // call, or a mail. All is saved by now.
    if (host.isBusy())
        std::quick_exit(result);
    return result;
}

int runWindowed(char* program, const CommandLine& commandLine)
{
    // Whoever reads what it says may end first, which is no reason to lose what the user has not saved.
    std::signal(SIGPIPE, SIG_IGN);
    // Qt has options of its own, --plugin among them: it gets to see none of ours.
    int argc = 1;
    char* argv[] = {program, nullptr};
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication application(argc, argv);
    QApplication::setApplicationDisplayName(QStringLiteral("Orvel"));
    QApplication::setDesktopFileName(QStringLiteral("orvel"));
    // The host says itself when it has finished: a scan may outlast the window.
    QApplication::setQuitOnLastWindowClosed(false);
    Theme::apply();

    PluginLibrary plugin;
    QString error;
    const QStringList candidates =
        commandLine.plugin.isEmpty() ? HostPaths::pluginCandidates() : QStringList{commandLine.plugin};
    if (!plugin.load(candidates, error)) {
        QTextStream(stderr) << "orvel: cannot load the settings plug-in: " << error << '\n';
        return startFailed;
    }
    return commandLine.action == CommandLine::Action::TourPass ? runTourPass(commandLine, plugin)
                                                               : openWindow(commandLine, plugin);
}

// The tree of the type library is Qt's own model of files, which builds one or two patterns for each file and uses each
// of them once. Their translation into machine code would take most of the time that showing a large folder takes.
void leavePatternsUntranslated()
{
    constexpr const char* variable = "QT_ENABLE_REGEXP_JIT"; // read by Qt before the first pattern
    if (!qEnvironmentVariableIsSet(variable))
        qputenv(variable, "0");
}

} // namespace

int main(int argc, char** argv)
{
    leavePatternsUntranslated();
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    QCoreApplication::setApplicationName(QStringLiteral("orvel"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ORVEL_VERSION));

    const CommandLine commandLine = CommandLine::parse(arguments);
    switch (commandLine.action) {
    case CommandLine::Action::Say:
        QTextStream(stdout) << commandLine.message;
        return 0;
    case CommandLine::Action::Refuse:
        QTextStream(stderr) << commandLine.message;
        return startFailed;
    case CommandLine::Action::Tour: {
        const QCoreApplication application(argc, argv);
        return runTour(commandLine);
    }
    case CommandLine::Action::Open:
    case CommandLine::Action::TourPass:
        break;
    }
    return runWindowed(argv[0], commandLine);
}
