#include "validator/random/RecordInvariant.h"

#include "validator/Report.h"

#include <QAbstractButton>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QSpinBox>
#include <QTableWidget>
#include <QTimeEdit>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

using Preferences = SSettings::Preferences;

struct Flag
{
    const char* texts[2]; // unchecked and checked
    std::function<bool(const SSettings&)> recorded;
};

template<typename Record, typename Member>
std::function<bool(const SSettings&)> flagOf(Record SSettings::*part, Member Record::*flag)
{
    return [part, flag](const SSettings& record) { return record.*part.*flag; };
}

std::vector<Flag> flags()
{
    const auto preference = [](const char* text, bool Preferences::*flag) {
        return Flag{{text, text}, flagOf(&SSettings::preferences, flag)};
    };
    const auto condition = [](const char* unchecked, const char* checked, bool SMonitorSettings::*flag) {
        return Flag{{unchecked, checked}, flagOf(&SSettings::monitoring, flag)};
    };
    const auto mail = [](const char* text, bool SEmailSettings::*flag) {
        return Flag{{text, text}, flagOf(&SSettings::email, flag)};
    };
    using Monitor = SMonitorSettings;
    return {
        preference("Show grid", &Preferences::showGrid),
        preference("Show string position", &Preferences::showStringPosition),
        preference("Snap to cabinets", &Preferences::snapToCabinets),
        preference("Show programming pane", &Preferences::showProgrammingPane),
        preference("Show layout pane", &Preferences::showLayoutPane),
        preference("Show soft edge pane", &Preferences::showSoftEdgePane),
        preference("Show color adjustment pane", &Preferences::showColorAdjustmentPane),
        preference("Show health monitoring pane", &Preferences::showHealthMonitoringPane),
        preference("Fahrenheit\uff08\u2109\uff09", &Preferences::fahrenheit),
        condition("Video input monitoring", "Video input alert", &Monitor::bVideoInput),
        condition("Freeze monitoring", "Freeze alert", &Monitor::bFreeze),
        condition("Blackout monitoring", "Blackout alert", &Monitor::bBlackout),
        condition("0 brightness monitoring", "0 brightness alert", &Monitor::bZeroBrightness),
        condition("Temperature monitoring", "Temperature over", &Monitor::bTemperature),
        condition("Humidity monitoring", "Humidity over", &Monitor::bHumidity),
        condition("Cable error monitoring", "Cable error alert", &Monitor::bCableError),
        condition("Fan monitoring", "Fan status viewable", &Monitor::bFan),
        condition("PSU 1 monitoring", "PSU 1 alert", &Monitor::bPsu1),
        condition("PSU 2 monitoring", "PSU 2 alert", &Monitor::bPsu2),
        condition("PSU 3 monitoring", "PSU 3 alert", &Monitor::bPsu3),
        condition("PSU 4 monitoring", "PSU 4 alert", &Monitor::bPsu4),
        condition("Voltage 1 monitoring", "Voltage 1 range", &Monitor::bVoltage1),
        condition("Voltage 2 monitoring", "Voltage 2 range", &Monitor::bVoltage2),
        condition("Voltage 3 monitoring", "Voltage 3 range", &Monitor::bVoltage3),
        condition("Receiver voltage monitoring", "Receiver voltage range", &Monitor::bRcvVoltage),
        mail("Email notification", &SEmailSettings::bEmailNotification),
        mail("Recovery notice", &SEmailSettings::bRecoveryNotice),
        mail("SSL encryption", &SEmailSettings::bSsl),
    };
}

QAbstractButton* buttonWith(const QWidget& area, const char* const (&texts)[2])
{
    const auto buttons = area.findChildren<QAbstractButton*>();
    const auto found = std::find_if(buttons.begin(), buttons.end(), [&](const QAbstractButton* button) {
        return button->isCheckable() &&
               (button->text() == QString::fromUtf8(texts[0]) || button->text() == QString::fromUtf8(texts[1]));
    });
    return found == buttons.end() ? nullptr : *found;
}

// The control that screen readers know by a name that begins so.
template<typename Control>
Control* controlNamed(const QWidget& area, const QString& name)
{
    const auto controls = area.findChildren<Control*>();
    const auto found = std::find_if(controls.begin(), controls.end(), [&](const Control* control) {
        return control->accessibleName() == name ||
               (name.endsWith(QChar(0x2026)) && control->accessibleName().contains(name.chopped(1)));
    });
    return found == controls.end() ? nullptr : *found;
}

// Whole degrees, dropped towards zero.
int celsius(int fahrenheit)
{
    return static_cast<int>((qint64{fahrenheit} - 32) * 5 / 9);
}

} // namespace

RecordInvariant::RecordInvariant(const QWidget& area, Report& report)
    : m_report(report)
{
    addFlags(area);
    addChoices(area);
    addNumbers(area);
    addMail(area);
}

void RecordInvariant::add(const QString& name, std::function<QVariant()> shown,
                          std::function<QVariant(const SSettings&)> recorded)
{
    m_fields.push_back({name, std::move(shown), std::move(recorded)});
}

