#include "benchmarks/Stage.h"

#include "benchmarks/InstantHandler.h"
#include "plugin/CSettingArea.h"
#include "typelibrary/store/TypeFileAttributes.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <QWidget>

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
