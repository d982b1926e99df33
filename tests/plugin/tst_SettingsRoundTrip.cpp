#include "monitoring/CMonitoringSettings.h"
#include "tests/monitoring/Controls.h"
#include "tests/support/AreaFixture.h"

#include <widgetry/CDoubleSpinBox.h>
#include <widgetry/CSpinBox.h>

#include <QApplication>
#include <QCheckBox>
#include <QRadioButton>
#include <QTimeEdit>

namespace {

// Every value that the pages and the held record exchange with the host, in one list.
QVariantList valuesOf(const SSettings& settings)
{
    const SSettings::Preferences& p = settings.preferences;
    const SMonitorSettings& m = settings.monitoring;
    const SEmailSettings& e = settings.email;
    QVariantList values{
        QVariant(p.connectionPriority),
        QVariant(p.fahrenheit),
        QVariant(p.showProgrammingPane),
        QVariant(p.showLayoutPane),
        QVariant(p.showSoftEdgePane),
        QVariant(p.softEdgeMode),
        QVariant(p.showColorAdjustmentPane),
        QVariant(p.showHealthMonitoringPane),
        QVariant(p.showGrid),
        QVariant(p.showStringPosition),
        QVariant(p.snapToCabinets),
        QVariant(p.snapSpace),
        QVariant(m.nRefreshInterval),
        QVariant(m.bVideoInput),
        QVariant(m.bFreeze),
        QVariant(m.bBlackout),
        QVariant(m.bZeroBrightness),
        QVariant(m.bCableError),
        QVariant(m.bMonitorFlag1),
        QVariant(m.bTemperature),
        QVariant(m.nTemperature),
        QVariant(m.bHumidity),
        QVariant(m.nHumidity),
        QVariant(m.bMonitorFlag2),
        QVariant(m.bFan),
        QVariant(m.bMonitorFlag3),
        QVariant(m.bPsu1),
        QVariant(m.bPsu2),
        QVariant(m.bPsu3),
        QVariant(m.bPsu4),
        QVariant(m.bVoltage1),
        QVariant(m.dVoltage1Min),
        QVariant(m.dVoltage1Max),
        QVariant(m.bVoltage2),
        QVariant(m.dVoltage2Min),
        QVariant(m.dVoltage2Max),
        QVariant(m.bVoltage3),
        QVariant(m.dVoltage3Min),
        QVariant(m.dVoltage3Max),
        QVariant(m.bVoltage4),
        QVariant(m.dVoltage4Min),
        QVariant(m.dVoltage4Max),
        QVariant(m.bRcvVoltage),
        QVariant(m.dRcvVoltageMin),
        QVariant(m.dRcvVoltageMax),
        QVariant(m.bMonitorFlag4),
        QVariant(e.bEmailNotification),
        QVariant(e.bRecoveryNotice),
        QVariant(e.nAlertCount),
        QVariant(e.bSsl),
        QVariant(e.nPort),
        QVariant(e.strSenderAddress),
        QVariant(e.strPassword),
        QVariant(e.strSmtpServer),
    };
    for (const SSettings::ShortcutMap& keys : {settings.layoutShortcuts, settings.softEdgeShortcuts}) {
        for (auto key = keys.cbegin(); key != keys.cend(); ++key)
            values << QStringLiteral("%1 %2").arg(key.key()).arg(key.value().toString());
    }
    for (const SEmailRecipient& recipient : e.lstRecipients)
        values << recipient.strName << recipient.strAddress;
    return values;
}

// A record in which no value is the default, and each is one that the pages can show.
SSettings otherSettings()
{
    SSettings settings;
    SSettings::Preferences& p = settings.preferences;
    p.connectionPriority = 2;
    p.fahrenheit = !p.fahrenheit;
    p.showProgrammingPane = !p.showProgrammingPane;
    p.showLayoutPane = !p.showLayoutPane;
    p.showSoftEdgePane = !p.showSoftEdgePane;
    p.softEdgeMode = 0;
    p.showColorAdjustmentPane = !p.showColorAdjustmentPane;
    p.showHealthMonitoringPane = !p.showHealthMonitoringPane;
    p.showGrid = !p.showGrid;
    p.showStringPosition = !p.showStringPosition;
    p.snapToCabinets = !p.snapToCabinets;
    p.snapSpace = 9;
    SMonitorSettings& m = settings.monitoring;
    m.nRefreshInterval = 77;
    m.bVideoInput = !m.bVideoInput;
    m.bFreeze = !m.bFreeze;
    m.bBlackout = !m.bBlackout;
    m.bZeroBrightness = !m.bZeroBrightness;
    m.bCableError = !m.bCableError;
    m.bMonitorFlag1 = !m.bMonitorFlag1;
    m.bTemperature = !m.bTemperature;
    m.nTemperature = 45;
    m.bHumidity = !m.bHumidity;
    m.nHumidity = 70;
    m.bMonitorFlag2 = !m.bMonitorFlag2;
    m.bFan = !m.bFan;
    m.bMonitorFlag3 = !m.bMonitorFlag3;
    m.bPsu1 = !m.bPsu1;
    m.bPsu2 = !m.bPsu2;
    m.bPsu3 = !m.bPsu3;
    m.bPsu4 = !m.bPsu4;
    m.bVoltage1 = !m.bVoltage1;
    m.dVoltage1Min = 3.5;
    m.dVoltage1Max = 4.5;
    m.bVoltage2 = !m.bVoltage2;
    m.dVoltage2Min = 5.5;
    m.dVoltage2Max = 6.5;
    m.bVoltage3 = !m.bVoltage3;
    m.dVoltage3Min = 7.5;
    m.dVoltage3Max = 8.5;
    m.bVoltage4 = !m.bVoltage4;
    m.dVoltage4Min = 9.5;
    m.dVoltage4Max = 10.5;
    m.bRcvVoltage = !m.bRcvVoltage;
    m.dRcvVoltageMin = 11.5;
    m.dRcvVoltageMax = 13.5;
    m.bMonitorFlag4 = !m.bMonitorFlag4;
    SEmailSettings& e = settings.email;
    e.bEmailNotification = !e.bEmailNotification;
    e.bRecoveryNotice = !e.bRecoveryNotice;
    e.nAlertCount = 7;
    e.bSsl = !e.bSsl;
    e.nPort = 587;
    e.strSenderAddress = QStringLiteral("wall@site.com");
    e.strPassword = QStringLiteral("p4ss word");
    e.strSmtpServer = QStringLiteral("mail.site.com");
    e.lstRecipients = {{QStringLiteral("Ann"), QStringLiteral("ann@host.com")},
                       {QString(), QStringLiteral("bob@host.com")}};
    for (SSettings::ShortcutMap* keys : {&settings.layoutShortcuts, &settings.softEdgeShortcuts}) {
        for (auto key = keys->begin(); key != keys->end(); ++key)
            key.value() = QKeySequence(Qt::Key_F1 + key.key(), Qt::SHIFT);
    }
    return settings;
}

} // namespace

