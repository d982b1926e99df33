#include "benchmarks/PaintedWindow.h"
#include "benchmarks/Rows.h"
#include "benchmarks/Stage.h"

#include <QCoreApplication>
#include <QProcess>

#include <chrono>

namespace {

struct Program
{
    QString file;
    QStringList arguments; // in front of the time
};

// What one process measured, times in seconds.
struct Start
{
    double firstPaint;
    double library; // the first switch to this tab
    double health;
    double memory; // bytes of the process with all pages painted
};

Start startOf(const Program& program)
{
    QProcess process;
    const auto now = std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
    process.start(program.file, program.arguments + QStringList(QString::number(now)));
    if (!process.waitForFinished(-1) || process.exitCode() != 0)
        qFatal("%s failed: %s", qPrintable(program.file), process.readAllStandardError().constData());
    const QList<QByteArray> values = process.readAllStandardOutput().split(' ');
    if (values.size() != 4)
        qFatal("%s gave no numbers", qPrintable(program.file));
    return {values[0].toDouble(), values[1].toDouble(), values[2].toDouble(), values[3].toDouble()};
}

} // namespace

void printOurStart(const QString& begun)
{
    settingArea().setSettings(SSettings());
    printStart(
        settingArea().widget(), [](int tab) { settingArea().setCurrentTab(tab); }, begun);
}

std::vector<Measurement> measureStart(const BenchOptions& options)
{
    Measurement first(QStringLiteral("start of a process to the first painted page, beside plain widgets"));
    Measurement library(QStringLiteral("- first switch to Type library"));
    Measurement health(QStringLiteral("- first switch to Health settings"));
    Measurement memory(QStringLiteral("- the process's memory with all pages painted and no types"),
                       Measurement::Nothing, 0, Measurement::Bytes);
    const Program ours{QCoreApplication::applicationFilePath(), {QStringLiteral("--start")}};
    const Program plain{QCoreApplication::applicationDirPath() + QStringLiteral("/settingarea_bench_plain"), {}};
    startOf(ours); // brings the programs into memory
    startOf(plain);
    for (int i = 0; i < options.repeat; ++i) {
        const Start our = startOf(ours);
        const Start peer = startOf(plain);
        first.add(our.firstPaint, peer.firstPaint);
        library.add(our.library, peer.library);
        health.add(our.health, peer.health);
        memory.add(our.memory, peer.memory);
    }
    return {first, library, health, memory};
}
