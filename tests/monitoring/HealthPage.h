#pragma once

#include "monitoring/CMonitoringSettings.h"
#include "tests/monitoring/Controls.h"

#include <widgetry/CCustomGroupBox.h>
#include <widgetry/CDoubleSpinBox.h>
#include <widgetry/CSpinBox.h>

#include <QCheckBox>
#include <QTimeEdit>

// An item of the page: its check box, and what is shown only while that is checked.
struct HealthItem
{
    const char* uncheckedText;
    const char* checkedText;
    bool SMonitorSettings::*flag;
};

// In the order of the page's numbers.
constexpr HealthItem healthItems[] = {
    {"Video input monitoring", "Video input alert", &SMonitorSettings::bVideoInput},
    {"Freeze monitoring", "Freeze alert", &SMonitorSettings::bFreeze},
    {"Blackout monitoring", "Blackout alert", &SMonitorSettings::bBlackout},
    {"0 brightness monitoring", "0 brightness alert", &SMonitorSettings::bZeroBrightness},
    {"Temperature monitoring", "Temperature over", &SMonitorSettings::bTemperature},
    {"Humidity monitoring", "Humidity over", &SMonitorSettings::bHumidity},
    {"Cable error monitoring", "Cable error alert", &SMonitorSettings::bCableError},
    {"Fan monitoring", "Fan status viewable", &SMonitorSettings::bFan},
    {"PSU 1 monitoring", "PSU 1 alert", &SMonitorSettings::bPsu1},
    {"PSU 2 monitoring", "PSU 2 alert", &SMonitorSettings::bPsu2},
    {"PSU 3 monitoring", "PSU 3 alert", &SMonitorSettings::bPsu3},
    {"PSU 4 monitoring", "PSU 4 alert", &SMonitorSettings::bPsu4},
    {"Voltage 1 monitoring", "Voltage 1 range", &SMonitorSettings::bVoltage1},
    {"Voltage 2 monitoring", "Voltage 2 range", &SMonitorSettings::bVoltage2},
    {"Voltage 3 monitoring", "Voltage 3 range", &SMonitorSettings::bVoltage3},
    {"Receiver voltage monitoring", "Receiver voltage range", &SMonitorSettings::bRcvVoltage},
};
constexpr int healthItemCount = 16;
constexpr int temperatureItem = 4;
constexpr int humidityItem = 5;
constexpr int voltageItem = 12; // the first of four

struct VoltageFields
{
    double SMonitorSettings::*lower;
    double SMonitorSettings::*upper;
};
constexpr VoltageFields voltageFields[] = {
    {&SMonitorSettings::dVoltage1Min, &SMonitorSettings::dVoltage1Max},
    {&SMonitorSettings::dVoltage2Min, &SMonitorSettings::dVoltage2Max},
    {&SMonitorSettings::dVoltage3Min, &SMonitorSettings::dVoltage3Max},
    {&SMonitorSettings::dRcvVoltageMin, &SMonitorSettings::dRcvVoltageMax},
};

// A record with all items watched, or none.
inline SMonitorSettings watching(bool all)
{
    SMonitorSettings settings;
    for (const HealthItem& item : healthItems)
        settings.*item.flag = all;
    return settings;
}

// The page and its controls, as the user sees them.
struct HealthPage
{
    HealthPage()
    {
        page.resize(1000, 700);
        page.show();
    }
    explicit HealthPage(const SMonitorSettings& settings)
        : HealthPage()
    {
        set(settings);
    }

    void set(const SMonitorSettings& settings) { page.setSettings(settings, {}); }
    SMonitorSettings settings() { return page.monitorSettings(); }

    // Whichever of its texts it shows.
    QCheckBox* box(int item) const
    {
        const auto boxes = page.findChildren<QCheckBox*>();
        for (QCheckBox* one : boxes) {
            if (one->text() == QLatin1String(healthItems[item].uncheckedText) ||
                one->text() == QLatin1String(healthItems[item].checkedText))
                return one;
        }
        qFatal("There is no item %d", item);
        return nullptr;
    }
    QTimeEdit* interval() const { return page.findChild<QTimeEdit*>(QStringLiteral("MonitorTimeEdit")); }
    CSpinBox* temperature() const { return named<CSpinBox>(page, "Temperature over"); }
    CSpinBox* humidity() const { return named<CSpinBox>(page, "Humidity over"); }
    CDoubleSpinBox* voltage(int range, const char* limit) const
    {
        const QByteArray name = QByteArray(healthItems[voltageItem + range].checkedText) + ", " + limit + " limit";
        return named<CDoubleSpinBox>(page, name.constData());
    }
    CDoubleSpinBox* lower(int range) const { return voltage(range, "lower"); }
    CDoubleSpinBox* upper(int range) const { return voltage(range, "upper"); }

    // The labels with the text, in the order in which they were made.
    QList<QLabel*> labels(const char* text) const
    {
        QList<QLabel*> found;
        const auto all = page.findChildren<QLabel*>();
        for (QLabel* label : all) {
            if (label->text() == QLatin1String(text))
                found.append(label);
        }
        return found;
    }

    // What shows only while the item is checked.
    QWidgetList dependents(int item) const
    {
        if (item == temperatureItem)
            return {temperature(), labels("alert").value(0)};
        if (item == humidityItem)
            return {humidity(), labels("alert").value(1)};
        if (item >= voltageItem) {
            const int range = item - voltageItem;
            return {lower(range), labels("~").value(range), upper(range)};
        }
        return {};
    }

    QRect place(const QWidget* widget) const { return {widget->mapTo(page.widget(), QPoint()), widget->size()}; }

    CMonitoringSettings page;
};