void RecordInvariant::addFlags(const QWidget& area)
{
    for (const Flag& flag : flags()) {
        const QString name = QString::fromUtf8(flag.texts[0]);
        if (const QAbstractButton* const button = buttonWith(area, flag.texts))
            add(
                name, [button] { return button->isChecked(); }, flag.recorded);
        else
            m_report.fail(QStringLiteral("there is no control \"%1\"").arg(name));
    }
}

void RecordInvariant::addChoices(const QWidget& area)
{
    const auto choice = [&](const char* text) {
        const QAbstractButton* const button = buttonWith(area, {text, text});
        if (!button)
            m_report.fail(QStringLiteral("there is no control \"%1\"").arg(QString::fromUtf8(text)));
        return button;
    };
    const QAbstractButton* const both = choice("USB and LAN");
    const QAbstractButton* const designated = choice("Designated IP address");
    if (both && designated)
        add(
            QStringLiteral("Priority connection"),
            [both, designated] { return designated->isChecked() ? 2 : int{both->isChecked()}; },
            [](const SSettings& record) { return record.preferences.connectionPriority; });
    if (const QAbstractButton* const advanced = choice("Advanced soft edge(require receiving card support)"))
        add(
            QStringLiteral("Soft edge"), [advanced] { return int{advanced->isChecked()}; },
            [](const SSettings& record) { return record.preferences.softEdgeMode; });
}

void RecordInvariant::addNumbers(const QWidget& area)
{
    const auto number = [&](const char* name, auto recorded, auto converted) {
        const QString text = QString::fromUtf8(name);
        if (const auto* const box = controlNamed<QSpinBox>(area, text))
            add(
                text, [box, converted] { return converted(box->value()); }, recorded);
        else
            m_report.fail(QStringLiteral("there is no control \"%1\"").arg(text));
    };
    const auto asShown = [](int value) { return value; };
    number(
        "Space", [](const SSettings& record) { return record.preferences.snapSpace; }, asShown);
    number(
        "Humidity over", [](const SSettings& record) { return record.monitoring.nHumidity; }, asShown);
    number(
        "Send mail if \u2026", [](const SSettings& record) { return record.email.nAlertCount; }, asShown);
    static constexpr const char* fahrenheitTexts[2] = {"Fahrenheit\uff08\u2109\uff09", "Fahrenheit\uff08\u2109\uff09"};
    const QAbstractButton* const fahrenheit = buttonWith(area, fahrenheitTexts);
    number(
        "Temperature over", [](const SSettings& record) { return record.monitoring.nTemperature; },
        [fahrenheit](int value) { return fahrenheit && fahrenheit->isChecked() ? celsius(value) : value; });

    struct Range
    {
        const char* name;
        double SMonitorSettings::*limits[2];
    };
    static constexpr Range ranges[] = {
        {"Voltage 1 range", {&SMonitorSettings::dVoltage1Min, &SMonitorSettings::dVoltage1Max}},
        {"Voltage 2 range", {&SMonitorSettings::dVoltage2Min, &SMonitorSettings::dVoltage2Max}},
        {"Voltage 3 range", {&SMonitorSettings::dVoltage3Min, &SMonitorSettings::dVoltage3Max}},
        {"Receiver voltage range", {&SMonitorSettings::dRcvVoltageMin, &SMonitorSettings::dRcvVoltageMax}},
    };
    for (const Range& range : ranges) {
        for (const bool isUpper : {false, true}) {
            const QString name = QStringLiteral("%1, %2 limit")
                                     .arg(QLatin1String(range.name), QLatin1String(isUpper ? "upper" : "lower"));
            const auto* const box = controlNamed<QDoubleSpinBox>(area, name);
            const auto limit = range.limits[isUpper];
            if (box)
                add(
                    name, [box] { return box->value(); },
                    [limit](const SSettings& record) { return record.monitoring.*limit; });
            else
                m_report.fail(QStringLiteral("there is no control \"%1\"").arg(name));
        }
    }
    if (const auto* const interval = area.findChild<QTimeEdit*>(QStringLiteral("MonitorTimeEdit")))
        add(
            QStringLiteral("Refresh interval"), [interval] { return interval->time().msecsSinceStartOfDay() / 1000; },
            [](const SSettings& record) { return record.monitoring.nRefreshInterval; });
    else
        m_report.fail(QStringLiteral("there is no control \"MonitorTimeEdit\""));
}