// A record on its way through the settings area: what the host pushes is what it gets back.
class tst_SettingsRoundTrip : public AreaFixture
{
    Q_OBJECT

private Q_SLOTS:
    void everyValueComesBack();
    void whatTheUserChangesComesBack();
    void recordKeepsItsAddress();
    void recordKeepsWhatNoPageShows();
    void pushingTheRecordItself();
};

void tst_SettingsRoundTrip::everyValueComesBack()
{
    const QVariantList defaults = valuesOf(SSettings());
    const QVariantList pushed = valuesOf(otherSettings());
    for (int i = 0; i < defaults.size(); ++i)
        QVERIFY2(defaults.at(i) != pushed.at(i), qPrintable(defaults.at(i).toString()));
    area().setSettings(otherSettings());
    QCOMPARE(valuesOf(*area().getSettings()), pushed);
    QCOMPARE(valuesOf(*area().getSettings()), pushed); // asked twice
    area().setSettings(SSettings());
    QCOMPARE(valuesOf(*area().getSettings()), defaults);
}

// From the defaults to the other values by the controls alone.
void tst_SettingsRoundTrip::whatTheUserChangesComesBack()
{
    const SSettings other = otherSettings();
    const SMonitorSettings& m = other.monitoring;
    const SEmailSettings& e = other.email;
    const auto& page = *area().findChild<CMonitoringSettings*>();
    const auto boxes = area().findChildren<QCheckBox*>();
    QCOMPARE(boxes.size(), 8 + 16 + 3);
    for (QCheckBox* const box : boxes)
        box->click();
    for (const char* text : {"Designated IP address", "Fahrenheit（℉）", "Soft edge"})
        withText<QRadioButton>(area(), text)->click();
    named<CSpinBox>(area(), "Space")->setValue(other.preferences.snapSpace);
    page.findChild<QTimeEdit*>()->setTime(QTime(0, 0).addSecs(m.nRefreshInterval));
    named<CSpinBox>(page, "Temperature over")->setValue(113); // degrees Fahrenheit
    named<CSpinBox>(page, "Humidity over")->setValue(m.nHumidity);
    const auto setRange = [&page](const char* lowerName, double lower, const char* upperName, double upper) {
        named<CDoubleSpinBox>(page, lowerName)->setValue(1);
        named<CDoubleSpinBox>(page, upperName)->setValue(upper);
        named<CDoubleSpinBox>(page, lowerName)->setValue(lower);
    };
    setRange("Voltage 1 range, lower limit", m.dVoltage1Min, "Voltage 1 range, upper limit", m.dVoltage1Max);
    setRange("Voltage 2 range, lower limit", m.dVoltage2Min, "Voltage 2 range, upper limit", m.dVoltage2Max);
    setRange("Voltage 3 range, lower limit", m.dVoltage3Min, "Voltage 3 range, upper limit", m.dVoltage3Max);
    setRange("Receiver voltage range, lower limit", m.dRcvVoltageMin, "Receiver voltage range, upper limit",
             m.dRcvVoltageMax);
    named<CSpinBox>(page, "Send mail if \u2026 alerts have been continuously detected")->setValue(e.nAlertCount);
    named<QLineEdit>(page, "Email address")->setText(e.strSenderAddress);
    named<QLineEdit>(page, "Email password")->setText(e.strPassword);
    named<QLineEdit>(page, "SMTP server")->setText(e.strSmtpServer);
    named<QLineEdit>(page, "Port")->setText(QString::number(e.nPort));

    SSettings expected;
    expected.preferences = other.preferences;
    expected.monitoring = m;
    expected.email = e;
    expected.email.lstRecipients.clear(); // which only dialogs change
    const SMonitorSettings defaults;
    expected.monitoring.bMonitorFlag1 = defaults.bMonitorFlag1; // what no control shows
    expected.monitoring.bMonitorFlag2 = defaults.bMonitorFlag2;
    expected.monitoring.bMonitorFlag3 = defaults.bMonitorFlag3;
    expected.monitoring.bMonitorFlag4 = defaults.bMonitorFlag4;
    expected.monitoring.bVoltage4 = defaults.bVoltage4;
    expected.monitoring.dVoltage4Min = defaults.dVoltage4Min;
    expected.monitoring.dVoltage4Max = defaults.dVoltage4Max;
    QCOMPARE(valuesOf(*area().getSettings()), valuesOf(expected));
}

