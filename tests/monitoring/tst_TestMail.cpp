#include "plugin/CSettingArea.h"
#include "tests/monitoring/EmailGroup.h"
#include "tests/support/FakeHandler.h"
#include "tests/support/ModalScript.h"
#include "tests/support/TestObject.h"
#include "tests/support/UpperCase.h"

#include <QApplication>
#include <QScreen>

namespace {

QString warning(const char* text)
{
    return information(text); // looks the same to the script
}

// The handler that is installed from now on.
FakeHandler* install()
{
    auto* const handler = new FakeHandler;
    CSettingArea::instance().setHandler(handler);
    return handler;
}

} // namespace

class tst_TestMail : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void sendsWhatIsShown();
    void reports_data();
    void reports();
    void icons_data();
    void icons();
    void failsWithoutAHandler();
    void failsWithAnotherKindOfHandler();
    void checksFirst();
    void nothingToNobody();
    void addressesAreNotMarkup();
    void buttonIsDisabledMeanwhile();
    void buttonAfterPushesMeanwhile();
    void focusComesBack();
    void keepsTheFailuresOfTheLastTest();
    void oneHandlerForOneMail();
    void destroyedWhileSending();
    void destroyedBehindTheReport();
    void manyRecipientsFail();
    void bodyFollowsTheLanguage();
};

void tst_TestMail::cleanup()
{
    CSettingArea::instance().setHandler(nullptr);
    TestObject::cleanup();
}

void tst_TestMail::sendsWhatIsShown()
{
    const EmailGroup shown(validSettings());
    SEmailSettings sent;
    FakeHandler* const handler = install();
    handler->send = [&](QList<int>&, const SEmailSettings& settings, const QString&) {
        sent = settings;
        return true;
    };
    shown.box("Email notification")->click();
    shown.server()->setText(QStringLiteral("new.site.com")); // still being edited
    type(shown.password(), QStringLiteral("Other1"));
    shown.sender()->setText(QStringLiteral("new@site.com"));
    shown.count()->setValue(5);
    ModalScript script;
    script.press(CDialog::Ok);
    QTest::mouseClick(shown.test(), Qt::LeftButton);
    QCOMPARE(handler->calls(), QStringList{QStringLiteral("SendEmail(This is a test email from Orvel.)")});
    QCOMPARE(script.seen(), QStringList{information("The email was sent successful.")});
    QCOMPARE(sent.bEmailNotification, true);
    QCOMPARE(sent.bRecoveryNotice, true);
    QCOMPARE(sent.nAlertCount, 5);
    QCOMPARE(sent.bSsl, true);
    QCOMPARE(sent.nPort, 465);
    QCOMPARE(sent.strSenderAddress, QStringLiteral("new@site.com"));
    QCOMPARE(sent.strPassword, QStringLiteral("Other1"));
    QCOMPARE(sent.strSmtpServer, QStringLiteral("new.site.com"));
    QCOMPARE(texts(sent.lstRecipients), texts(validSettings().lstRecipients));
    QVERIFY(shown.test()->isEnabled());
}

void tst_TestMail::reports_data()
{
    QTest::addColumn<bool>("isSent");
    QTest::addColumn<QList<int>>("failed");
    QTest::addColumn<QString>("box");
    const QString failed = warning("Failed to send the email.");
    QTest::newRow("all delivered") << true << QList<int>() << information("The email was sent successful.");
    QTest::newRow("not sent") << false << QList<int>() << failed;
    QTest::newRow("not sent, one named") << false << QList<int>{1} << failed;
    QTest::newRow("all failed") << true << QList<int>{0, 1, 2} << failed;
    QTest::newRow("one failed") << true << QList<int>{1}
                                << warning("Receiving address:bob@host.com , failed to send the email.");
    QTest::newRow("two failed") << true << QList<int>{2, 0}
                                << warning("Receiving address:cay@host.com ann@host.com , failed to send the email.");
    QTest::newRow("outside") << true << QList<int>{-1, 2, 3}
                             << warning("Receiving address:cay@host.com , failed to send the email.");
    QTest::newRow("only outside") << true << QList<int>{17, -4, 3} << information("The email was sent successful.");
}