void RecordInvariant::addMail(const QWidget& area)
{
    const auto text = [&](const char* name, auto recorded) {
        if (const auto* const edit = controlNamed<QLineEdit>(area, QLatin1String(name)))
            add(
                QLatin1String(name), [edit] { return edit->text(); }, recorded);
        else
            m_report.fail(QStringLiteral("there is no control \"%1\"").arg(QLatin1String(name)));
    };
    text("Email address", [](const SSettings& record) { return record.email.strSenderAddress; });
    text("Email password", [](const SSettings& record) { return record.email.strPassword; });
    text("SMTP server", [](const SSettings& record) { return record.email.strSmtpServer; });
    if (const auto* const port = controlNamed<QLineEdit>(area, QStringLiteral("Port")))
        add(
            QStringLiteral("Port"), [port] { return port->text().toInt(); },
            [](const SSettings& record) { return record.email.nPort; });
    else
        m_report.fail(QStringLiteral("there is no control \"Port\""));

    const auto* const table = area.findChild<QTableWidget*>(QStringLiteral("RecevierMail"));
    if (!table) {
        m_report.fail(QStringLiteral("there is no control \"RecevierMail\""));
        return;
    }
    add(
        QStringLiteral("Target mailboxes"), [table] { return table->rowCount(); },
        [](const SSettings& record) { return record.email.lstRecipients.size(); });
    // Long and strange texts are shortened where they are shown.
    add(
        QStringLiteral("Address of the last target mailbox"),
        [table] {
            const QTableWidgetItem* const item = table->item(table->rowCount() - 1, 1);
            return item && item->text().endsWith(QLatin1String("@example.com")) ? item->text() : QString();
        },
        [](const SSettings& record) {
            const QString address = record.email.lstRecipients.value(record.email.lstRecipients.size() - 1).strAddress;
            return address.endsWith(QLatin1String("@example.com")) ? address : QString();
        });
}

void RecordInvariant::check(const SSettings& read) const
{
    for (const Field& field : m_fields) {
        const QVariant shown = field.shown();
        const QVariant recorded = field.recorded(read);
        if (shown != recorded)
            m_report.fail(QStringLiteral("\"%1\" shows %2 and the record says %3")
                              .arg(field.name, shown.toString().left(100), recorded.toString().left(100)));
    }
}

void RecordInvariant::expectSame(const char* what, const QVariant& first, const QVariant& second) const
{
    if (first != second)
        m_report.fail(QStringLiteral("%1 was %2 and comes back as %3")
                          .arg(QLatin1String(what), first.toString().left(100), second.toString().left(100)));
}

void RecordInvariant::checkKept(const SSettings& pushed, const SSettings& read) const
{
    const auto bitsOf = [](double value) {
        return std::isnan(value) ? QVariant(QStringLiteral("nan")) : QVariant(value);
    };
    expectSame("bVoltage4", pushed.monitoring.bVoltage4, read.monitoring.bVoltage4);
    expectSame("dVoltage4Min", bitsOf(pushed.monitoring.dVoltage4Min), bitsOf(read.monitoring.dVoltage4Min));
    expectSame("dVoltage4Max", bitsOf(pushed.monitoring.dVoltage4Max), bitsOf(read.monitoring.dVoltage4Max));
    expectSame("bMonitorFlag1", pushed.monitoring.bMonitorFlag1, read.monitoring.bMonitorFlag1);
    expectSame("bMonitorFlag2", pushed.monitoring.bMonitorFlag2, read.monitoring.bMonitorFlag2);
    expectSame("bMonitorFlag3", pushed.monitoring.bMonitorFlag3, read.monitoring.bMonitorFlag3);
    expectSame("bMonitorFlag4", pushed.monitoring.bMonitorFlag4, read.monitoring.bMonitorFlag4);
    if (pushed.layoutShortcuts != read.layoutShortcuts || pushed.softEdgeShortcuts != read.softEdgeShortcuts)
        m_report.fail(QStringLiteral("the shortcuts come back as others"));
    for (const auto& [text, recorded] : {std::pair("strSmtpServer", &SEmailSettings::strSmtpServer),
                                         std::pair("strSenderAddress", &SEmailSettings::strSenderAddress)}) {
        if (pushed.email.*recorded == (pushed.email.*recorded).simplified() && (pushed.email.*recorded).size() < 32'768)
            expectSame(text, pushed.email.*recorded, read.email.*recorded);
    }
    for (const Flag& flag : flags())
        expectSame(flag.texts[0], flag.recorded(pushed), flag.recorded(read));
    expectSame("snapSpace", std::clamp(pushed.preferences.snapSpace, 8, 30), read.preferences.snapSpace);
    expectSame("nHumidity", std::clamp(pushed.monitoring.nHumidity, 20, 100), read.monitoring.nHumidity);
    expectSame("nAlertCount", std::clamp(pushed.email.nAlertCount, 1, 10), read.email.nAlertCount);
    expectSame("nRefreshInterval", std::clamp(pushed.monitoring.nRefreshInterval, 10, 7200),
               read.monitoring.nRefreshInterval);
    expectSame("number of recipients", pushed.email.lstRecipients.size(), read.email.lstRecipients.size());
}

void RecordInvariant::checkSame(const SSettings& first, const SSettings& second) const
{
    checkKept(first, second);
    for (const Field& field : m_fields) {
        // Degrees of Fahrenheit that are no whole degrees Celsius lose one at most.
        if (first.preferences.fahrenheit && field.name == QLatin1String("Temperature over"))
            continue;
        if (field.recorded(first) != field.recorded(second))
            m_report.fail(QStringLiteral("\"%1\" was %2 and comes back as %3")
                              .arg(field.name, field.recorded(first).toString().left(100),
                                   field.recorded(second).toString().left(100)));
    }
}
