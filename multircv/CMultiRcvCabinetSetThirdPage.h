#pragma once

#include "plugin/interface/SHwRcvInCabinetInfo.h"

#include <QMap>
#include <QWidget>

class CDoubleSpinBox;
class QLabel;
class QLineEdit;

// The wizard's third step: the name and the label of the cabinet. [GUI thread]
class CMultiRcvCabinetSetThirdPage : public QWidget
{
    Q_OBJECT

public:
    enum Value
    {
        Weight,     // kilograms
        Power,      // watts
        VoltageMin, // volts
        VoltageMax,
    };

    // Starts from the record's values, all zero for a new type, and from the name of the type that is edited, empty
    // for a new one. That name stays possible even when it holds characters that cannot be typed.
    CMultiRcvCabinetSetThirdPage(const SHwRcvInCabinetInfo& record, const QString& typeName, QWidget* parent = nullptr);

    QString typeName() const;

    // 0 .. 9999999999. A value that the user has left alone is the record's, with all the digits that are not shown.
    double value(Value value) const;

protected:
    void changeEvent(QEvent* event) override;

private:
    struct Box
    {
        CDoubleSpinBox* pBox = nullptr;
        double stored = 0; // the value that the box started from
        double shown = 0;  // and how it shows that
    };

    void createWidgets(const QString& typeName);
    void addBox(Value value, float stored);
    void layoutWidgets();
    void setTexts();

    QLineEdit* m_pTypeName = nullptr;
    QMap<int, QLabel*> m_labels; // by row
    QMap<int, Box> m_boxes;      // by Value
};
