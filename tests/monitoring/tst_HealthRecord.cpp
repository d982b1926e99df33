#include "tests/monitoring/HealthPage.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QSignalSpy>

#include <random>

namespace {

// Records whose values the page can show, in no order.
class Records
{
public:
    SMonitorSettings monitoring()
    {
        SMonitorSettings settings;
        settings.nRefreshInterval = number(10, 7200);
        for (const HealthItem& item : healthItems)
            settings.*item.flag = number(0, 1) == 1;
        for (const auto flag :
             {&SMonitorSettings::bMonitorFlag1, &SMonitorSettings::bMonitorFlag2, &SMonitorSettings::bMonitorFlag3,
              &SMonitorSettings::bMonitorFlag4, &SMonitorSettings::bVoltage4})
            settings.*flag = number(0, 1) == 1;
        settings.nTemperature = number(20, 100);
        settings.nHumidity = number(20, 100);
        for (const VoltageFields& range : voltageFields) {
            const int lower = number(10, 200);
            settings.*range.lower = lower / 10.0;
            settings.*range.upper = number(lower, 200) / 10.0;
        }
        settings.dVoltage4Min = number(-1000, 1000) / 7.0;
        settings.dVoltage4Max = number(-1000, 1000) / 7.0;
        return settings;
    }

    SEmailSettings email()
    {
        SEmailSettings settings;
        settings.bEmailNotification = number(0, 1) == 1;
        settings.bRecoveryNotice = number(0, 1) == 1;
        settings.nAlertCount = number(1, 10);
        settings.bSsl = number(0, 1) == 1;
        settings.nPort = number(0, 9999999);
        settings.strSenderAddress = text(QStringLiteral("ab@.Z9-_"));
        settings.strPassword = text(QStringLiteral("abZ9"));
        settings.strSmtpServer = text(QStringLiteral("ab.Z9-_/"));
        for (int left = number(0, 4); left > 0; --left)
            settings.lstRecipients.append({text(QString::fromUtf8("张a <&")), text(QStringLiteral("ab@.c"))});
        return settings;
    }

private:
    int number(int least, int greatest) { return std::uniform_int_distribution<int>(least, greatest)(m_random); }
    QString text(const QString& alphabet)
    {
        QString text;
        for (int left = number(0, 20); left > 0; --left)
            text += alphabet.at(number(0, alphabet.size() - 1));
        return text;
    }

    std::mt19937 m_random{20240501};
};

QVariantList valuesOf(const SMonitorSettings& m)
{
    QVariantList values{QVariant(m.nRefreshInterval), QVariant(m.nTemperature),  QVariant(m.nHumidity),
                        QVariant(m.bMonitorFlag1),    QVariant(m.bMonitorFlag2), QVariant(m.bMonitorFlag3),
                        QVariant(m.bMonitorFlag4),    QVariant(m.bVoltage4),     QVariant(m.dVoltage4Min),
                        QVariant(m.dVoltage4Max)};
    for (const HealthItem& item : healthItems)
        values.append(QVariant(m.*item.flag));
    for (const VoltageFields& range : voltageFields)
        values << QVariant(m.*range.lower) << QVariant(m.*range.upper);
    return values;
}

QVariantList valuesOf(const SEmailSettings& e)
{
    return {QVariant(e.bEmailNotification),
            QVariant(e.bRecoveryNotice),
            QVariant(e.nAlertCount),
            QVariant(e.bSsl),
            QVariant(e.nPort),
            QVariant(e.strSenderAddress),
            QVariant(e.strPassword),
            QVariant(e.strSmtpServer),
            QVariant(texts(e.lstRecipients))};
}

} // namespace

// What is pushed into the page is what comes out of it again.
class tst_HealthRecord : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaultsComeBack();
    void randomRecordsComeBack();
    void randomRecordsComeBackInFahrenheit();
    void askedTwice();
    void whatNoControlShows();
    void pushedBackItself();
    void saysNothing();
    void manyRecipients();
};

