#include "host/mail/CMailer.h"
#include "tests/host/NoThreads.h"
#include "tests/host/mail/MailFixture.h"
#include "tests/support/TestObject.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QTimer>

using MailFixture::words;

namespace {

constexpr std::chrono::milliseconds ample{30000};
constexpr int slackMs = 10'000;

SEmailSettings settingsFor(const SmtpServer& server)
{
    SEmailSettings settings;
    settings.bSsl = false;
    settings.nPort = server.port();
    settings.strSmtpServer = QStringLiteral("127.0.0.1");
    settings.strSenderAddress = QStringLiteral("sender@example.com");
    settings.strPassword = QStringLiteral("secret");
    settings.lstRecipients = MailFixture::message(2).recipients;
    return settings;
}

} // namespace

class tst_CMailer : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void theMailIsThatOfTheSettings();
    void eventsGoOnMeanwhile();
    void theSettingsMayChangeMeanwhile();
    void aSecondMailIsRefusedMeanwhile();
    void theEndOfTheProgramIsNotHeldUp();
    void aMailAfterTheEndIsGivenUp();
    void aSilentServerIsNotWaitedForLong();
    void aSystemWithoutThreads();
};

void tst_CMailer::theMailIsThatOfTheSettings()
{
    SmtpServer server(words("--refuse a@example.com"));
    CMailer mailer({QString(), ample});
    const MailResult result = mailer.send(settingsFor(server), QStringLiteral("This is a test email from Orvel."));
    QVERIFY(result.sent);
    QCOMPARE(result.failedPositions, QList<int>{0});
    QCOMPARE(result.reason, QStringLiteral("The server refuses a recipient: 550 5.1.1 no such mailbox"));
    const QJsonObject mail = server.mails().value(0);
    QCOMPARE(mail.value(QLatin1String("subject")), QJsonValue(QStringLiteral("Message from Orvel")));
    QCOMPARE(mail.value(QLatin1String("body")), QJsonValue(QStringLiteral("This is a test email from Orvel.")));
    QTRY_VERIFY(!mailer.isBusy());
}

void tst_CMailer::eventsGoOnMeanwhile()
{
    SmtpServer server(words("--hold RCPT"));
    CMailer mailer({QString(), ample});
    int rounds = 0;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] {
        if (++rounds == 20)
            server.release();
    });
    timer.start(1);
    QVERIFY(mailer.send(settingsFor(server), QString()).sent);
    QVERIFY(rounds >= 20);
}

// The pages are read and written while the mail is on its way.
void tst_CMailer::theSettingsMayChangeMeanwhile()
{
    SmtpServer server(words("--hold RCPT"));
    CMailer mailer({QString(), ample});
    SEmailSettings settings = settingsFor(server);
    QTimer::singleShot(0, this, [&] {
        settings = SEmailSettings();
        server.release();
    });
    const MailResult result = mailer.send(settings, QString());
    QVERIFY(result.sent);
    QCOMPARE(result.failedPositions, QList<int>());
    QCOMPARE(server.mails().value(0).value(QLatin1String("to")).toArray().size(), 2);
}

void tst_CMailer::aSecondMailIsRefusedMeanwhile()
{
    SmtpServer server(words("--hold RCPT"));
    CMailer mailer({QString(), ample});
    MailResult second;
    QTimer::singleShot(0, this, [&] {
        second = mailer.send(settingsFor(server), QStringLiteral("second"));
        server.release();
    });
    QVERIFY(mailer.send(settingsFor(server), QStringLiteral("first")).sent);
    QVERIFY(!second.sent);
    QCOMPARE(second.failedPositions, (QList<int>{0, 1}));
    QCOMPARE(second.reason, QStringLiteral("Another mail is being sent."));
    QCOMPARE(server.mails().size(), 1);
}

void tst_CMailer::theEndOfTheProgramIsNotHeldUp()
{
    SmtpServer server(words("--hold RCPT"));
    CMailer mailer({QString(), ample});
    MailResult result;
    QTimer::singleShot(0, this, [&] {
        QTimer::singleShot(0, this, [&] {
            QVERIFY(server.waitFor("RCPT"));
            QCoreApplication::quit();
        });
        result = mailer.send(settingsFor(server), QString());
    });
    QElapsedTimer timer;
    timer.start();
    QCoreApplication::exec();
    QVERIFY2(timer.elapsed() < slackMs, qPrintable(QString::number(timer.elapsed())));
    QVERIFY(!result.sent);
    QCOMPARE(result.failedPositions, (QList<int>{0, 1}));
    QCOMPARE(result.reason, QStringLiteral("The mail was given up, since the program ends."));
    QTRY_VERIFY(!mailer.isBusy()); // the worker gives up as well
}

void tst_CMailer::aMailAfterTheEndIsGivenUp()
{
    SmtpServer server(words("--hold CONNECT"));
    CMailer mailer({QString(), ample});
    MailResult result;
    QTimer::singleShot(0, this, [&] {
        QCoreApplication::quit();
        result = mailer.send(settingsFor(server), QString());
    });
    QCoreApplication::exec();
    QCOMPARE(result.reason, QStringLiteral("The mail was given up, since the program ends."));
    QTRY_VERIFY(!mailer.isBusy());
}

void tst_CMailer::aSilentServerIsNotWaitedForLong()
{
    SmtpServer server(words("--hold CONNECT"));
    CMailer mailer({QString(), std::chrono::milliseconds(500)});
    QElapsedTimer timer;
    timer.start();
    const MailResult result = mailer.send(settingsFor(server), QString());
    QVERIFY2(timer.elapsed() < slackMs, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(result.reason, QStringLiteral("The mail server did not answer in time."));
}

void tst_CMailer::aSystemWithoutThreads()
{
    const NoThreads none;
    CMailer mailer({QString(), ample});
    SEmailSettings settings;
    settings.lstRecipients = MailFixture::message(1).recipients;
    const MailResult result = mailer.send(settings, QString());
    QVERIFY(!result.sent);
    QCOMPARE(result.failedPositions, QList<int>{0});
    QCOMPARE(result.reason, QStringLiteral("Resource temporarily unavailable"));
    QVERIFY(!mailer.isBusy());
}

SETTINGAREA_TEST_MAIN(tst_CMailer, QCoreApplication)
#include "tst_CMailer.moc"
