#pragma once

#include <widgetry/WidgetryGlobal.h>

#include <QDoubleSpinBox>

// A spin box for fractions that the wheel changes only while it has the keyboard focus, so that scrolling a page over
// it changes nothing. Return and leaving the field commit what was typed. [GUI thread]
class WIDGETRY_EXPORT CDoubleSpinBox : public QDoubleSpinBox
{
    Q_OBJECT

public:
    explicit CDoubleSpinBox(QWidget* parent = nullptr);

protected:
    void wheelEvent(QWheelEvent* event) override;
};
