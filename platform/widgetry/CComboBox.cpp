#include <widgetry/CComboBox.h>

#include <QAbstractItemView>
#include <QScreen>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>

CComboBox::CComboBox(QWidget* parent)
    : QComboBox(parent)
{
    setFocusPolicy(Qt::StrongFocus);
}

void CComboBox::showPopup()
{
    const int barWidth = count() > maxVisibleItems() ? view()->verticalScrollBar()->sizeHint().width() : 0;
    const int width = view()->sizeHintForColumn(modelColumn()) + barWidth + 2 * view()->frameWidth();
    view()->setMinimumWidth(std::min(width, screen()->availableSize().width()));
    QComboBox::showPopup();
}

void CComboBox::wheelEvent(QWheelEvent* event)
{
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}
