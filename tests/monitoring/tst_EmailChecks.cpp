#include "tests/monitoring/EmailGroup.h"
#include "tests/support/ModalScript.h"
#include "tests/support/TestObject.h"

#include <QApplication>

#include <functional>

namespace {

// The ways to finish editing.
const std::function<void(QLineEdit*)> finishers[] = {
    [](QLineEdit* edit) { QTest::keyClick(edit, Qt::Key_Return); },
    [](QLineEdit* edit) { QTest::keyClick(edit, Qt::Key_Enter); },
    [](QLineEdit* edit) { leave(edit); },
};

SEmailSettings withPort(int port)
{
    SEmailSettings settings = validSettings();
    settings.nPort = port;
    return settings;
}

} // namespace

// What the edits of the account are checked for, and when a test mail can be sent.
class tst_EmailChecks : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void sender_data();
    void sender();
    void senderIsCheckedWhenFinished();
    void pushedSenderIsChecked();
    void pushedSenderThatCannotBeTyped();
    void port_data();
    void port();
    void portWithoutSsl();
    void pushedPortIsNotChecked();
    void pushedPortThatCannotBeTyped();
    void warningsUntilTheNextChange();
    void testButtonNeedsASender();
    void testButtonNeedsAPort();
    void testButtonNeedsARecipient();
    void sslAloneChangesNothing();
};

void tst_EmailChecks::sender_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("warns");
    QTest::addColumn<bool>("canTest");
    QTest::newRow("valid") << QStringLiteral("a.B-c_1@host.com") << false << true;
    QTest::newRow("country") << QStringLiteral("a@host.com.cn") << false << true;
    QTest::newRow("empty") << QString() << false << false;
    QTest::newRow("sub-domain") << QStringLiteral("a@mail.host.com") << true << false;
    QTest::newRow("upper case") << QStringLiteral("a@Host.com") << true << false;
    QTest::newRow("no host") << QStringLiteral("a@") << true << false;
}

void tst_EmailChecks::sender()
{
    QFETCH(QString, text);
    QFETCH(bool, warns);
    QFETCH(bool, canTest);
    for (const auto& finish : finishers) {
        const EmailGroup shown(validSettings());
        type(shown.sender(), text);
        finish(shown.sender());
        QCOMPARE(warningOf(shown.sender()), warns ? QLatin1String(wrongSender) : QString());
        QCOMPARE(shown.test()->isEnabled(), canTest);
    }
}

void tst_EmailChecks::senderIsCheckedWhenFinished()
{
    const EmailGroup shown(validSettings());
    type(shown.sender(), QStringLiteral("wrong"));
    QCOMPARE(warningOf(shown.sender()), QString());
    QVERIFY(shown.test()->isEnabled());
    leave(shown.sender());
    QVERIFY(!shown.test()->isEnabled());
}

void tst_EmailChecks::pushedSenderIsChecked()
{
    SEmailSettings settings = validSettings();
    settings.strSenderAddress = QStringLiteral("wall@screen.site.com");
    const EmailGroup shown(settings);
    QCOMPARE(warningOf(shown.sender()), QLatin1String(wrongSender));
    QVERIFY(!shown.test()->isEnabled());
    QCOMPARE(shown.group->settings().strSenderAddress, QStringLiteral("wall@screen.site.com"));
    shown.group->setSettings(settings); // the text does not change
    QCOMPARE(warningOf(shown.sender()), QLatin1String(wrongSender));
    shown.group->setSettings(validSettings());
    QCOMPARE(warningOf(shown.sender()), QString());
    QVERIFY(shown.test()->isEnabled());
}

void tst_EmailChecks::pushedSenderThatCannotBeTyped()
{
    SEmailSettings settings = validSettings();
    settings.strSenderAddress = QStringLiteral("<b>w all\n@site.com");
    const EmailGroup shown(settings);
    QCOMPARE(warningOf(shown.sender()), QLatin1String(wrongSender));
    QTest::keyClick(shown.sender(), Qt::Key_Backspace);
    QCOMPARE(warningOf(shown.sender()), QString());
    leave(shown.sender());
    QCOMPARE(warningOf(shown.sender()), QLatin1String(wrongSender));
}

void tst_EmailChecks::port_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("warns");
    QTest::addColumn<int>("number");
    QTest::addColumn<bool>("canTest");
    QTest::newRow("465") << QStringLiteral("465") << false << 465 << true;
    QTest::newRow("1") << QStringLiteral("1") << false << 1 << true;
    QTest::newRow("greatest") << QStringLiteral("9999999") << false << 9999999 << true;
    QTest::newRow("0") << QStringLiteral("0") << true << 0 << false;
    QTest::newRow("00") << QStringLiteral("00") << true << 0 << false;
    QTest::newRow("0465") << QStringLiteral("0465") << true << 465 << false;
    QTest::newRow("+465") << QStringLiteral("+465") << true << 465 << false;
    QTest::newRow("empty") << QString() << false << 0 << false;
}

void tst_EmailChecks::port()
{
    QFETCH(QString, text);
    QFETCH(bool, warns);
    QFETCH(int, number);
    QFETCH(bool, canTest);
    for (const auto& finish : finishers) {
        const EmailGroup shown(withPort(587));
        type(shown.port(), text);
        QCOMPARE(warningOf(shown.port()), QString());
        QVERIFY(shown.test()->isEnabled());
        finish(shown.port());
        QCOMPARE(shown.port()->text(), text);
        QCOMPARE(warningOf(shown.port()), warns ? QLatin1String(wrongPort) : QString());
        QCOMPARE(shown.test()->isEnabled(), canTest);
        QCOMPARE(shown.group->settings().nPort, number);
    }
}