void tst_TestMail::reports()
{
    QFETCH(bool, isSent);
    QFETCH(QList<int>, failed);
    QFETCH(QString, box);
    const EmailGroup shown(validSettings());
    install()->send = [&](QList<int>& positions, const SEmailSettings&, const QString&) {
        positions = failed;
        return isSent;
    };
    ModalScript script;
    script.press(CDialog::Ok);
    QTest::mouseClick(shown.test(), Qt::LeftButton);
    QCOMPARE(script.seen(), QStringList{box});
    QVERIFY(shown.test()->isEnabled());
}

void tst_TestMail::icons_data()
{
    QTest::addColumn<QList<int>>("failed");
    QTest::addColumn<bool>("isSent");
    QTest::addColumn<bool>("warns");
    QTest::newRow("all delivered") << QList<int>() << true << false;
    QTest::newRow("some") << QList<int>{0} << true << true;
    QTest::newRow("none") << QList<int>{0, 1, 2} << true << true;
    QTest::newRow("not sent") << QList<int>() << false << true;
}

void tst_TestMail::icons()
{
    QFETCH(QList<int>, failed);
    QFETCH(bool, isSent);
    QFETCH(bool, warns);
    const EmailGroup shown(validSettings());
    install()->send = [&](QList<int>& positions, const SEmailSettings&, const QString&) {
        positions = failed;
        return isSent;
    };
    QImage icon;
    QImage expected;
    ModalScript script;
    script.use([&](QWidget* box) {
        const auto* const label = box->findChild<QLabel*>(QStringLiteral("MessageIcon"));
        icon = label->pixmap(Qt::ReturnByValue).toImage();
        const auto pixmap = warns ? QStyle::SP_MessageBoxWarning : QStyle::SP_MessageBoxInformation;
        expected = box->style()->standardIcon(pixmap, nullptr, box).pixmap(icon.size()).toImage();
        box->close();
    });
    QTest::mouseClick(shown.test(), Qt::LeftButton);
    QVERIFY(!icon.isNull());
    QCOMPARE(icon, expected);
}

void tst_TestMail::failsWithoutAHandler()
{
    const EmailGroup shown(validSettings());
    ModalScript script;
    script.press(CDialog::Ok);
    QTest::mouseClick(shown.test(), Qt::LeftButton);
    QCOMPARE(script.seen(), QStringList{warning("Failed to send the email.")});
    QVERIFY(shown.test()->isEnabled());
}

void tst_TestMail::failsWithAnotherKindOfHandler()
{
    class OtherHandler : public IAbstractInterfaceHandler
    {
    };
    const EmailGroup shown(validSettings());
    CSettingArea::instance().setHandler(new OtherHandler);
    ModalScript script;
    script.press(CDialog::Ok);
    QTest::mouseClick(shown.test(), Qt::LeftButton);
    QCOMPARE(script.seen(), QStringList{warning("Failed to send the email.")});
}

// What is wrong in the edits has not been noticed yet.
void tst_TestMail::checksFirst()
{
    const EmailGroup shown(validSettings());
    FakeHandler* const handler = install();
    shown.sender()->setText(QStringLiteral("wrong"));
    shown.port()->setText(QStringLiteral("0"));
    ModalScript script;
    QTest::mouseClick(shown.test(), Qt::LeftButton);
    QCOMPARE(script.seen(), QStringList());
    QCOMPARE(handler->calls(), QStringList());
    QCOMPARE(warningOf(shown.sender()), QLatin1String(wrongSender));
    QCOMPARE(warningOf(shown.port()), QLatin1String(wrongPort));
    QVERIFY(shown.test()->isEnabled());

    shown.sender()->setText(QString()); // an empty one is no address either
    shown.port()->setText(QStringLiteral("465"));
    QTest::mouseClick(shown.test(), Qt::LeftButton);
    QCOMPARE(warningOf(shown.sender()), QLatin1String(wrongSender));
    QCOMPARE(warningOf(shown.port()), QString());
    shown.sender()->setText(QStringLiteral("a@b.cd"));
    shown.port()->setText(QString());
    shown.ssl()->click(); // which the format of the port does not depend on
    QTest::mouseClick(shown.test(), Qt::LeftButton);
    QCOMPARE(warningOf(shown.sender()), QString());
    QCOMPARE(warningOf(shown.port()), QLatin1String(wrongPort));
    QCOMPARE(handler->calls(), QStringList());
}

