#include "monitoring/CMonitoringSettings.h"

#include "monitoring/CEmailWidget.h"
#include "monitoring/CVoltageLimits.h"
#include "monitoring/MonitoringItems.h"
#include "monitoring/Temperature.h"

#include <widgetry/CCustomGroupBox.h>
#include <widgetry/CDoubleSpinBox.h>
#include <widgetry/CSeparator.h>
#include <widgetry/CSpinBox.h>

#include <QCheckBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QTimeEdit>

#include <algorithm>

using namespace MonitoringItem;

namespace {

// Seconds.
constexpr int shortestInterval = 10;
constexpr int longestInterval = 7200;

// Degrees Celsius, and percent.
constexpr int lowestThreshold = 20;
constexpr int highestThreshold = 100;

// In pixels.
constexpr QSize intervalSize(100, 24);
constexpr QSize spinBoxSize(56, 24);
constexpr int tallCheckBox = 24; // as high as the spin boxes beside it
constexpr int indent = 16;
constexpr int groupSpacing = 12;
constexpr int sectionSpacing = 8;
constexpr int rowSpacing = 8;
constexpr int listSpacing = 4;
constexpr int checkBoxSpacing = 6; // in lists of nothing else
constexpr int voltageSpacing = 35; // between check box and limits
constexpr int receiverVoltageSpacing = 30;

QHBoxLayout* newRow()
{
    auto* const row = new QHBoxLayout;
    row->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    row->setSpacing(rowSpacing);
    return row;
}

QVBoxLayout* newList()
{
    auto* const list = new QVBoxLayout;
    list->setContentsMargins(indent, 0, 0, 0);
    return list;
}

QTime timeOf(int seconds)
{
    return QTime(0, 0).addSecs(std::clamp(seconds, shortestInterval, longestInterval));
}

CSpinBox* createThreshold(QWidget* group)
{
    auto* const box = new CSpinBox(group);
    box->setRange(lowestThreshold, highestThreshold);
    box->setFixedSize(spinBoxSize);
    return box;
}

} // namespace

CMonitoringSettings::CMonitoringSettings(QWidget* parent)
    : CScrollArea(parent, Qt::ScrollBarAsNeeded, Qt::ScrollBarAsNeeded)
{
    createControls();
    layOut();
    connectControls();
    setTexts();
}

// The order of creation is that of the tab key.
void CMonitoringSettings::createControls()
{
    setWidget(new QWidget(this));
    setWidgetResizable(true);
    m_pGeneral = new CCustomGroupBox({}, widget());
    m_pProcessor = new CCustomGroupBox({}, widget());
    m_pReceiver = new CCustomGroupBox({}, widget());

    createLabel(RefreshIntervalLabel, m_pGeneral);
    m_pRefreshInterval = new QTimeEdit(m_pGeneral);
    m_pRefreshInterval->setObjectName(QStringLiteral("MonitorTimeEdit"));
    m_pRefreshInterval->setDisplayFormat(QStringLiteral("HH'h ': mm'm' : ss's'"));
    m_pRefreshInterval->setTimeSpec(Qt::LocalTime);
    m_pRefreshInterval->setTimeRange(timeOf(shortestInterval), timeOf(longestInterval));
    m_pRefreshInterval->setFixedSize(intervalSize);
    m_pRefreshInterval->setFocusPolicy(Qt::StrongFocus);
    m_pRefreshInterval->installEventFilter(this);
    m_labels[RefreshIntervalLabel]->setBuddy(m_pRefreshInterval);
    createLabel(IntervalRangeLabel, m_pGeneral);

    for (const int item : {VideoInput, Freeze, Blackout, ZeroBrightness})
        createCheckBox(item, m_pProcessor);
    createReceiverControls();
    m_pEmail = new CEmailWidget({}, widget());
}

void CMonitoringSettings::createReceiverControls()
{
    for (const int heading : {CableErrorHeading, ReceiverHeading, PowerSupplyHeading, VoltageHeading}) {
        createLabel(heading, m_pReceiver);
        m_labels[heading]->setObjectName(QStringLiteral("Highlight"));
    }
    createCheckBox(CableError, m_pReceiver);
    createCheckBox(Temperature, m_pReceiver);
    m_pTemperature = createThreshold(m_pReceiver);
    createLabel(TemperatureAlertLabel, m_pReceiver);
    createCheckBox(Humidity, m_pReceiver);
    m_pHumidity = createThreshold(m_pReceiver);
    m_pHumidity->setSuffix(QStringLiteral("%"));
    createLabel(HumidityAlertLabel, m_pReceiver);
    for (const int item : {Fan, Psu1, Psu2, Psu3, Psu4})
        createCheckBox(item, m_pReceiver);
    for (int range = 0; range < voltageCount; ++range)
        createVoltageRange(range);
    for (const int item : {Temperature, Humidity, Fan, Voltage1, Voltage2, Voltage3, ReceiverVoltage})
        m_checkBoxes[item]->setFixedHeight(tallCheckBox);
    for (int item = 0; item < checkBoxCount; ++item)
        showDependents(item, false);
    showTemperatureUnit();
}

