#include "monitoring/CSendMailArrow.h"

#include <QPainter>

namespace {

// In pixels.
constexpr QSize arrowSize(65, 5);
constexpr int arrowTops[] = {5, 25, 45};

} // namespace

CSendMailArrow::CSendMailArrow(QWidget* parent)
    : QWidget(parent),
      m_arrow(QStringLiteral(":/Image/SettingArea/Monitoring/send_email_arrow.svg"))
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize CSendMailArrow::sizeHint() const
{
    return {65, 50};
}

void CSendMailArrow::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    for (const int top : arrowTops)
        m_arrow.render(&painter, QRectF(QPointF(0, top), arrowSize));
}
