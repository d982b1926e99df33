#include "plugin/CSettingArea.h"
#include "tests/monitoring/EmailGroup.h"
#include "tests/monitoring/HealthPage.h"
#include "tests/support/FakeHandler.h"
#include "tests/support/ModalScript.h"
#include "tests/support/TestObject.h"

#include <QApplication>

#include <limits>

namespace {

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

constexpr int megabyte = 1 << 20;
constexpr int longestEdit = 32767; // characters

// Recipients like those of a file that something has damaged.
QList<SEmailRecipient> badRecipients(int count)
{
    const QString names[] = {QStringLiteral("Ann\r\nBcc: eve@evil.com"), QStringLiteral("<img src=x><b>Bob"),
                             QStringLiteral("\u2028\t&amp;")};
    const QString addresses[] = {QStringLiteral("a%1@host.com\r\nDATA"), QStringLiteral("<a href=x>b%1</a>"),
                                 QStringLiteral("\nc%1@host.com\u2029")};
    QList<SEmailRecipient> recipients;
    for (int i = 0; i < count; ++i)
        recipients.append({names[i % 3], addresses[i % 3].arg(i)});
    return recipients;
}

} // namespace

// Records that no page has made: what the page makes of them, and that the next good one is not harmed.
class tst_BadRecords : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void thresholds_data();
    void thresholds();
    void voltages_data();
    void voltages();
    void tenThousandRecipients();
    void aMegabyteOfText();
    void aMegabyteThatIsReported();
};

void tst_BadRecords::cleanup()
{
    CSettingArea::instance().setHandler(nullptr);
    TestObject::cleanup();
}

void tst_BadRecords::thresholds_data()
{
    QTest::addColumn<bool>("fahrenheit");
    QTest::addColumn<int>("pushed");
    QTest::addColumn<int>("interval");
    QTest::addColumn<int>("percentOrDegrees");
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int greatest = std::numeric_limits<int>::max();
    for (const bool fahrenheit : {false, true}) {
        const char* const unit = fahrenheit ? "F" : "C";
        QTest::addRow("least, %s", unit) << fahrenheit << least << 10 << 20;
        QTest::addRow("-1, %s", unit) << fahrenheit << -1 << 10 << 20;
        QTest::addRow("0, %s", unit) << fahrenheit << 0 << 10 << 20;
        QTest::addRow("greatest, %s", unit) << fahrenheit << greatest << 7200 << 100;
    }
}

void tst_BadRecords::thresholds()
{
    QFETCH(bool, fahrenheit);
    QFETCH(int, pushed);
    HealthPage shown;
    shown.page.FahrenheitClicked(fahrenheit);
    SMonitorSettings bad = watching(true);
    bad.nRefreshInterval = bad.nTemperature = bad.nHumidity = pushed;
    shown.set(bad);
    QTEST(shown.settings().nRefreshInterval, "interval");
    QTEST(shown.settings().nTemperature, "percentOrDegrees");
    QTEST(shown.settings().nHumidity, "percentOrDegrees");
}

void tst_BadRecords::voltages_data()
{
    QTest::addColumn<double>("pushedLower");
    QTest::addColumn<double>("pushedUpper");
    QTest::addColumn<double>("lower");
    QTest::addColumn<double>("upper");
    QTest::newRow("out of range") << -3.0 << 400.0 << 1.0 << 20.0;
    QTest::newRow("lower above upper") << 12.0 << 5.0 << 12.0 << 12.0;
    QTest::newRow("no numbers") << noNumber << noNumber << 1.0 << 20.0;
    QTest::newRow("infinite") << -infinite << infinite << 1.0 << 20.0;
    QTest::newRow("infinite, lower above upper") << infinite << -infinite << 20.0 << 20.0;
}

void tst_BadRecords::voltages()
{
    QFETCH(double, pushedLower);
    QFETCH(double, pushedUpper);
    HealthPage shown;
    for (const bool isWatched : {true, false}) {
        SMonitorSettings bad = watching(isWatched);
        for (const VoltageFields& range : voltageFields) {
            bad.*range.lower = pushedLower;
            bad.*range.upper = pushedUpper;
        }
        shown.set(bad);
        shown.page.grab();
        const SMonitorSettings given = shown.settings();
        for (const VoltageFields& range : voltageFields) {
            QTEST(given.*range.lower, "lower");
            QTEST(given.*range.upper, "upper");
        }
        shown.set(watching(isWatched));
        for (const VoltageFields& range : voltageFields) {
            QCOMPARE(shown.settings().*range.lower, 5.0);
            QCOMPARE(shown.settings().*range.upper, 12.0);
        }
    }
}

void tst_BadRecords::tenThousandRecipients()
{
    SEmailSettings email;
    email.lstRecipients = badRecipients(10000);
    HealthPage shown;
    shown.page.setSettings({}, email);
    shown.page.grab();
    const auto* const table = shown.page.findChild<QTableWidget*>(QStringLiteral("RecevierMail"));
    QCOMPARE(rows(table), texts(email.lstRecipients));
    for (int row = 0; row < 3; ++row) {
        // Whether the text breaks a line or looks like markup: the table shows it as it stands.
        QCOMPARE(table->rowHeight(row), table->rowHeight(9999));
        const QString tip = table->item(row, 1)->toolTip();
        QVERIFY2(!tip.contains(QLatin1String("<a href")), qPrintable(tip));
    }
    QCOMPARE(texts(shown.page.emailSettings().lstRecipients), texts(email.lstRecipients));
}

void tst_BadRecords::aMegabyteOfText()
{
    const QString text = QString(megabyte - 2, QLatin1Char('w')) + QStringLiteral("\r\n");
    SEmailSettings email;
    email.strSenderAddress = email.strPassword = email.strSmtpServer = text;
    email.lstRecipients = {{text, text}};
    HealthPage shown;
    shown.page.setSettings({}, email);
    shown.page.grab();
    const SEmailSettings given = shown.page.emailSettings();
    for (const QString& edited : {given.strSenderAddress, given.strPassword, given.strSmtpServer})
        QCOMPARE(edited, text.left(longestEdit));
    QVERIFY(given.lstRecipients.constFirst().strName == text);
    QVERIFY(given.lstRecipients.constFirst().strAddress == text);
    shown.page.setSettings({}, validSettings());
    QCOMPARE(shown.page.emailSettings().strSenderAddress, validSettings().strSenderAddress);
    QCOMPARE(texts(shown.page.emailSettings().lstRecipients), texts(validSettings().lstRecipients));
}

void tst_BadRecords::aMegabyteThatIsReported()
{
    SEmailSettings email = validSettings();
    email.lstRecipients[1].strAddress = QString(megabyte, QLatin1Char('w'));
    const EmailGroup shown(email);
    auto* const handler = new FakeHandler;
    CSettingArea::instance().setHandler(handler);
    handler->send = [](QList<int>& failed, const SEmailSettings& /*settings*/, const QString& /*body*/) {
        failed = {1};
        return true;
    };
    QString text;
    ModalScript script;
    script.use([&](QWidget* box) {
        text = qobject_cast<CMessageBox*>(box)->text();
        box->grab();
        box->close();
    });
    QTest::mouseClick(shown.test(), Qt::LeftButton);
    // As much of it as the table shows.
    QCOMPARE(text, QStringLiteral("Receiving address:") + QString(1000, QLatin1Char('w')) +
                       QStringLiteral(" , failed to send the email."));
}

SETTINGAREA_TEST_MAIN(tst_BadRecords, QApplication)
#include "tst_BadRecords.moc"
