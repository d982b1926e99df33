#include "benchmarks/PaintedWindow.h"

#include "benchmarks/Measurement.h"

#include <QCoreApplication>
#include <QFile>
#include <QMainWindow>

#include <unistd.h>

#include <chrono>
#include <cstdio>

void paintNow(QWidget* window)
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    window->repaint();
}

double residentSize()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        qFatal("No /proc/self/statm");
    return statm.readAll().split(' ').at(1).toDouble() * static_cast<double>(::sysconf(_SC_PAGESIZE));
}

void printStart(QWidget* pages, const std::function<void(int)>& showTab, const QString& begun)
{
    using Clock = std::chrono::steady_clock; // the same in every process
    constexpr int tabs = 3;

    QMainWindow window;
    window.setCentralWidget(pages);
    window.resize(1280, 800);
    window.show();
    paintNow(&window);
    const std::chrono::duration<double> first =
        Clock::now().time_since_epoch() - std::chrono::nanoseconds(begun.toLongLong());
    std::printf("%.9f", first.count());
    for (int tab = 1; tab < tabs; ++tab) {
        std::printf(" %.9f", secondsOf([&] {
                        showTab(tab);
                        paintNow(&window);
                    }));
    }
    std::printf(" %.0f", residentSize());
    window.takeCentralWidget()->hide();
}