void CMonitoringSettings::createCheckBox(int item, QWidget* group)
{
    m_checkBoxes[item] = new QCheckBox(group);
}

void CMonitoringSettings::createLabel(int label, QWidget* group)
{
    m_labels[label] = new QLabel(group);
}

void CMonitoringSettings::createVoltageRange(int range)
{
    createCheckBox(Voltage1 + range, m_pReceiver);
    m_voltages[range] = new CVoltageLimits(m_pReceiver);
    createLabel(TildeLabel + range, m_pReceiver);
    m_labels[TildeLabel + range]->setText(QStringLiteral("~"));
}

void CMonitoringSettings::layOut()
{
    QBoxLayout* const interval = newRow();
    interval->setContentsMargins(indent, 0, 0, 0);
    interval->addWidget(m_labels[RefreshIntervalLabel]);
    interval->addWidget(m_pRefreshInterval);
    interval->addWidget(m_labels[IntervalRangeLabel]);
    m_pGeneral->addCustomLayout(interval);

    QLayout* const processor = listOf({VideoInput, Freeze, Blackout, ZeroBrightness});
    processor->setContentsMargins(indent, listSpacing, 0, listSpacing);
    m_pProcessor->addCustomLayout(processor);
    layOutReceiver();

    auto* const layout = new QVBoxLayout(widget());
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(groupSpacing);
    for (QWidget* const group : {m_pGeneral, m_pProcessor, m_pReceiver, static_cast<CCustomGroupBox*>(m_pEmail)})
        layout->addWidget(group);
    layout->addStretch(0);
}

void CMonitoringSettings::layOutReceiver()
{
    auto* const receiver = newList();
    receiver->setSpacing(listSpacing);
    receiver->addLayout(thresholdRow(Temperature, m_pTemperature, TemperatureAlertLabel));
    receiver->addLayout(thresholdRow(Humidity, m_pHumidity, HumidityAlertLabel));
    receiver->addWidget(m_checkBoxes[Fan]);

    auto* const voltages = newList();
    voltages->setSpacing(listSpacing);
    for (int range = 0; range < voltageCount; ++range)
        voltages->addLayout(voltageRow(range));

    auto* const sections = new QVBoxLayout;
    sections->setSpacing(sectionSpacing);
    const auto addSection = [&](int heading, QLayout* content) {
        if (sections->count() > 0)
            sections->addWidget(new CSeparator(0, QFrame::HLine, m_pReceiver));
        sections->addWidget(m_labels[heading]);
        sections->addLayout(content);
    };
    addSection(CableErrorHeading, listOf({CableError}));
    addSection(ReceiverHeading, receiver);
    addSection(PowerSupplyHeading, listOf({Psu1, Psu2, Psu3, Psu4}));
    addSection(VoltageHeading, voltages);
    m_pReceiver->addCustomLayout(sections);
}

QLayout* CMonitoringSettings::listOf(std::initializer_list<int> items)
{
    QBoxLayout* const list = newList();
    list->setSpacing(checkBoxSpacing); // not that of the layout around it, which differs
    for (const int item : items)
        list->addWidget(m_checkBoxes[item]);
    return list;
}

QLayout* CMonitoringSettings::thresholdRow(int item, CSpinBox* threshold, int label)
{
    QBoxLayout* const row = newRow();
    row->addWidget(m_checkBoxes[item]);
    row->addWidget(threshold);
    row->addWidget(m_labels[label]);
    row->addStretch(1);
    return row;
}

QLayout* CMonitoringSettings::voltageRow(int range)
{
    const int item = Voltage1 + range;
    QBoxLayout* const row = newRow();
    row->addWidget(m_checkBoxes[item]);
    row->addSpacing(item == ReceiverVoltage ? receiverVoltageSpacing : voltageSpacing);
    row->addWidget(m_voltages[range]->lower());
    row->addWidget(m_labels[TildeLabel + range]);
    row->addWidget(m_voltages[range]->upper());
    return row;
}

void CMonitoringSettings::connectControls()
{
    for (auto box = m_checkBoxes.cbegin(); box != m_checkBoxes.cend(); ++box) {
        connect(box.value(), &QCheckBox::stateChanged, this, [this, item = box.key()](int state) {
            setItemTexts();
            showDependents(item, state == Qt::Checked);
        });
    }
}

void CMonitoringSettings::setSettings(const SMonitorSettings& monitoring, const SEmailSettings& email)
{
    m_monitoring = monitoring;
    m_pRefreshInterval->setTime(timeOf(monitoring.nRefreshInterval));
    for (const int item : {VideoInput, Freeze, Blackout, ZeroBrightness, CableError, Temperature})
        loadCheckBox(item);
    m_pTemperature->setValue(m_bFahrenheit ? fahrenheitFromCelsius(monitoring.nTemperature) : monitoring.nTemperature);
    loadCheckBox(Humidity);
    m_pHumidity->setValue(monitoring.nHumidity);
    for (const int item : {Fan, Psu1, Psu2, Psu3, Psu4})
        loadCheckBox(item);
    for (int range = 0; range < voltageCount; ++range) {
        loadCheckBox(Voltage1 + range);
        m_voltages[range]->setValues(monitoring.*voltageRanges[range].lower, monitoring.*voltageRanges[range].upper);
    }
    m_pEmail->setSettings(email);
    setTexts();
}

