#pragma once

#include <widgetry/SpinBoxBehaviour.h>
#include <widgetry/WidgetryGlobal.h>

#include <QSpinBox>

// A spin box that the wheel changes only while it has the keyboard focus, so that scrolling a page over it changes
// nothing. Return and leaving the field commit what was typed. Where the box is too narrow for its widest value and
// the buttons, the buttons go. [GUI thread]
class WIDGETRY_EXPORT CSpinBox : public SpinBoxBehaviour<QSpinBox>
{
    Q_OBJECT

public:
    explicit CSpinBox(QWidget* parent = nullptr);
};
