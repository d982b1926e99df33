#include "host/tour/TourStage.h"

#include "host/CHost.h"
#include "host/CMainWindow.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPointer>
#include <QThread>
#include <QTimer>

#include <utility>

namespace {

constexpr int timeoutMs = 30000;
constexpr int pollIntervalMs = 10;

} // namespace

TourStage::TourStage(CHost& host, const QDir& own, Shutter shutter)
    : m_host(host),
      m_own(own),
      m_shutter(std::move(shutter))
{
}

CMainWindow* TourStage::window() const
{
    return m_host.window();
}

ISettingInterface* TourStage::area() const
{
    return m_host.area();
}

bool TourStage::fail(const QString& reason)
{
    m_error = reason;
    return false;
}

bool TourStage::waitFor(const std::function<bool()>& condition, const QString& what)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > timeoutMs)
            return fail(QStringLiteral("%1 did not come").arg(what));
        QCoreApplication::processEvents(QEventLoop::AllEvents, pollIntervalMs);
        QThread::msleep(1);
    }
    return true;
}

bool TourStage::inDialogs(const std::function<void()>& open, const std::vector<Act>& acts)
{
    std::size_t next = 0;
    bool done = true;
    QPointer<QWidget> answered;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
        QWidget* const popup = QApplication::activePopupWidget();
        const QPointer<QWidget> top = popup ? popup : QApplication::activeModalWidget();
        if (!top || !top->isVisible() || top == answered)
            return;
        watch.stop(); // the act may run the event loop
        answered = top;
        const bool isExpected = done && next < acts.size();
        if (isExpected)
            done = acts[next++](top);
        if (top && (!isExpected || !done))
            top->close();
        watch.start(pollIntervalMs);
    });
    watch.start(pollIntervalMs);
    open();
    const auto isOver = [&] {
        const bool isOpen = QApplication::activePopupWidget() || QApplication::activeModalWidget();
        return !isOpen && (!done || next == acts.size());
    };
    return waitFor(isOver, QStringLiteral("a dialog or its end")) && done;
}

TourStage::Act TourStage::shot()
{
    return closing([this](QWidget*) { return shoot(); });
}

TourStage::Act TourStage::closing(const Act& act)
{
    return [act](QWidget* dialog) {
        const QPointer<QWidget> guard(dialog);
        const bool done = act(dialog);
        if (guard)
            guard->close();
        return done;
    };
}

bool TourStage::shoot()
{
    // What was shown or changed just now has its layout and its paint events yet to come.
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();

    return m_shutter(*this);
}
