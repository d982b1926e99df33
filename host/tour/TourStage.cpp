#include "host/tour/TourStage.h"

#include "host/CHost.h"
#include "host/CMainWindow.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QPainter>
#include <QPointer>
#include <QThread>
#include <QTimer>

namespace {

constexpr int timeoutMs = 30000;
constexpr int pollIntervalMs = 10;

// The caption that stands for a window manager's title bar.
constexpr int captionHeight = 28;
constexpr int captionMargin = 12;
constexpr QColor captionColor(57, 57, 64);
constexpr QColor captionTextColor(240, 240, 246);

} // namespace

TourStage::TourStage(CHost& host, const QString& folder, const QDir& own)
    : m_host(host),
      m_folder(folder),
      m_own(own)
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

TourStage::Act TourStage::picture()
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

    QPixmap picture = window()->grab();
    QPainter painter(&picture);
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (const bool popups : {false, true}) {
        for (QWidget* widget : widgets) {
            if (widget != window() && widget->isVisible() && (widget->windowType() != Qt::Dialog) == popups)
                draw(painter, widget);
        }
    }
    painter.end();

    const QString path = QDir(m_folder).filePath(m_picture + QStringLiteral(".png"));
    return picture.save(path) || fail(QStringLiteral("cannot write %1").arg(path));
}

// Dialogs lie in the middle, as window managers put them, whatever the size of the screen; menus where they are.
void TourStage::draw(QPainter& painter, QWidget* over) const
{
    const QPixmap content = over->grab();
    if (over->windowType() != Qt::Dialog) {
        painter.drawPixmap(over->pos() - window()->pos(), content);
        return;
    }
    QRect frame({}, over->size() + QSize(0, captionHeight));
    frame.moveCenter(window()->rect().center());
    QRect caption = frame;
    caption.setHeight(captionHeight);
    painter.fillRect(caption, captionColor);
    painter.setPen(captionTextColor);
    painter.setFont(over->font());
    painter.drawText(caption.adjusted(captionMargin, 0, -captionMargin, 0), Qt::AlignVCenter, over->windowTitle());
    painter.drawPixmap(caption.bottomLeft() + QPoint(0, 1), content);
}
