#include "benchmarks/Stage.h"

#include "benchmarks/InstantHandler.h"
#include "plugin/CSettingArea.h"
#include "typelibrary/store/TypeFileAttributes.h"

#include <QAbstractItemModel>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QTimer>
#include <QWidget>

#include <unistd.h>

ISettingInterface& settingArea()
{
    CSettingArea& area = CSettingArea::instance();
    if (!area.getHandler())
        area.setHandler(new InstantHandler);
    return area;
}

void forget(const std::vector<SSettings::TypeLibrary::STreeNode>& nodes)
{
    for (const auto& node : nodes) {
        removeFromCache(node.path);
        forget(node.children);
    }
}

void processEventsFor(int milliseconds)
{
    QEventLoop loop;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
    timer.start(milliseconds);
    loop.exec();
}

void paintNow(QWidget* window)
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    window->repaint();
}

void waitForRows(const QAbstractItemModel& model, const QModelIndex& folder, int rows)
{
    constexpr int timeoutMs = 60'000;
    QElapsedTimer timer;
    timer.start();
    while (model.rowCount(folder) < rows) {
        if (timer.hasExpired(timeoutMs))
            qFatal("%d of %d rows are shown", model.rowCount(folder), rows);
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 10);
    }
}

double residentSize()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        qFatal("No /proc/self/statm");
    return statm.readAll().split(' ').at(1).toDouble() * static_cast<double>(::sysconf(_SC_PAGESIZE));
}
