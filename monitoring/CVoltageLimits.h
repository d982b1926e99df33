#pragma once

#include <QObject>

class CDoubleSpinBox;
class QWidget;

// The two spin boxes of a voltage range, in volts. Neither can be set past the other. [GUI thread]
class CVoltageLimits : public QObject
{
    Q_OBJECT

public:
    // Creates the boxes in `group`, which owns them and this object.
    explicit CVoltageLimits(QWidget* group);

    CDoubleSpinBox* lower() const { return m_pLower; }
    CDoubleSpinBox* upper() const { return m_pUpper; }

    // Shows a range, whatever was shown before. A limit that is not a number becomes the widest there is; a lower one
    // above the upper one takes that along.
    void setValues(double lowerLimit, double upperLimit);

private:
    void narrowUpper();
    void narrowLower();

    CDoubleSpinBox* const m_pLower;
    CDoubleSpinBox* const m_pUpper;
};
