#include "validator/Checks.h"
#include "validator/LoadedPlugin.h"
#include "validator/Report.h"
#include "validator/Stage.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>

#include <dlfcn.h>
#include <unistd.h>

namespace {

// Limits that only something broken exceeds, also under a sanitizer on a machine that has other work.
constexpr qint64 mostColdMs = 20'000;
constexpr qint64 mostWarmMs = 5'000;
constexpr int rounds = 100;
constexpr double mostMiBForRounds = 32;

// Memory that the process has in use, in MiB.
double memory()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> pages = file.readAll().split(' ');
    return static_cast<double>(pages.value(1).toLongLong() * ::sysconf(_SC_PAGESIZE)) / (1024 * 1024);
}

// A sanitizer keeps what was freed, so that the process grows whatever the program does.
bool keepsFreedMemory()
{
    return ::dlsym(RTLD_DEFAULT, "__asan_init") != nullptr;
}

void opensQuickly(const Options& options, Report& report)
{
    const double before = memory();
    QElapsedTimer clock;
    clock.start();
    Stage stage(options, report);
    if (!stage.isReady())
        return;
    stage.work();
    const qint64 cold = clock.nsecsElapsed();
    const double opened = memory();

    const auto openAgain = [&] {
        stage.undock();
        stage.dock();
        stage.work();
    };
    openAgain();
    const double begin = memory();
    clock.restart();
    for (int round = 0; round < rounds; ++round)
        openAgain();
    const qint64 warm = clock.nsecsElapsed() / rounds;
    const double end = memory();

    const auto inMs = [](qint64 nanoseconds) {
        return QString::number(static_cast<double>(nanoseconds) / 1e6, 'f', 1);
    };
    const auto inMiB = [](double size) { return QString::number(size, 'f', 1); };
    report.note(QStringLiteral("cold %1 ms and %2 MiB").arg(inMs(cold), inMiB(opened - before)));
    report.note(QStringLiteral("warm %1 ms").arg(inMs(warm)));
    report.note(QStringLiteral("%1 MiB more after %2 times").arg(inMiB(end - begin)).arg(rounds));
    report.expect(cold < mostColdMs * 1'000'000, "opening takes too long");
    report.expect(warm < mostWarmMs * 1'000'000, "opening again takes too long");
    if (!keepsFreedMemory())
        report.expect(end - begin < mostMiBForRounds,
                      "memory grows each time a window is destroyed and docked in again");
}

} // namespace

std::vector<Check> costChecks()
{
    return {
        {6, "time and memory of opening", opensQuickly},
    };
}
