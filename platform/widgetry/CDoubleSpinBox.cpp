#include <widgetry/CDoubleSpinBox.h>

CDoubleSpinBox::CDoubleSpinBox(QWidget* parent)
    : SpinBoxBehaviour(parent)
{
}
