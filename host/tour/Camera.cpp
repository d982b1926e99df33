#include "host/tour/Camera.h"

#include "host/CMainWindow.h"
#include "host/tour/TourStage.h"

#include <QApplication>
#include <QDir>
#include <QPainter>

namespace {

// The caption that stands for a window manager's title bar.
constexpr int captionHeight = 28;
constexpr int captionMargin = 12;
constexpr QColor captionColor(57, 57, 64);
constexpr QColor captionTextColor(240, 240, 246);

// Dialogs lie in the middle, as window managers put them, whatever the size of the screen; menus where they are.
void draw(QPainter& painter, const QWidget* window, QWidget* over)
{
    const QPixmap content = over->grab();
    if (over->windowType() != Qt::Dialog) {
        painter.drawPixmap(over->pos() - window->pos(), content);
        return;
    }
    QRect frame({}, over->size() + QSize(0, captionHeight));
    frame.moveCenter(window->rect().center());
    QRect caption = frame;
    caption.setHeight(captionHeight);
    painter.fillRect(caption, captionColor);
    painter.setPen(captionTextColor);
    painter.setFont(over->font());
    painter.drawText(caption.adjusted(captionMargin, 0, -captionMargin, 0), Qt::AlignVCenter, over->windowTitle());
    painter.drawPixmap(caption.bottomLeft() + QPoint(0, 1), content);
}

} // namespace

bool takePicture(TourStage& stage, const QString& folder)
{
    QWidget* const window = stage.window();
    QPixmap picture = window->grab();
    QPainter painter(&picture);
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (const bool popups : {false, true}) {
        for (QWidget* widget : widgets) {
            if (widget != window && widget->isVisible() && (widget->windowType() != Qt::Dialog) == popups)
                draw(painter, window, widget);
        }
    }
    painter.end();

    const QString path = QDir(folder).filePath(stage.picture() + QStringLiteral(".png"));
    return picture.save(path) || stage.fail(QStringLiteral("cannot write %1").arg(path));
}
