#pragma once

#include <widgetry/SpinBoxBehaviour.h>
#include <widgetry/WidgetryGlobal.h>

#include <QDoubleSpinBox>

// A spin box for fractions that the wheel changes only while it has the keyboard focus, so that scrolling a page over
// it changes nothing. Return and leaving the field commit what was typed. Where the box is too narrow for its widest
// value and the buttons, the buttons go. [GUI thread]
class WIDGETRY_EXPORT CDoubleSpinBox : public SpinBoxBehaviour<QDoubleSpinBox>
{
    Q_OBJECT

public:
    explicit CDoubleSpinBox(QWidget* parent = nullptr);
};
