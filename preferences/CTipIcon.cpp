#include "preferences/CTipIcon.h"

#include <widgetry/CToolTip.h>

#include <QHelpEvent>

namespace {

constexpr int side = 12; // pixels

} // namespace

CTipIcon::CTipIcon(QWidget* parent)
    : QSvgWidget(QStringLiteral(":/Image/SettingArea/Preferences/tip.svg"), parent)
{
    setFixedSize(side, side);
}

bool CTipIcon::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QSvgWidget::event(event);
    CToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), toolTip(), this);
    return true;
}
