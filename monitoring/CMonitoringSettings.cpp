#include "monitoring/CMonitoringSettings.h"

CMonitoringSettings::CMonitoringSettings(QWidget* parent)
    : CScrollArea(parent)
{
    setWidgetResizable(true);
}

void CMonitoringSettings::setSettings(const SMonitorSettings& monitoring, const SEmailSettings& email)
{
    m_monitoring = monitoring;
    m_email = email;
}

const SMonitorSettings& CMonitoringSettings::monitorSettings()
{
    return m_monitoring;
}

const SEmailSettings& CMonitoringSettings::emailSettings()
{
    return m_email;
}

void CMonitoringSettings::FahrenheitClicked(bool bChecked)
{
    m_bFahrenheit = bChecked;
}
