#include "host/tour/RunTour.h"

#include "host/tour/TourPass.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTextStream>

namespace {

// A pass takes seconds; one that has not ended by then waits for something that does not come.
constexpr int passTimeoutMs = 120000;

QProcessEnvironment environmentOf(const TourPass& pass)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // The user's own scaling would be multiplied with the pass's.
    for (const char* name : {"QT_SCREEN_SCALE_FACTORS", "QT_AUTO_SCREEN_SCALE_FACTOR", "QT_DEVICE_PIXEL_RATIO"})
        environment.remove(QLatin1String(name));
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QString::number(pass.scale));
    environment.insert(QStringLiteral("QT_FONT_DPI"), QStringLiteral("96"));
    if (!environment.contains(QStringLiteral("QT_QPA_PLATFORM")))
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    return environment;
}

// Runs the pass; what went wrong, or nothing.
QString run(const TourPass& pass, const CommandLine& commandLine)
{
    QStringList arguments{QStringLiteral("--tour"), commandLine.tour, QStringLiteral("--tour-pass"), pass.name()};
    if (!commandLine.plugin.isEmpty())
        arguments << QStringLiteral("--plugin") << commandLine.plugin;
    if (!commandLine.library.isEmpty())
        arguments << QStringLiteral("--library") << commandLine.library;

    QProcess process;
    process.setProcessEnvironment(environmentOf(pass));
    process.setProcessChannelMode(QProcess::ForwardedOutputChannel);
    process.start(QCoreApplication::applicationFilePath(), arguments);
    if (!process.waitForFinished(passTimeoutMs)) {
        const bool started = process.state() != QProcess::NotRunning;
        process.kill();
        process.waitForFinished();
        return started ? QStringLiteral("the pass did not end") : process.errorString();
    }
    const QString said = QString::fromLocal8Bit(process.readAllStandardError()).trimmed();
    if (process.exitStatus() == QProcess::CrashExit)
        return QStringLiteral("the program crashed %1").arg(said).trimmed();
    if (process.exitCode() == 0)
        return {};
    if (said.isEmpty())
        return QStringLiteral("exit code %1").arg(process.exitCode());
    const QString prefix = QStringLiteral("orvel: "); // said already
    return said.startsWith(prefix) ? said.mid(prefix.size()) : said;
}

} // namespace

int runTour(const CommandLine& commandLine)
{
    const std::vector<TourPass> passes = TourPass::all();
    for (const TourPass& pass : passes) {
        const QString failure = run(pass, commandLine);
        if (!failure.isEmpty()) {
            QTextStream(stderr) << "orvel: tour " << pass.name() << ": " << failure << '\n';
            return 1;
        }
    }
    QTextStream out(stdout);
    out << "Pictures of the tour:\n";
    for (const TourPass& pass : passes)
        out << "  " << commandLine.tour << '/' << pass.name() << '\n';
    return 0;
}