void tst_EmailChecks::portWithoutSsl()
{
    SEmailSettings settings = withPort(587);
    settings.bSsl = false;
    const EmailGroup shown(settings); // leaves the port enabled
    for (const char* text : {"0", "00", "0465"}) {
        type(shown.port(), QLatin1String(text));
        leave(shown.port());
        QCOMPARE(warningOf(shown.port()), QString());
        QVERIFY(!shown.test()->isEnabled()); // that looks at the format alone
        QCOMPARE(shown.group->settings().nPort, QString::fromLatin1(text).toInt());
    }
    type(shown.port(), QStringLiteral("25"));
    leave(shown.port());
    QVERIFY(shown.test()->isEnabled());
}

void tst_EmailChecks::pushedPortIsNotChecked()
{
    const EmailGroup shown(withPort(0));
    QCOMPARE(shown.port()->text(), QStringLiteral("0"));
    QCOMPARE(warningOf(shown.port()), QString());
    QVERIFY(!shown.test()->isEnabled());
    leave(shown.port());
    QCOMPARE(warningOf(shown.port()), QLatin1String(wrongPort));
}

void tst_EmailChecks::pushedPortThatCannotBeTyped()
{
    for (const int port : {-5, 100000000, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        const EmailGroup shown(withPort(port));
        QCOMPARE(shown.group->settings().nPort, port);
        QVERIFY(!shown.test()->isEnabled());
        for (const auto& finish : finishers) {
            shown.port()->clearWarning();
            finish(shown.port());
            QCOMPARE(warningOf(shown.port()), QLatin1String(wrongPort));
        }
    }
    const EmailGroup shown(withPort(99999999)); // of the format, though more than can be typed
    QVERIFY(shown.test()->isEnabled());
}

void tst_EmailChecks::warningsUntilTheNextChange()
{
    const EmailGroup shown(validSettings());
    type(shown.sender(), QStringLiteral("wrong"));
    leave(shown.sender());
    type(shown.port(), QStringLiteral("0465"));
    leave(shown.port());
    QTest::keyClick(shown.sender(), Qt::Key_Home);
    leave(shown.server());
    QCOMPARE(warningOf(shown.sender()), QLatin1String(wrongSender));
    QCOMPARE(warningOf(shown.port()), QLatin1String(wrongPort));
    QTest::keyClicks(shown.sender(), QStringLiteral("x"));
    QCOMPARE(warningOf(shown.sender()), QString());
    QCOMPARE(warningOf(shown.port()), QLatin1String(wrongPort));
    QTest::keyClick(shown.port(), Qt::Key_Backspace);
    QCOMPARE(warningOf(shown.port()), QString());
}

void tst_EmailChecks::testButtonNeedsASender()
{
    SEmailSettings settings = validSettings();
    settings.strSenderAddress.clear();
    const EmailGroup shown(settings);
    QVERIFY(!shown.test()->isEnabled());
    QCOMPARE(warningOf(shown.sender()), QString());
    type(shown.sender(), QStringLiteral("a@b.cd"));
    QVERIFY(!shown.test()->isEnabled());
    leave(shown.sender());
    QVERIFY(shown.test()->isEnabled());
}

void tst_EmailChecks::testButtonNeedsAPort()
{
    const EmailGroup shown(validSettings());
    type(shown.port(), QString());
    leave(shown.port());
    QVERIFY(!shown.test()->isEnabled());
    type(shown.port(), QStringLiteral("25"));
    leave(shown.port());
    QVERIFY(shown.test()->isEnabled());
}

void tst_EmailChecks::testButtonNeedsARecipient()
{
    SEmailSettings settings = validSettings();
    settings.lstRecipients.clear();
    const EmailGroup shown(settings);
    QVERIFY(!shown.test()->isEnabled());
    ModalScript script;
    script.use([](QWidget* dialog) {
        type(named<QLineEdit>(*dialog, "Email address"), QStringLiteral("ann@host.com"));
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    QTest::mouseClick(shown.add(), Qt::LeftButton);
    QVERIFY(shown.test()->isEnabled());
    QCOMPARE(texts(shown.group->settings().lstRecipients), QStringList{QStringLiteral(" <ann@host.com>")});
    shown.table()->selectRow(0);
    script.press(CDialog::Yes);
    QTest::keyClick(shown.add(), Qt::Key_Delete);
    QVERIFY(!shown.test()->isEnabled());
    QVERIFY(shown.group->settings().lstRecipients.isEmpty());
}

void tst_EmailChecks::sslAloneChangesNothing()
{
    const EmailGroup shown(validSettings());
    type(shown.port(), QStringLiteral("0"));
    leave(shown.port());
    shown.ssl()->click();
    QVERIFY(!shown.test()->isEnabled());
    shown.ssl()->click();
    QVERIFY(!shown.test()->isEnabled());
    QCOMPARE(warningOf(shown.port()), QLatin1String(wrongPort));
}

SETTINGAREA_TEST_MAIN(tst_EmailChecks, QApplication)

#include "tst_EmailChecks.moc"
