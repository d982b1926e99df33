#pragma once

#include <widgetry/WidgetryGlobal.h>

#include <QSpinBox>

// A spin box that the wheel changes only while it has the keyboard focus, so that scrolling a page over it
// changes nothing. Return and leaving the field commit what was typed. [GUI thread]
class WIDGETRY_EXPORT CSpinBox : public QSpinBox
{
    Q_OBJECT

public:
    explicit CSpinBox(QWidget* parent = nullptr);

protected:
    void wheelEvent(QWheelEvent* event) override;
};
