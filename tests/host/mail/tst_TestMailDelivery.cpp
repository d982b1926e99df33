#include "host/mail/CMailer.h"
#include "plugin/CSettingArea.h"
#include "tests/host/mail/MailFixture.h"
#include "tests/monitoring/EmailGroup.h"
#include "tests/support/FakeHandler.h"
#include "tests/support/ModalScript.h"
#include "tests/support/PaintCounter.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QTemporaryDir>

#include <atomic>

namespace {

// As the user reads them.
constexpr int tlsPort = 465;
constexpr int startTlsPort = 587;

constexpr std::chrono::milliseconds ample{30000};
constexpr std::chrono::milliseconds brief{700}; // for servers that say nothing

// What a mail may take on a busy computer, in place of the time-out or beyond it.
constexpr int slackMs = 10'000;

constexpr const char* delivered = "The email was sent successful.";
constexpr const char* notDelivered = "Failed to send the email.";

} // namespace

// The page's test mail, sent by the host to real servers.
class tst_TestMailDelivery : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void reports_data();
    void reports();
    void theWindowRepaintsMeanwhile();
    void nothingIsInjected();

private:
    static SEmailSettings settingsFor(const SmtpServer& server);

    QTemporaryDir m_folder;
    QDir m_certificates;
};

void tst_TestMailDelivery::initTestCase()
{
    m_certificates.setPath(m_folder.path());
    QVERIFY(MailFixture::makeCertificates(m_certificates));
}

void tst_TestMailDelivery::cleanup()
{
    CSettingArea::instance().setHandler(nullptr);
    TestObject::cleanup();
}

// Without encryption.
SEmailSettings tst_TestMailDelivery::settingsFor(const SmtpServer& server)
{
    SEmailSettings settings;
    settings.bSsl = false;
    settings.nPort = server.port();
    settings.strSenderAddress = QStringLiteral("sender@example.com");
    settings.strPassword = QStringLiteral("secret");
    settings.strSmtpServer = QStringLiteral("127.0.0.1");
    settings.lstRecipients = MailFixture::message(3).recipients;
    return settings;
}

void tst_TestMailDelivery::reports_data()
{
    QTest::addColumn<bool>("ssl");
    QTest::addColumn<int>("port");
    QTest::addColumn<QString>("server"); // its encryption, its certificate, and what it does
    QTest::addColumn<QList<int>>("failed");
    QTest::addColumn<QString>("box");
    const QList<int> all{0, 1, 2};
    const auto row = [](const char* name, int port, const char* server, const QList<int>& failed, const char* box) {
        QTest::newRow(name) << (port != 0) << port << QString::fromLatin1(server) << failed << information(box);
    };
    row("accepted", tlsPort, "implicit sound", {}, delivered);
    row("accepted, STARTTLS", startTlsPort, "starttls sound", {}, delivered);
    row("accepted, plain", 0, "none sound", {}, delivered);
    row("some refused", tlsPort, "implicit sound --refuse a@example.com --refuse c@example.com", {0, 2},
        "Receiving address:a@example.com c@example.com , failed to send the email.");
    row("all refused", tlsPort, "implicit sound --refuse a@example.com --refuse b@example.com --refuse c@example.com",
        all, notDelivered);
    row("wrong password", tlsPort, "implicit sound --password another", all, notDelivered);
    row("no login offered", tlsPort, "implicit sound --no-auth", all, notDelivered);
    row("STARTTLS missing", startTlsPort, "none sound", all, notDelivered);
    row("TLS to a plain port", tlsPort, "none sound", all, notDelivered);
    row("plain to a TLS port", 0, "implicit sound", all, notDelivered);
    row("expired certificate", tlsPort, "implicit expired", all, notDelivered);
    row("foreign certificate", tlsPort, "implicit foreign", all, notDelivered);
    row("silent at connect", tlsPort, "implicit sound --hold CONNECT", all, notDelivered);
    row("silent after DATA", tlsPort, "implicit sound --hold CONTENT", all, notDelivered);
    row("silent at QUIT", tlsPort, "implicit sound --hold QUIT", {}, delivered);
    row("dropped at RCPT", tlsPort, "implicit sound --drop RCPT", all, notDelivered);
}

