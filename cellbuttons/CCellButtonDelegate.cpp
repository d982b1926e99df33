#include "cellbuttons/CCellButtonDelegate.h"

#include <widgetry/CToolTip.h>

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>

namespace {

// In pixels, from the top left corner of the cell.
constexpr QPoint firstButton(8, 6);
constexpr int buttonSize = 16;
constexpr int buttonGap = 8;

constexpr int noButton = -1;
constexpr double dimmed = 0.4;

// The position in units of the painter that is at its nearest corner of device pixels. From there pictures are as sharp
// at 110 % as at 100 %.
QPointF onDevicePixels(const QPainter& painter, const QPoint& position)
{
    const QTransform& toDevice = painter.deviceTransform();
    return toDevice.inverted().map(QPointF(toDevice.map(QPointF(position)).toPoint()));
}

} // namespace

CCellButtonDelegate::CCellButtonDelegate(const QVector<QIcon>& icons, QAbstractItemView* view)
    : QStyledItemDelegate(view),
      m_icons(icons),
      m_pView(view),
      m_pViewport(view->viewport()),
      m_mouse(-1, -1)
{
    // The view tells its delegates neither that the mouse is in a cell of another one nor of a release elsewhere.
    m_pViewport->installEventFilter(this);
    m_pViewport->setMouseTracking(true);
    m_pViewport->setAttribute(Qt::WA_Hover);
}

QIcon CCellButtonDelegate::operationIcon(const QString& operation)
{
    const QString file = QStringLiteral(":/Image/OperateButton/%1_%2.svg");
    QIcon icon(file.arg(operation, QStringLiteral("normal")));
    icon.addFile(file.arg(operation, QStringLiteral("hover")), {}, QIcon::Active);
    icon.addFile(file.arg(operation, QStringLiteral("pressed")), {}, QIcon::Active, QIcon::On);
    return icon;
}

void CCellButtonDelegate::setEnabled(bool enabled)
{
    m_bEnabled = enabled;
    setPressed({}, noButton);
    m_pViewport->update();
}

QRect CCellButtonDelegate::buttonRect(const QRect& cell, int button)
{
    return {cell.topLeft() + firstButton + QPoint(button * (buttonSize + buttonGap), 0), QSize(buttonSize, buttonSize)};
}

void CCellButtonDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);

    const bool isEnabled = m_bEnabled && option.state.testFlag(QStyle::State_Enabled);
    const bool isUnderMouse = isEnabled && option.state.testFlag(QStyle::State_MouseOver);
    const int pressed = m_pressedIndex == index ? m_nPressedButton : noButton;
    const int hovered = isUnderMouse && m_nPressedButton == noButton ? buttonAt(m_mouse, option.rect) : noButton;
    painter->save();
    painter->setClipRect(option.rect, Qt::IntersectClip);
    painter->setRenderHint(QPainter::Antialiasing);
    if (!isEnabled)
        painter->setOpacity(dimmed);
    for (int button = 0; button < m_icons.size(); ++button) {
        const QPointF corner = onDevicePixels(*painter, buttonRect(option.rect, button).topLeft());
        painter->translate(corner);
        m_icons.at(button).paint(painter, 0, 0, buttonSize, buttonSize, Qt::AlignCenter,
                                 button == hovered || button == pressed ? QIcon::Active : QIcon::Normal,
                                 button == pressed ? QIcon::On : QIcon::Off);
        painter->translate(-corner);
    }
    painter->restore();
}

bool CCellButtonDelegate::editorEvent(QEvent* event, QAbstractItemModel* /*model*/, const QStyleOptionViewItem& option,
                                      const QModelIndex& index)
{
    const QEvent::Type type = event->type();
    // What would be the second press of a double click on the row is a press on a button.
    const bool isPress = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
    if (!m_bEnabled || (!isPress && type != QEvent::MouseButtonRelease && type != QEvent::MouseMove))
        return false;
    const auto* const mouse = static_cast<QMouseEvent*>(event);
    const int button = index.isValid() ? buttonAt(mouse->localPos().toPoint(), option.rect) : noButton;

    if (isPress) {
        setPressed(index, mouse->button() == Qt::LeftButton ? button : noButton);
        return type == QEvent::MouseButtonDblClick && button != noButton;
    }
    if (m_nPressedButton == noButton)
        return false;
    if (type == QEvent::MouseMove)
        return mouse->buttons().testFlag(Qt::LeftButton); // the selection is not dragged along
    if (mouse->button() != Qt::LeftButton)
        return false;
    const bool isClick = m_pressedIndex == index && m_nPressedButton == button;
    setPressed({}, noButton);
    if (isClick)
        clicked(index, button); // this object may be gone afterwards
    return true;
}

bool CCellButtonDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                                    const QModelIndex& index)
{
    const int button = buttonAt(event->pos(), option.rect);
    if (event->type() != QEvent::ToolTip || button == noButton)
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    CToolTip::showText(event->globalPos(), toolTip(button), view->viewport(), buttonRect(option.rect, button));
    return true;
}

bool CCellButtonDelegate::eventFilter(QObject* watched, QEvent* event)
{
    // As a delegate, this object also filters the events of editors. The view may be in its destructor.
    if (watched != m_pViewport)
        return QStyledItemDelegate::eventFilter(watched, event);

    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove: {
        const QPoint position = static_cast<QMouseEvent*>(event)->localPos().toPoint();
        setMousePosition(position);
        const QModelIndex index = cellAt(position);
        QStyleOptionViewItem option;
        option.rect = m_pView->visualRect(index);
        return editorEvent(event, m_pView->model(), option, index);
    }
    default:
        return false;
    }
}

void CCellButtonDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    option->text.clear();
    option->icon = {};
    option->features &= ~(QStyleOptionViewItem::HasDisplay | QStyleOptionViewItem::HasDecoration);
}

int CCellButtonDelegate::buttonAt(const QPoint& position, const QRect& cell) const
{
    for (int button = 0; button < m_icons.size(); ++button) {
        if ((buttonRect(cell, button) & cell).contains(position))
            return button;
    }
    return noButton;
}

QModelIndex CCellButtonDelegate::cellAt(const QPoint& position) const
{
    const QModelIndex index = m_pView->indexAt(position);
    return index.isValid() && m_pView->itemDelegate(index) == this ? index : QModelIndex();
}

// Paints again what looks different with the mouse there.
void CCellButtonDelegate::setMousePosition(const QPoint& position)
{
    const QModelIndex oldCell = cellAt(m_mouse);
    const QModelIndex newCell = cellAt(position);
    const int oldButton = buttonAt(m_mouse, m_pView->visualRect(oldCell));
    const int newButton = buttonAt(position, m_pView->visualRect(newCell));
    m_mouse = position;
    if (oldButton != newButton || oldCell != newCell) {
        m_pView->update(oldCell);
        m_pView->update(newCell);
    }
}

void CCellButtonDelegate::setPressed(const QModelIndex& index, int button)
{
    m_pView->update(m_pressedIndex);
    m_pressedIndex = button == noButton ? QModelIndex() : index;
    m_nPressedButton = button;
    m_pView->update(m_pressedIndex);
}
