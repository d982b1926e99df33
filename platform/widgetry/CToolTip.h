#pragma once

#include <widgetry/WidgetryGlobal.h>

#include <QPoint>
#include <QRect>
#include <QString>

class QWidget;

// Tooltips that show their text as it stands, never as markup, and wrap it on the screen. Style sheets: QToolTip.
// [GUI thread]
class WIDGETRY_EXPORT CToolTip
{
public:
    CToolTip() = delete;

    // Shows `text` near `globalPos` until the mouse leaves `rect`, in coordinates of `widget` (empty: the whole
    // widget). An empty text hides the tooltip.
    static void showText(const QPoint& globalPos, const QString& text, QWidget* widget = nullptr,
                         const QRect& rect = {});
    static void hideText();

    // The text to hand to QWidget::setToolTip() and item tooltips so that they show `text` as it stands.
    static QString fromPlainText(const QString& text);
};