const SMonitorSettings& CMonitoringSettings::monitorSettings()
{
    m_monitoring.nRefreshInterval = m_pRefreshInterval->time().msecsSinceStartOfDay() / 1000;
    for (int item = 0; item < checkBoxCount; ++item)
        m_monitoring.*checkBoxes[item].flag = m_checkBoxes[item]->isChecked();
    const int temperature = m_pTemperature->value();
    m_monitoring.nTemperature = m_bFahrenheit ? celsiusFromFahrenheit(temperature) : temperature;
    m_monitoring.nHumidity = m_pHumidity->value();
    for (int range = 0; range < voltageCount; ++range) {
        m_monitoring.*voltageRanges[range].lower = m_voltages[range]->lower()->value();
        m_monitoring.*voltageRanges[range].upper = m_voltages[range]->upper()->value();
    }
    return m_monitoring;
}

const SEmailSettings& CMonitoringSettings::emailSettings()
{
    return m_pEmail->settings();
}

void CMonitoringSettings::FahrenheitClicked(bool bChecked)
{
    const int shown = m_pTemperature->value();
    m_bFahrenheit = bChecked;
    showTemperatureUnit();
    m_pTemperature->setValue(bChecked ? fahrenheitFromCelsius(shown) : celsiusFromFahrenheit(shown));
}

void CMonitoringSettings::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        setTexts();
    CScrollArea::changeEvent(event);
}

// Turning the wheel over the page scrolls it and changes nothing, until the user is in the interval.
bool CMonitoringSettings::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_pRefreshInterval && event->type() == QEvent::Wheel && !m_pRefreshInterval->hasFocus()) {
        event->ignore();
        return true;
    }
    return CScrollArea::eventFilter(watched, event);
}

void CMonitoringSettings::loadCheckBox(int item)
{
    m_checkBoxes[item]->setChecked(m_monitoring.*checkBoxes[item].flag);
}

void CMonitoringSettings::showTemperatureUnit()
{
    if (m_bFahrenheit)
        m_pTemperature->setRange(fahrenheitFromCelsius(lowestThreshold), fahrenheitFromCelsius(highestThreshold));
    else
        m_pTemperature->setRange(lowestThreshold, highestThreshold);
    m_pTemperature->setSuffix(m_bFahrenheit ? QStringLiteral("\u00b0F") : QStringLiteral("\u00b0C"));
}

// The controls that make sense only while the check box is checked.
void CMonitoringSettings::showDependents(int item, bool isShown)
{
    QWidgetList dependents;
    if (item == Temperature) {
        dependents = {m_pTemperature, m_labels[TemperatureAlertLabel]};
    } else if (item == Humidity) {
        dependents = {m_pHumidity, m_labels[HumidityAlertLabel]};
    } else if (item >= Voltage1) {
        const int range = item - Voltage1;
        dependents = {m_voltages[range]->lower(), m_labels[TildeLabel + range], m_voltages[range]->upper()};
    }
    for (QWidget* const dependent : qAsConst(dependents))
        dependent->setVisible(isShown);
}

void CMonitoringSettings::setTexts()
{
    m_pGeneral->setTitle(tr("General settings"));
    m_pProcessor->setTitle(tr("Processor settings"));
    m_pReceiver->setTitle(tr("Receiver settings"));
    m_pEmail->setTitle(tr("Email settings"));
    for (auto label = m_labels.cbegin(); label != m_labels.cend(); ++label) {
        if (label.key() < TildeLabel)
            label.value()->setText(tr(labelTexts[label.key() - RefreshIntervalLabel]));
    }
    setItemTexts();

    m_pRefreshInterval->setAccessibleName(m_labels[RefreshIntervalLabel]->text());
    m_pRefreshInterval->setAccessibleDescription(m_labels[IntervalRangeLabel]->text());
    m_pTemperature->setAccessibleName(tr(checkBoxes[Temperature].checkedText));
    m_pHumidity->setAccessibleName(tr(checkBoxes[Humidity].checkedText));
    for (int range = 0; range < voltageCount; ++range) {
        const QString name = tr(checkBoxes[Voltage1 + range].checkedText);
        m_voltages[range]->lower()->setAccessibleName(tr("%1, lower limit").arg(name));
        m_voltages[range]->upper()->setAccessibleName(tr("%1, upper limit").arg(name));
    }
}

void CMonitoringSettings::setItemTexts()
{
    for (int item = 0; item < checkBoxCount; ++item) {
        QCheckBox* const box = m_checkBoxes[item];
        box->setText(tr(box->isChecked() ? checkBoxes[item].checkedText : checkBoxes[item].uncheckedText));
    }
}
