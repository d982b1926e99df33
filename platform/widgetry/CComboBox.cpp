#include <widgetry/CComboBox.h>

#include <QAbstractItemView>
#include <QWheelEvent>

CComboBox::CComboBox(QWidget* parent)
    : QComboBox(parent)
{
    setFocusPolicy(Qt::StrongFocus);
}

void CComboBox::showPopup()
{
    view()->setMinimumWidth(view()->sizeHintForColumn(modelColumn()));
    QComboBox::showPopup();
}

void CComboBox::wheelEvent(QWheelEvent* event)
{
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}
