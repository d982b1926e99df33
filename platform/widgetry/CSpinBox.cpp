#include <widgetry/CSpinBox.h>

CSpinBox::CSpinBox(QWidget* parent)
    : SpinBoxBehaviour(parent)
{
}