void tst_TestMail::nothingToNobody()
{
    SEmailSettings settings = validSettings();
    settings.lstRecipients.clear();
    const EmailGroup shown(settings);
    FakeHandler* const handler = install();
    ModalScript script;
    QTest::mouseClick(shown.test(), Qt::LeftButton);
    shown.test()->setEnabled(true);
    QTest::mouseClick(shown.test(), Qt::LeftButton);
    QCOMPARE(handler->calls(), QStringList());
    QCOMPARE(script.seen(), QStringList());
}

void tst_TestMail::addressesAreNotMarkup()
{
    SEmailSettings settings = validSettings();
    settings.lstRecipients[1].strAddress = QStringLiteral("<b>bob</b><img src=x>");
    const EmailGroup shown(settings);
    install()->send = [](QList<int>& positions, const SEmailSettings&, const QString&) {
        positions = {1};
        return true;
    };
    ModalScript script;
    script.press(CDialog::Ok);
    QTest::mouseClick(shown.test(), Qt::LeftButton);
    QCOMPARE(script.seen(),
             QStringList{warning("Receiving address:<b>bob</b><img src=x> , failed to send the email.")});
}

void tst_TestMail::buttonIsDisabledMeanwhile()
{
    const EmailGroup shown(validSettings());
    QList<bool> enabled;
    FakeHandler* const handler = install();
    handler->send = [&](QList<int>&, const SEmailSettings&, const QString&) {
        enabled.append(shown.test()->isEnabled());
        // The host may run the event loop: the user finishes another edit, and clicks again.
        leave(shown.sender());
        leave(shown.port());
        QTest::mouseClick(shown.test(), Qt::LeftButton);
        enabled.append(shown.test()->isEnabled());
        return true;
    };
    ModalScript script;
    script.use([&](QWidget* box) {
        enabled.append(shown.test()->isEnabled());
        box->close();
    });
    QTest::mouseClick(shown.test(), Qt::LeftButton);
    QCOMPARE(enabled, QList<bool>({false, false, false}));
    QCOMPARE(handler->calls().size(), 1);
    QVERIFY(shown.test()->isEnabled());
}

void tst_TestMail::buttonAfterPushesMeanwhile()
{
    const EmailGroup shown(validSettings());
    install()->send = [&](QList<int>& failed, const SEmailSettings&, const QString&) {
        shown.group->setSettings(SEmailSettings());
        failed = {2};
        return true;
    };
    ModalScript script;
    script.press(CDialog::Ok);
    QTest::mouseClick(shown.test(), Qt::LeftButton);
    // The report is about the list that was sent to.
    QCOMPARE(script.seen(), QStringList{warning("Receiving address:cay@host.com , failed to send the email.")});
    QVERIFY(!shown.test()->isEnabled()); // there is nobody to send to any more
}

void tst_TestMail::focusComesBack()
{
    const EmailGroup shown(validSettings());
    install();
    QApplication::setActiveWindow(shown.group);
    shown.test()->setFocus();
    QVERIFY(shown.test()->hasFocus());
    ModalScript script;
    script.press(CDialog::Ok);
    QTest::keyClick(shown.test(), Qt::Key_Space);
    QVERIFY(script.isDone());
    QCOMPARE(shown.group->focusWidget(), shown.test());
}

