#pragma once

#include <widgetry/WidgetryGlobal.h>

#include <QComboBox>

// A combo box that the wheel changes only while it has the keyboard focus, and whose list is as wide as its longest
// entry, however narrow the box is. [GUI thread]
class WIDGETRY_EXPORT CComboBox : public QComboBox
{
    Q_OBJECT

public:
    explicit CComboBox(QWidget* parent = nullptr);

    void showPopup() override;

protected:
    void wheelEvent(QWheelEvent* event) override;
};
