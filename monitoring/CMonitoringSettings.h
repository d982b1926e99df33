#pragma once

#include "plugin/interface/SEmailSettings.h"
#include "plugin/interface/SMonitorSettings.h"

#include <widgetry/CScrollArea.h>

// The "Health settings" page: what is watched, its thresholds, and the alert mails. [GUI thread]
class CMonitoringSettings : public CScrollArea
{
    Q_OBJECT

public:
    explicit CMonitoringSettings(QWidget* parent = nullptr);

    // Shows the values. Temperatures are degrees Celsius, whatever unit the page shows.
    void setSettings(const SMonitorSettings& monitoring, const SEmailSettings& email);

    // The values that the page shows; what it has no control for is as it was last set.
    const SMonitorSettings& monitorSettings();
    const SEmailSettings& emailSettings();

    // Shows temperatures in Fahrenheit (true) or Celsius.
    void FahrenheitClicked(bool bChecked);

private:
    SMonitorSettings m_monitoring;
    SEmailSettings m_email;
    bool m_bFahrenheit = false;
};