void tst_TestMail::keepsTheFailuresOfTheLastTest()
{
    const EmailGroup shown(validSettings());
    QList<QList<int>> handed;
    install()->send = [&](QList<int>& failed, const SEmailSettings&, const QString&) {
        handed.append(failed);
        failed = {1, 2};
        return true;
    };
    ModalScript script;
    for (int i = 0; i < 2; ++i) {
        script.press(CDialog::Ok);
        QTest::mouseClick(shown.test(), Qt::LeftButton);
    }
    QCOMPARE(handed, QList<QList<int>>({{}, {1, 2}}));
}

void tst_TestMail::oneHandlerForOneMail()
{
    const EmailGroup shown(validSettings());
    bool isDestroyed = false;
    bool wasDestroyed = true;
    FakeHandler* const handler = install();
    handler->destroyed = [&] { isDestroyed = true; };
    handler->send = [&](QList<int>&, const SEmailSettings&, const QString&) {
        install();
        wasDestroyed = isDestroyed;
        return true;
    };
    ModalScript script;
    script.press(CDialog::Ok);
    QTest::mouseClick(shown.test(), Qt::LeftButton);
    QVERIFY(!wasDestroyed);
    QVERIFY(isDestroyed);
    QCOMPARE(script.seen(), QStringList{information("The email was sent successful.")});
}

void tst_TestMail::destroyedWhileSending()
{
    const EmailGroup shown(validSettings());
    install()->send = [&](QList<int>& failed, const SEmailSettings& settings, const QString& body) {
        delete shown.group;
        failed = {0};
        return settings.lstRecipients.size() == 3 && !body.isEmpty();
    };
    ModalScript script;
    QTest::mouseClick(shown.test(), Qt::LeftButton);
    QVERIFY(!shown.group);
    QCOMPARE(script.seen(), QStringList());
}

void tst_TestMail::destroyedBehindTheReport()
{
    for (const QList<int>& failedPositions : {QList<int>(), QList<int>{1}, QList<int>{0, 1, 2}}) {
        const EmailGroup shown(validSettings());
        install()->send = [&](QList<int>& failed, const SEmailSettings&, const QString&) {
            failed = failedPositions;
            return true;
        };
        ModalScript script;
        script.use([&](QWidget*) { delete shown.group; });
        QTest::mouseClick(shown.test(), Qt::LeftButton);
        QVERIFY(!shown.group);
        QVERIFY(script.isDone());
    }
}

void tst_TestMail::manyRecipientsFail()
{
    SEmailSettings settings = validSettings();
    QList<int> positions;
    QString expected = QStringLiteral("Receiving address:");
    for (int i = 0; i < 10000; ++i) {
        const QString address = QStringLiteral("r%1@host.com").arg(i);
        settings.lstRecipients.append({{}, address});
        positions.append(i + 3);
        expected += address + QLatin1Char(' ');
    }
    const EmailGroup shown(settings);
    install()->send = [&](QList<int>& failed, const SEmailSettings&, const QString&) {
        failed = positions;
        return true;
    };
    ModalScript script;
    QString text;
    QSize size;
    script.use([&](QWidget* box) {
        text = qobject_cast<CMessageBox*>(box)->text();
        size = box->size();
        box->close();
    });
    QTest::mouseClick(shown.test(), Qt::LeftButton);
    QCOMPARE(text, expected + QStringLiteral(", failed to send the email."));
    const QSize screen = shown.group->screen()->availableSize();
    QVERIFY(size.width() < screen.width() && size.height() < screen.height());
}

void tst_TestMail::bodyFollowsTheLanguage()
{
    const EmailGroup shown(validSettings());
    QPushButton* const test = shown.test();
    FakeHandler* const handler = install();
    const UpperCase language;
    ModalScript script;
    script.press(CDialog::Ok);
    QTest::mouseClick(test, Qt::LeftButton);
    QCOMPARE(handler->calls(), QStringList{QStringLiteral("SendEmail(THIS IS A TEST EMAIL FROM ORVEL.)")});
    QCOMPARE(script.seen(), QStringList{QStringLiteral("Orvel: THE EMAIL WAS SENT SUCCESSFUL. [(OK)]")});
}

SETTINGAREA_TEST_MAIN(tst_TestMail, QApplication)

#include "tst_TestMail.moc"