void tst_HealthRecord::defaultsComeBack()
{
    HealthPage shown;
    shown.page.setSettings({}, {});
    QCOMPARE(valuesOf(shown.page.monitorSettings()), valuesOf(SMonitorSettings()));
    QCOMPARE(valuesOf(shown.page.emailSettings()), valuesOf(SEmailSettings()));
}

void tst_HealthRecord::randomRecordsComeBack()
{
    CMonitoringSettings page;
    Records records;
    for (int i = 0; i < 10000; ++i) {
        const SMonitorSettings monitoring = records.monitoring();
        const SEmailSettings email = records.email();
        page.setSettings(monitoring, email);
        QCOMPARE(valuesOf(page.monitorSettings()), valuesOf(monitoring));
        QCOMPARE(valuesOf(page.emailSettings()), valuesOf(email));
    }
}

void tst_HealthRecord::randomRecordsComeBackInFahrenheit()
{
    CMonitoringSettings page;
    page.FahrenheitClicked(true);
    Records records;
    for (int i = 0; i < 10000; ++i) {
        SMonitorSettings monitoring = records.monitoring();
        page.setSettings(monitoring, {});
        if (monitoring.nTemperature % 5 != 0)
            --monitoring.nTemperature; // which the conversion there and back loses
        QCOMPARE(valuesOf(page.monitorSettings()), valuesOf(monitoring));
    }
}

void tst_HealthRecord::askedTwice()
{
    CMonitoringSettings page;
    page.FahrenheitClicked(true);
    SMonitorSettings monitoring;
    monitoring.nTemperature = 21;
    page.setSettings(monitoring, {});
    QCOMPARE(page.monitorSettings().nTemperature, 20);
    QCOMPARE(page.monitorSettings().nTemperature, 20);
}

void tst_HealthRecord::whatNoControlShows()
{
    HealthPage shown;
    for (const bool flag : {true, false}) {
        SMonitorSettings pushed;
        pushed.bMonitorFlag1 = flag;
        pushed.bMonitorFlag2 = !flag;
        pushed.bMonitorFlag3 = flag;
        pushed.bMonitorFlag4 = !flag;
        pushed.bVoltage4 = flag;
        pushed.dVoltage4Min = 77;
        pushed.dVoltage4Max = -77;
        shown.set(pushed);
        QCOMPARE(valuesOf(shown.settings()), valuesOf(pushed));
    }
}

void tst_HealthRecord::pushedBackItself()
{
    CMonitoringSettings page;
    Records records;
    const SMonitorSettings monitoring = records.monitoring();
    SEmailSettings email = records.email();
    email.lstRecipients = {{QStringLiteral("Ann"), QStringLiteral("ann@host.com")}};
    page.setSettings(monitoring, email);
    page.setSettings(page.monitorSettings(), page.emailSettings());
    QCOMPARE(valuesOf(page.monitorSettings()), valuesOf(monitoring));
    QCOMPARE(valuesOf(page.emailSettings()), valuesOf(email));
}

void tst_HealthRecord::saysNothing()
{
    const QMetaObject& meta = CMonitoringSettings::staticMetaObject;
    for (int method = meta.methodOffset(); method < meta.methodCount(); ++method)
        QVERIFY(meta.method(method).methodType() != QMetaMethod::Signal);
}

void tst_HealthRecord::manyRecipients()
{
    SEmailSettings email;
    for (int i = 0; i < 10000; ++i)
        email.lstRecipients.append({QStringLiteral("N%1").arg(i), QStringLiteral("r%1@host.com").arg(i)});
    HealthPage shown;
    shown.page.setSettings({}, email);
    shown.page.grab();
    QCOMPARE(texts(shown.page.emailSettings().lstRecipients), texts(email.lstRecipients));
}

SETTINGAREA_TEST_MAIN(tst_HealthRecord, QApplication)

#include "tst_HealthRecord.moc"
