#pragma once

#include <cstdint>

// Which health conditions are watched and their thresholds. Temperatures are degrees Celsius, whatever unit the page
// shows. The flags bMonitorFlag1 .. bMonitorFlag4 and the fourth voltage entry are the host's: no page shows them.
struct SMonitorSettings
{
    std::int32_t nRefreshInterval = 10; // seconds, 10 .. 7200
    bool bVideoInput = true;
    bool bFreeze = true;
    bool bBlackout = true;
    bool bZeroBrightness = true;
    bool bCableError = false;
    bool bMonitorFlag1 = true;
    bool bTemperature = true;
    std::int32_t nTemperature = 60; // degrees Celsius, 20 .. 100
    bool bHumidity = true;
    std::int32_t nHumidity = 85; // percent, 20 .. 100
    bool bMonitorFlag2 = false;
    bool bFan = false;
    bool bMonitorFlag3 = false;
    bool bPsu1 = true;
    bool bPsu2 = true;
    bool bPsu3 = true;
    bool bPsu4 = true;
    // Voltage ranges in volts, 1.0 .. 20.0, the lower limit never above the upper one.
    bool bVoltage1 = false;
    double dVoltage1Min = 5.0;
    double dVoltage1Max = 12.0;
    bool bVoltage2 = false;
    double dVoltage2Min = 5.0;
    double dVoltage2Max = 12.0;
    bool bVoltage3 = false;
    double dVoltage3Min = 5.0;
    double dVoltage3Max = 12.0;
    // Carried for the host and never given a value by the plug-in; zero only so that nobody reads garbage.
    bool bVoltage4 = false;
    double dVoltage4Min = 0.0;
    double dVoltage4Max = 0.0;
    bool bRcvVoltage = false;
    double dRcvVoltageMin = 5.0;
    double dRcvVoltageMax = 12.0;
    bool bMonitorFlag4 = false;
};
