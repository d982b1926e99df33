#pragma once

#include "plugin/interface/SMonitorSettings.h"

#include <QCoreApplication>

// The numbered controls of the Health settings page.
namespace MonitoringItem {

enum : int
{
    VideoInput, // check boxes from here
    Freeze,
    Blackout,
    ZeroBrightness,
    Temperature,
    Humidity,
    CableError,
    Fan,
    Psu1,
    Psu2,
    Psu3,
    Psu4,
    Voltage1,
    Voltage2,
    Voltage3,
    ReceiverVoltage,
    RefreshIntervalLabel, // labels from here
    IntervalRangeLabel,
    TemperatureAlertLabel,
    HumidityAlertLabel,
    CableErrorHeading,
    ReceiverHeading,
    PowerSupplyHeading,
    VoltageHeading,
    TildeLabel, // one for each voltage
};

constexpr int checkBoxCount = ReceiverVoltage + 1;
constexpr int voltageCount = checkBoxCount - Voltage1;

struct CheckBox
{
    const char* uncheckedText;
    const char* checkedText;
    bool SMonitorSettings::*flag;
};

// By item.
inline constexpr CheckBox checkBoxes[checkBoxCount] = {
    {QT_TRANSLATE_NOOP("CMonitoringSettings", "Video input monitoring"),
     QT_TRANSLATE_NOOP("CMonitoringSettings", "Video input alert"), &SMonitorSettings::bVideoInput},
    {QT_TRANSLATE_NOOP("CMonitoringSettings", "Freeze monitoring"),
     QT_TRANSLATE_NOOP("CMonitoringSettings", "Freeze alert"), &SMonitorSettings::bFreeze},
    {QT_TRANSLATE_NOOP("CMonitoringSettings", "Blackout monitoring"),
     QT_TRANSLATE_NOOP("CMonitoringSettings", "Blackout alert"), &SMonitorSettings::bBlackout},
    {QT_TRANSLATE_NOOP("CMonitoringSettings", "0 brightness monitoring"),
     QT_TRANSLATE_NOOP("CMonitoringSettings", "0 brightness alert"), &SMonitorSettings::bZeroBrightness},
    {QT_TRANSLATE_NOOP("CMonitoringSettings", "Temperature monitoring"),
     QT_TRANSLATE_NOOP("CMonitoringSettings", "Temperature over"), &SMonitorSettings::bTemperature},
    {QT_TRANSLATE_NOOP("CMonitoringSettings", "Humidity monitoring"),
     QT_TRANSLATE_NOOP("CMonitoringSettings", "Humidity over"), &SMonitorSettings::bHumidity},
    {QT_TRANSLATE_NOOP("CMonitoringSettings", "Cable error monitoring"),
     QT_TRANSLATE_NOOP("CMonitoringSettings", "Cable error alert"), &SMonitorSettings::bCableError},
    {QT_TRANSLATE_NOOP("CMonitoringSettings", "Fan monitoring"),
     QT_TRANSLATE_NOOP("CMonitoringSettings", "Fan status viewable"), &SMonitorSettings::bFan},
    {QT_TRANSLATE_NOOP("CMonitoringSettings", "PSU 1 monitoring"),
     QT_TRANSLATE_NOOP("CMonitoringSettings", "PSU 1 alert"), &SMonitorSettings::bPsu1},
    {QT_TRANSLATE_NOOP("CMonitoringSettings", "PSU 2 monitoring"),
     QT_TRANSLATE_NOOP("CMonitoringSettings", "PSU 2 alert"), &SMonitorSettings::bPsu2},
    {QT_TRANSLATE_NOOP("CMonitoringSettings", "PSU 3 monitoring"),
     QT_TRANSLATE_NOOP("CMonitoringSettings", "PSU 3 alert"), &SMonitorSettings::bPsu3},
    {QT_TRANSLATE_NOOP("CMonitoringSettings", "PSU 4 monitoring"),
     QT_TRANSLATE_NOOP("CMonitoringSettings", "PSU 4 alert"), &SMonitorSettings::bPsu4},
    {QT_TRANSLATE_NOOP("CMonitoringSettings", "Voltage 1 monitoring"),
     QT_TRANSLATE_NOOP("CMonitoringSettings", "Voltage 1 range"), &SMonitorSettings::bVoltage1},
    {QT_TRANSLATE_NOOP("CMonitoringSettings", "Voltage 2 monitoring"),
     QT_TRANSLATE_NOOP("CMonitoringSettings", "Voltage 2 range"), &SMonitorSettings::bVoltage2},
    {QT_TRANSLATE_NOOP("CMonitoringSettings", "Voltage 3 monitoring"),
     QT_TRANSLATE_NOOP("CMonitoringSettings", "Voltage 3 range"), &SMonitorSettings::bVoltage3},
    {QT_TRANSLATE_NOOP("CMonitoringSettings", "Receiver voltage monitoring"),
     QT_TRANSLATE_NOOP("CMonitoringSettings", "Receiver voltage range"), &SMonitorSettings::bRcvVoltage},
};

// The texts of the labels that have one to translate, from RefreshIntervalLabel on.
inline constexpr const char* labelTexts[TildeLabel - RefreshIntervalLabel] = {
    QT_TRANSLATE_NOOP("CMonitoringSettings", "Refresh interval"),
    QT_TRANSLATE_NOOP("CMonitoringSettings", "(Interval range 10s~2h)"),
    QT_TRANSLATE_NOOP("CMonitoringSettings", "alert"),
    QT_TRANSLATE_NOOP("CMonitoringSettings", "alert"),
    QT_TRANSLATE_NOOP("CMonitoringSettings", "Cable error"),
    QT_TRANSLATE_NOOP("CMonitoringSettings", "Receiver"),
    QT_TRANSLATE_NOOP("CMonitoringSettings", "Power supply monitoring"),
    QT_TRANSLATE_NOOP("CMonitoringSettings", "Voltage monitoring"),
};

struct VoltageRange
{
    double SMonitorSettings::*lower;
    double SMonitorSettings::*upper;
};

// By voltage, from Voltage1 on.
inline constexpr VoltageRange voltageRanges[voltageCount] = {
    {&SMonitorSettings::dVoltage1Min, &SMonitorSettings::dVoltage1Max},
    {&SMonitorSettings::dVoltage2Min, &SMonitorSettings::dVoltage2Max},
    {&SMonitorSettings::dVoltage3Min, &SMonitorSettings::dVoltage3Max},
    {&SMonitorSettings::dRcvVoltageMin, &SMonitorSettings::dRcvVoltageMax},
};

} // namespace MonitoringItem
