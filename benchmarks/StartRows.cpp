#include "benchmarks/PlainPages.h"
#include "benchmarks/Rows.h"
#include "benchmarks/Stage.h"

#include <QCoreApplication>
#include <QMainWindow>
#include <QProcess>

#include <chrono>
#include <cstdio>

namespace {

using Clock = std::chrono::steady_clock; // the same in every process

constexpr int tabs = 3;

// What one process measured, times in seconds.
struct Start
{
    double firstPaint;
    double tabSwitch[tabs]; // that of the first tab is not used
    double memory;          // bytes of the process with all pages painted
};

Start startOf(const char* pages)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    const auto now = std::chrono::nanoseconds(Clock::now().time_since_epoch()).count();
    process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--start-of"), QLatin1String(pages),
                                                            QStringLiteral("--begun"), QString::number(now)});
    if (!process.waitForFinished(-1) || process.exitCode() != 0)
        qFatal("The process that starts %s pages failed", pages);
    const QList<QByteArray> values = process.readAllStandardOutput().split(' ');
    if (values.size() != tabs + 1)
        qFatal("The process that starts %s pages gave no numbers", pages);
    return {values[0].toDouble(), {0, values[1].toDouble(), values[2].toDouble()}, values[3].toDouble()};
}

} // namespace

void printStart(const QString& pages, std::int64_t begun)
{
    QMainWindow window;
    PlainPages* plain = nullptr;
    if (pages == QLatin1String("plain")) {
        plain = new PlainPages;
        window.setCentralWidget(plain);
    } else {
        window.setCentralWidget(settingArea().widget());
        settingArea().setSettings(SSettings());
    }
    window.resize(1280, 800);
    window.show();
    paintNow(&window);
    const std::chrono::duration<double> first = Clock::now().time_since_epoch() - std::chrono::nanoseconds(begun);
    std::printf("%.9f", first.count());
    for (int tab = 1; tab < tabs; ++tab) {
        std::printf(" %.9f", secondsOf([&] {
                        if (plain)
                            plain->setCurrentIndex(tab);
                        else
                            settingArea().setCurrentTab(tab);
                        paintNow(&window);
                    }));
    }
    std::printf(" %.0f", residentSize());
    window.takeCentralWidget()->hide();
}

std::vector<Measurement> measureStart(const BenchOptions& options)
{
    Measurement first(QStringLiteral("start of a process to the first painted page, beside plain widgets"));
    Measurement library(QStringLiteral("- first switch to Type library"));
    Measurement health(QStringLiteral("- first switch to Health settings"));
    Measurement memory(QStringLiteral("- the process's memory with all pages painted and no types"),
                       Measurement::Nothing, 0, Measurement::Bytes);
    startOf("plain"); // brings the program into memory
    for (int i = 0; i < options.repeat; ++i) {
        const Start ours = startOf("our");
        const Start plain = startOf("plain");
        first.ours.add(ours.firstPaint);
        first.peer.add(plain.firstPaint);
        library.ours.add(ours.tabSwitch[1]);
        library.peer.add(plain.tabSwitch[1]);
        health.ours.add(ours.tabSwitch[2]);
        health.peer.add(plain.tabSwitch[2]);
        memory.ours.add(ours.memory);
        memory.peer.add(plain.memory);
    }
    return {first, library, health, memory};
}
