#include <widgetry/CDoubleSpinBox.h>

#include <QWheelEvent>

CDoubleSpinBox::CDoubleSpinBox(QWidget* parent)
    : QDoubleSpinBox(parent)
{
    setFocusPolicy(Qt::StrongFocus);
}

void CDoubleSpinBox::wheelEvent(QWheelEvent* event)
{
    if (hasFocus())
        QDoubleSpinBox::wheelEvent(event);
    else
        event->ignore();
}