void tst_TestMailDelivery::reports()
{
    QFETCH(bool, ssl);
    QFETCH(int, port);
    QFETCH(QString, server);
    QFETCH(QList<int>, failed);
    QFETCH(QString, box);
    const QStringList words = server.split(QLatin1Char(' '));
    SmtpServer mailServer(MailFixture::encrypted(qPrintable(words[0]), m_certificates, qPrintable(words[1])) +
                          words.mid(2));
    const bool isSilent = words.contains(QLatin1String("CONNECT")) || words.contains(QLatin1String("CONTENT")) ||
                          (words[0] == QLatin1String("implicit") && !ssl);
    const SmtpSender sender({m_certificates.filePath(QStringLiteral("authority.pem")), isSilent ? brief : ample});

    SEmailSettings settings = settingsFor(mailServer);
    settings.bSsl = ssl;
    if (ssl)
        settings.nPort = port;
    const EmailGroup shown(settings);

    // The server listens at a port of its own. What the port on the page stands for is decided before.
    QList<int> positions;
    qint64 tookMs = 0;
    const std::atomic_bool never{false};
    auto* const handler = new FakeHandler;
    CSettingArea::instance().setHandler(handler);
    handler->send = [&](QList<int>& failedPositions, const SEmailSettings& account, const QString& body) {
        MailAccount from = MailAccount::from(account);
        from.port = mailServer.port();
        MailMessage message;
        message.body = body;
        message.recipients = account.lstRecipients;
        QElapsedTimer timer;
        timer.start();
        const MailResult result = sender.send(from, message, never);
        tookMs = timer.elapsed();
        failedPositions = positions = result.failedPositions;
        return result.sent;
    };
    ModalScript script;
    script.press(CDialog::Ok);
    QTest::mouseClick(shown.test(), Qt::LeftButton);
    QCOMPARE(script.seen(), QStringList{box});
    QCOMPARE(positions, failed);
    QVERIFY(shown.test()->isEnabled());

    const auto least = isSilent ? brief.count() - 2 : 0; // two clocks, each rounded to 1 ms
    QVERIFY2(tookMs >= least && tookMs < least + slackMs, qPrintable(QString::number(tookMs)));
    QCOMPARE(mailServer.mails().size(), failed == QList<int>({0, 1, 2}) ? 0 : 1);
    QCOMPARE(mailServer.sawOpenLogin(), !ssl && words[0] == QLatin1String("none"));
}

void tst_TestMailDelivery::theWindowRepaintsMeanwhile()
{
    SmtpServer mailServer(MailFixture::words("--hold RCPT"));
    const EmailGroup shown(settingsFor(mailServer));
    QVERIFY(QTest::qWaitForWindowExposed(shown.group));

    CMailer mailer({QString(), ample});
    PaintCounter counter;
    int painted = 0; // while the mail was on its way
    auto* const handler = new FakeHandler;
    CSettingArea::instance().setHandler(handler);
    handler->send = [&](QList<int>& failed, const SEmailSettings& account, const QString& body) {
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, shown.table()->viewport(), [&] {
            if (counter.paints == 10)
                mailServer.release();
            shown.group->update();
        });
        timer.start(1);
        shown.group->installEventFilter(&counter);
        const MailResult result = mailer.send(account, body);
        painted = counter.paints;
        failed = result.failedPositions;
        return result.sent;
    };
    ModalScript script;
    script.press(CDialog::Ok);
    QTest::mouseClick(shown.test(), Qt::LeftButton);
    QCOMPARE(script.seen(), QStringList{information(delivered)});
    QVERIFY2(painted >= 10, qPrintable(QString::number(painted)));
    QTRY_VERIFY(!mailer.isBusy());
}

void tst_TestMailDelivery::nothingIsInjected()
{
    SmtpServer mailServer({});
    SEmailSettings settings = settingsFor(mailServer);
    settings.lstRecipients = {
        {QStringLiteral("Ann\r\nBcc: eve@example.com"), QStringLiteral("a@example.com")},
        {QStringLiteral("Bob"), QStringLiteral("b@example.com\r\nRCPT TO:<eve@example.com>")},
        {QStringLiteral("Cay\nX-Evil: 1"), QStringLiteral("c@example.com")},
        {QStringLiteral("<b>Dan</b>, \"eve\" <eve@example.com>"), QStringLiteral("d@example.com")},
        {QString(), QString(1 << 20, QLatin1Char('e')) + QStringLiteral("@example.com")},
    };
    const EmailGroup shown(settings);
    CMailer mailer({QString(), ample});
    QList<int> positions;
    auto* const handler = new FakeHandler;
    CSettingArea::instance().setHandler(handler);
    handler->send = [&](QList<int>& failed, const SEmailSettings& account, const QString& body) {
        const MailResult result = mailer.send(account, body);
        failed = positions = result.failedPositions;
        return result.sent;
    };
    ModalScript script;
    script.use([](QWidget* box) { box->close(); });
    QTest::mouseClick(shown.test(), Qt::LeftButton);
    QCOMPARE(positions, (QList<int>{0, 1, 2, 4}));
    QVERIFY(mailServer.waitFor("QUIT"));
    QCOMPARE(mailServer.commands(), MailFixture::words("EHLO AUTH MAIL RCPT DATA QUIT"));
    const QJsonObject mail = mailServer.mails().value(0);
    QCOMPARE(mail.value(QLatin1String("to")),
             QJsonValue(QJsonArray{QJsonArray{settings.lstRecipients[3].strName, QStringLiteral("d@example.com")}}));
    QCOMPARE(mail.value(QLatin1String("body")), QJsonValue(QStringLiteral("This is a test email from Orvel.")));
    QVERIFY(!mail.value(QLatin1String("content")).toString().contains(QLatin1String("Bcc")));
    QTRY_VERIFY(!mailer.isBusy());
}

SETTINGAREA_TEST_MAIN(tst_TestMailDelivery, QApplication)
#include "tst_TestMailDelivery.moc"
