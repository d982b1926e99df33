#include "validator/random/WindowInvariant.h"

#include "validator/random/InputEvents.h"

#include <QApplication>
#include <QDialog>
#include <QMenu>

QString WindowInvariant::difference(const QWidget& area, bool mayHaveDialogs)
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (const QWidget* window : windows) {
        const bool isOpened = qobject_cast<const QDialog*>(window) || qobject_cast<const QMenu*>(window);
        if (!isOpened || !window->isVisible())
            continue;
        if (!mayHaveDialogs)
            return QStringLiteral("%1 is left open").arg(InputEvents::nameOf(*window));
        const QWidget* owner = window;
        while (owner && owner != &area)
            owner = owner->parentWidget();
        if (!owner)
            return QStringLiteral("%1 is open and belongs to nobody").arg(InputEvents::nameOf(*window));
    }
    return {};
}
