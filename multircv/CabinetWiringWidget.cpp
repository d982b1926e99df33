#include "multircv/CabinetWiringWidget.h"

#include <QKeyEvent>
#include <QLineF>
#include <QMouseEvent>
#include <QPainter>

namespace {

constexpr QSize areaSize(313, 174);

constexpr QColor backgroundColor(12, 12, 13);
constexpr QColor cellColor(252, 120, 0);
constexpr QColor lineColor(255, 245, 0);
constexpr QColor endColor(219, 255, 0);
constexpr qreal lineWidth = 0.5;

void drawCells(QPainter& painter, const QVector<WiringGrid::Cell>& cells)
{
    painter.setPen(QPen(lineColor, lineWidth));
    painter.setBrush(cellColor);
    for (const WiringGrid::Cell& cell : cells)
        painter.drawRect(cell.box);
}

void drawArrow(QPainter& painter, const QLineF& line)
{
    static const QPolygonF arrow({{0, 0}, {-6.5, 8}, {6.5, 8}});
    painter.save();
    painter.setPen(Qt::NoPen);
    painter.setBrush(lineColor);
    painter.translate(line.center());
    painter.rotate(90 - line.angle());
    painter.drawPolygon(arrow);
    painter.restore();
}

void drawPath(QPainter& painter, const QVector<QPoint>& path, bool showDirection)
{
    if (path.isEmpty())
        return;
    painter.setPen(QPen(lineColor, lineWidth, Qt::DashLine));
    for (int i = 1; i < path.size(); ++i)
        painter.drawLine(path.at(i - 1), path.at(i));
    for (int i = 1; showDirection && i < path.size(); ++i)
        drawArrow(painter, QLineF(path.at(i - 1), path.at(i)));

    painter.setPen(Qt::NoPen);
    painter.setBrush(endColor);
    const QRect end(-4, -4, 8, 8);
    painter.drawEllipse(end.translated(path.first()));
    if (path.size() > 1) // drawn twice, the edge of a circle gets harder
        painter.drawEllipse(end.translated(path.last()));
}

void drawCursor(QPainter& painter, const QRect& cell)
{
    painter.setPen(QPen(backgroundColor, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(cell.adjusted(4, 4, -4, -4));
}

} // namespace

CabinetWiringWidget::CabinetWiringWidget(QWidget* parent)
    : QWidget(parent)
{
    setFixedSize(areaSize);
    setGridSize(2, 1);
}

void CabinetWiringWidget::setGridSize(int columns, int rows)
{
    m_grid.setGridSize(columns, rows, areaSize);
    m_cursor = 0;
    // Not by a click: the frame is for those who use the keyboard.
    setFocusPolicy(m_grid.hasChoice() ? Qt::TabFocus : Qt::NoFocus);
    update();
}

void CabinetWiringWidget::setTopology(int topology)
{
    m_grid.setTopology(topology);
    notify();
}

void CabinetWiringWidget::setWiring(const QList<int>& ids)
{
    m_grid.setWiring(ids);
    notify();
}

void CabinetWiringWidget::setShowDirection(bool show)
{
    m_bShowDirection = show;
    update();
}

void CabinetWiringWidget::mousePressEvent(QMouseEvent* event)
{
    const int cell = m_grid.hasChoice() ? m_grid.cellAt(event->localPos().toPoint()) : -1;
    if (cell < 0)
        return;
    const bool changed = (event->button() == Qt::LeftButton && m_grid.wire(cell)) ||
                         (event->button() == Qt::RightButton && m_grid.unwire(cell));
    if (changed)
        notify();
}

void CabinetWiringWidget::keyPressEvent(QKeyEvent* event)
{
    if (!m_grid.hasChoice() || (event->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) {
        QWidget::keyPressEvent(event);
        return;
    }
    bool changed = false;
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        changed = m_grid.wire(m_cursor);
        break;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        changed = m_grid.unwire(m_cursor);
        break;
    default:
        if (!moveCursor(event->key()))
            QWidget::keyPressEvent(event);
    }
    if (changed)
        notify();
}

// False if the key is not an arrow. At the edge of the grid the frame stays where it is.
bool CabinetWiringWidget::moveCursor(int key)
{
    int column = m_cursor % m_grid.columns();
    int row = m_cursor / m_grid.columns();
    switch (key) {
    case Qt::Key_Left:
        --column;
        break;
    case Qt::Key_Right:
        ++column;
        break;
    case Qt::Key_Up:
        --row;
        break;
    case Qt::Key_Down:
        ++row;
        break;
    default:
        return false;
    }
    m_cursor = qBound(0, row, m_grid.rows() - 1) * m_grid.columns() + qBound(0, column, m_grid.columns() - 1);
    update();
    return true;
}

void CabinetWiringWidget::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), backgroundColor);
    drawCells(painter, m_grid.cells());
    drawPath(painter, m_grid.path(), m_bShowDirection);
    if (hasFocus() && m_grid.hasChoice())
        drawCursor(painter, m_grid.cells().at(m_cursor).box);
}

void CabinetWiringWidget::notify()
{
    update();
    Q_EMIT notifyWiringCouldClear(m_grid.hasWiredCell());
}