void tst_SettingsRoundTrip::recordKeepsItsAddress()
{
    const SSettings* const held = area().getSettings();
    area().setSettings(otherSettings());
    QCOMPARE(static_cast<const SSettings*>(area().getSettings()), held);
}

void tst_SettingsRoundTrip::recordKeepsWhatNoPageShows()
{
    SSettings pushed;
    pushed.layoutShortcuts[0] = QKeySequence(Qt::Key_B, Qt::CTRL);
    pushed.softEdgeShortcuts.remove(3);
    pushed.monitoring.bVoltage4 = true;
    pushed.monitoring.dVoltage4Min = 3.25;
    pushed.monitoring.dVoltage4Max = 4.75;
    area().setSettings(pushed);
    SSettings* const held = area().getSettings();
    QCOMPARE(held->layoutShortcuts[0], QKeySequence(Qt::Key_B, Qt::CTRL));
    QCOMPARE(held->softEdgeShortcuts.size(), 9);
    QCOMPARE(held->monitoring.bVoltage4, true);
    QCOMPARE(held->monitoring.dVoltage4Min, 3.25);
    QCOMPARE(held->monitoring.dVoltage4Max, 4.75);

    // What the host writes into the held record stays there.
    held->monitoring.bVoltage4 = false;
    held->monitoring.dVoltage4Min = 1.5;
    held->monitoring.dVoltage4Max = 2.5;
    area().getSettings();
    QCOMPARE(held->monitoring.bVoltage4, false);
    QCOMPARE(held->monitoring.dVoltage4Min, 1.5);
    QCOMPARE(held->monitoring.dVoltage4Max, 2.5);
}

void tst_SettingsRoundTrip::pushingTheRecordItself()
{
    SSettings pushed;
    pushed.preferences.snapSpace = 11;
    pushed.email.strSmtpServer = QStringLiteral("mail.site.com");
    area().setSettings(pushed);
    area().setSettings(*area().getSettings());
    QCOMPARE(area().getSettings()->preferences.snapSpace, 11);
    QCOMPARE(area().getSettings()->email.strSmtpServer, QStringLiteral("mail.site.com"));
    QCOMPARE(area().getSettings()->layoutShortcuts.size(), 10);
}

SETTINGAREA_TEST_MAIN(tst_SettingsRoundTrip, QApplication)
#include "tst_SettingsRoundTrip.moc"
