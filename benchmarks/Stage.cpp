#include "benchmarks/Stage.h"

#include "benchmarks/InstantHandler.h"
#include "plugin/CSettingArea.h"
#include "typelibrary/store/TypeFileAttributes.h"

#include <QAbstractItemModel>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

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
