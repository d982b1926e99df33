#pragma once

#include "plugin/interface/SEmailSettings.h"
#include "plugin/interface/SMonitorSettings.h"

#include <widgetry/CScrollArea.h>

#include <QMap>

#include <initializer_list>

class CCustomGroupBox;
class CEmailWidget;
class CSpinBox;
class CVoltageLimits;
class QCheckBox;
class QLabel;
class QTimeEdit;

// The "Health settings" page: what is watched, its thresholds, and the alert mails. [GUI thread]
class CMonitoringSettings : public CScrollArea
{
    Q_OBJECT

public:
    explicit CMonitoringSettings(QWidget* parent = nullptr);

    // Shows the values, each at the nearest one that its control has. Temperatures are degrees Celsius, whatever unit
    // the page shows.
    void setSettings(const SMonitorSettings& monitoring, const SEmailSettings& email);

    // The values that the page shows; what it has no control for is as it was last set.
    const SMonitorSettings& monitorSettings();
    const SEmailSettings& emailSettings();

public Q_SLOTS:
    // Shows the temperature in Fahrenheit (true) or Celsius. Takes the number that is shown to be one of the other
    // unit: to be called when the unit changes, and only then.
    void FahrenheitClicked(bool bChecked);

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void createControls();
    void createReceiverControls();
    void createCheckBox(int item, QWidget* group);
    void createLabel(int label, QWidget* group);
    void createVoltageRange(int range);

    void layOut();
    void layOutReceiver();
    QLayout* listOf(std::initializer_list<int> items);
    QLayout* thresholdRow(int item, CSpinBox* threshold, int label);
    QLayout* voltageRow(int range);

    void connectControls();
    void setTexts();
    void setItemTexts();
    void showDependents(int item, bool isShown);
    void showTemperatureUnit();

    void loadCheckBox(int item);

    SMonitorSettings m_monitoring; // as last set or collected
    bool m_bFahrenheit = false;    // the unit of the temperature that is shown

    // By MonitoringItem.
    QMap<int, QCheckBox*> m_checkBoxes;
    QMap<int, QLabel*> m_labels;
    QMap<int, CVoltageLimits*> m_voltages; // by range, from Voltage1 on

    CCustomGroupBox* m_pGeneral = nullptr;
    CCustomGroupBox* m_pProcessor = nullptr;
    CCustomGroupBox* m_pReceiver = nullptr;
    CEmailWidget* m_pEmail = nullptr;
    QTimeEdit* m_pRefreshInterval = nullptr;
    CSpinBox* m_pTemperature = nullptr;
    CSpinBox* m_pHumidity = nullptr;
};
