#include "shortcut/CShortCutTabBar.h"

#include <QPainter>
#include <QPainterPath>

namespace {

// In pixels.
constexpr int tabHeight = 37;
constexpr int tabMargins = 30; // both sides of the text
constexpr int barMargins = 50; // for the line beside the tabs

const QColor lineColor(115, 115, 128, 102);

// Along the bottom of the bar and around the tab, through the middles of the pixels at these coordinates.
QPainterPath outline(const QRect& bar, const QRect& tab)
{
    const int left = tab.left();
    const int top = tab.top();
    const int right = tab.right();
    const int bottom = tab.bottom();
    QPainterPath path(QPointF(0, bar.bottom()));
    path.lineTo(left - 1, bottom);
    path.cubicTo(left - 1, bottom, left + 2, bottom, left + 2, bottom - 3);
    path.lineTo(left + 2, top + 4);
    path.cubicTo(left + 2, top + 4, left + 2, top + 1, left + 5, top + 1);
    path.lineTo(right - 3, top + 1);
    path.cubicTo(right - 3, top + 1, right, top + 1, right, top + 4);
    path.lineTo(right, bottom - 3);
    path.cubicTo(right, bottom - 3, right, bottom, right + 3, bottom);
    path.lineTo(bar.right(), bar.bottom());
    return path;
}

} // namespace

CShortCutTabBar::CShortCutTabBar(QWidget* parent)
    : QTabBar(parent)
{
    setObjectName(QStringLiteral("ShortCut"));
    setDrawBase(false);  // the outline is the base
    setExpanding(false); // the tabs would take up the bar's margins
}

QSize CShortCutTabBar::sizeHint() const
{
    int width = barMargins;
    for (int tab = 0; tab < count(); ++tab)
        width += tabSizeHint(tab).width();
    return {width, QTabBar::sizeHint().height()};
}

QSize CShortCutTabBar::tabSizeHint(int index) const
{
    return {fontMetrics().horizontalAdvance(tabText(index)) + tabMargins, tabHeight};
}

void CShortCutTabBar::paintEvent(QPaintEvent* event)
{
    QTabBar::paintEvent(event);
    if (count() == 0)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(lineColor, 1, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    painter.translate(0.5, 0.5); // from the corners of the pixels, between which the line would blur
    painter.drawPath(outline(rect(), tabRect(currentIndex())));
}
