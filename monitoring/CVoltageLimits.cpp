#include "monitoring/CVoltageLimits.h"

#include <widgetry/CDoubleSpinBox.h>

#include <cmath>

namespace {

constexpr double lowest = 1.0;
constexpr double highest = 20.0;
constexpr double step = 0.1;
constexpr QSize boxSize(56, 24); // pixels

} // namespace

CVoltageLimits::CVoltageLimits(QWidget* group)
    : QObject(group),
      m_pLower(new CDoubleSpinBox(group)),
      m_pUpper(new CDoubleSpinBox(group))
{
    for (CDoubleSpinBox* const box : {m_pLower, m_pUpper}) {
        box->setDecimals(1);
        box->setSingleStep(step);
        box->setRange(lowest, highest);
        box->setSuffix(QStringLiteral("V"));
        box->setFixedSize(boxSize);
    }
    connect(m_pLower, &QDoubleSpinBox::textChanged, this, &CVoltageLimits::narrowUpper);
    connect(m_pUpper, &QDoubleSpinBox::textChanged, this, &CVoltageLimits::narrowLower);
}

void CVoltageLimits::setValues(double lowerLimit, double upperLimit)
{
    for (CDoubleSpinBox* const box : {m_pLower, m_pUpper})
        box->setRange(lowest, highest); // or what is shown would narrow what comes
    m_pLower->setValue(std::isnan(lowerLimit) ? lowest : lowerLimit);
    m_pUpper->setValue(std::isnan(upperLimit) ? highest : upperLimit);
    narrowUpper(); // a limit that was shown already has not done so
    narrowLower();
}

void CVoltageLimits::narrowUpper()
{
    m_pUpper->setRange(m_pLower->value(), highest);
}

void CVoltageLimits::narrowLower()
{
    m_pLower->setRange(lowest, m_pUpper->value());
}
