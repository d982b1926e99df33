#include "tests/host/mail/MailFixture.h"
#include "tests/support/TestObject.h"

#include <QElapsedTimer>
#include <QTemporaryDir>

#include <future>

using Encryption = MailAccount::Encryption;
using MailFixture::account;
using MailFixture::encrypted;
using MailFixture::message;

namespace {

// For transfers that are to fail before it, and for those that are to run into it.
constexpr std::chrono::milliseconds ample{30000};
constexpr std::chrono::milliseconds brief{700};

// What a transfer may take on a busy computer beyond its time-out.
constexpr int slackMs = 10'000;

} // namespace

// Servers that take no mail, whatever the reason.
class tst_SmtpFailures : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void theServerRefuses_data();
    void theServerRefuses();
    void encryptionDoesNotComeAbout_data();
    void encryptionDoesNotComeAbout();
    void theSystemTrustsNoOwnAuthority();
    void theServerFallsSilent_data();
    void theServerFallsSilent();
    void theServerHangsUp_data();
    void theServerHangsUp();
    void nobodyListens();
    void nothingIsSentForABadOrder_data();
    void nothingIsSentForABadOrder();
    void aMailCanBeCancelled();
    void noReasonTellsThePassword();

private:
    MailResult send(const MailAccount& from, const MailMessage& mail, std::chrono::milliseconds timeout) const;
    QStringList server(Encryption encryption) const;
    QString pem(const char* name) const { return m_certificates.filePath(QLatin1String(name) + QLatin1String(".pem")); }

    QTemporaryDir m_folder;
    QDir m_certificates;
    const std::atomic_bool m_never{false};
};

void tst_SmtpFailures::initTestCase()
{
    m_certificates.setPath(m_folder.path());
    QVERIFY(MailFixture::makeCertificates(m_certificates));
}

MailResult tst_SmtpFailures::send(const MailAccount& from, const MailMessage& mail,
                                  std::chrono::milliseconds timeout) const
{
    QElapsedTimer timer;
    timer.start();
    const MailResult result = SmtpSender({pem("authority"), timeout}).send(from, mail, m_never);
    if (timer.elapsed() > timeout.count() + slackMs)
        qWarning("It took %lld ms", timer.elapsed());
    return result;
}

QStringList tst_SmtpFailures::server(Encryption encryption) const
{
    if (encryption == Encryption::None)
        return {};
    return encrypted(encryption == Encryption::Tls ? "implicit" : "starttls", m_certificates, "sound");
}

void tst_SmtpFailures::theServerRefuses_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QString>("commands");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* name, const char* options, const char* commands, const char* reason) {
        QTest::newRow(name) << QString::fromLatin1(options) << QString::fromLatin1(commands)
                            << QString::fromLatin1(reason);
    };
    row("all recipients", "--refuse a@example.com --refuse b@example.com", "EHLO AUTH MAIL RCPT RCPT",
        "The mail server refuses the mail: 550 5.1.1 no such mailbox");
    row("the content", "--refuse-content", "EHLO AUTH MAIL RCPT RCPT DATA",
        "The mail server refuses the mail: 550 5.1.1 no such mailbox");
    row("the password", "--password another", "EHLO AUTH", "The mail server refuses the address and password.");
    row("the user", "--user another", "EHLO AUTH", "The mail server refuses the address and password.");
    row("any login", "--no-auth", "EHLO MAIL", "The mail server offers no login, so nothing was sent.");
}

void tst_SmtpFailures::theServerRefuses()
{
    QFETCH(QString, options);
    QFETCH(QString, commands);
    QFETCH(QString, reason);
    for (const Encryption encryption : {Encryption::None, Encryption::StartTls, Encryption::Tls}) {
        SmtpServer mailServer(server(encryption) + options.split(QLatin1Char(' ')));
        const MailResult result = send(account(mailServer.port(), encryption), message(2), ample);
        QVERIFY(!result.sent);
        QCOMPARE(result.failedPositions, (QList<int>{0, 1}));
        QCOMPARE(result.reason, reason);
        QCOMPARE(mailServer.mails().size(), 0);
        const QString tls = encryption == Encryption::StartTls ? QStringLiteral("EHLO STARTTLS ") : QString();
        QStringList seen = mailServer.commands();
        seen.removeAll(QStringLiteral("QUIT"));
        QCOMPARE(seen.join(QLatin1Char(' ')), tls + commands);
    }
}

void tst_SmtpFailures::encryptionDoesNotComeAbout_data()
{
    QTest::addColumn<Encryption>("asked");
    QTest::addColumn<QString>("offered");
    QTest::addColumn<QString>("certificate");
    QTest::addColumn<QString>("reason"); // how it begins
    const auto row = [](const char* name, Encryption asked, const char* offered, const char* certificate,
                        const char* reason) {
        QTest::newRow(name) << asked << QString::fromLatin1(offered) << QString::fromLatin1(certificate)
                            << QString::fromLatin1(reason);
    };
    const char untrusted[] = "The mail server's certificate is not trusted: SSL";
    row("STARTTLS is missing", Encryption::StartTls, "none", "sound", "The mail server offers no encryption at port ");
    row("TLS to a plain port", Encryption::Tls, "none", "sound", "No encrypted connection comes about at port ");
    row("TLS to a port with STARTTLS", Encryption::Tls, "starttls", "sound",
        "No encrypted connection comes about at port ");
    row("plain to a TLS port", Encryption::None, "implicit", "sound", "The mail server did not answer in time.");
    row("STARTTLS to a TLS port", Encryption::StartTls, "implicit", "sound", "The mail server did not answer in time.");
    row("expired", Encryption::Tls, "implicit", "expired", untrusted);
    row("foreign", Encryption::Tls, "implicit", "foreign", untrusted);
    row("misnamed", Encryption::Tls, "implicit", "misnamed", untrusted);
    row("expired, STARTTLS", Encryption::StartTls, "starttls", "expired", untrusted);
    row("foreign, STARTTLS", Encryption::StartTls, "starttls", "foreign", untrusted);
    row("misnamed, STARTTLS", Encryption::StartTls, "starttls", "misnamed", untrusted);
}

void tst_SmtpFailures::encryptionDoesNotComeAbout()
{
    QFETCH(Encryption, asked);
    QFETCH(QString, offered);
    QFETCH(QString, certificate);
    QFETCH(QString, reason);
    SmtpServer mailServer(encrypted(qPrintable(offered), m_certificates, qPrintable(certificate)));
    const bool isSilent = offered == QLatin1String("implicit") && asked != Encryption::Tls;
    const MailResult result = send(account(mailServer.port(), asked), message(2), isSilent ? brief : ample);
    QVERIFY(!result.sent);
    QCOMPARE(result.failedPositions, (QList<int>{0, 1}));
    QVERIFY2(result.reason.startsWith(reason), qPrintable(result.reason));
    QVERIFY(!mailServer.commands().contains(QLatin1String("AUTH")));
    QVERIFY(!mailServer.commands().contains(QLatin1String("MAIL")));
}

void tst_SmtpFailures::theSystemTrustsNoOwnAuthority()
{
    SmtpServer mailServer(server(Encryption::Tls));
    const MailAccount from = account(mailServer.port(), Encryption::Tls);
    const MailResult stranger = SmtpSender({QString(), ample}).send(from, message(1), m_never);
    QVERIFY2(stranger.reason.contains(QLatin1String("certificate")), qPrintable(stranger.reason));
    const MailResult unreadable = SmtpSender({pem("missing"), ample}).send(from, message(1), m_never);
    QVERIFY(!unreadable.sent);
    QVERIFY2(unreadable.reason.startsWith(QLatin1String("The certificates to trust cannot be read: ")) &&
                 unreadable.reason.contains(pem("missing")),
             qPrintable(unreadable.reason));
    QCOMPARE(mailServer.commands(), QStringList());
}

void tst_SmtpFailures::theServerFallsSilent_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<Encryption>("encryption");
    for (const char* command : {"CONNECT", "EHLO", "STARTTLS", "AUTH", "MAIL", "RCPT", "DATA", "CONTENT"})
        QTest::addRow("STARTTLS, %s", command) << QString::fromLatin1(command) << Encryption::StartTls;
    QTest::newRow("TLS, CONNECT") << QStringLiteral("CONNECT") << Encryption::Tls;
    QTest::newRow("TLS, CONTENT") << QStringLiteral("CONTENT") << Encryption::Tls;
    QTest::newRow("plain, CONTENT") << QStringLiteral("CONTENT") << Encryption::None;
}

void tst_SmtpFailures::theServerFallsSilent()
{
    QFETCH(QString, command);
    QFETCH(Encryption, encryption);
    SmtpServer mailServer(server(encryption) + QStringList{QStringLiteral("--hold"), command});
    const MailResult result = send(account(mailServer.port(), encryption), message(2), brief);
    QVERIFY(!result.sent);
    QCOMPARE(result.failedPositions, (QList<int>{0, 1}));
    QCOMPARE(result.reason, QStringLiteral("The mail server did not answer in time."));
    QCOMPARE(mailServer.mails().size(), 0);
}

void tst_SmtpFailures::theServerHangsUp_data()
{
    QTest::addColumn<QString>("command");
    for (const char* command : {"EHLO", "STARTTLS", "AUTH", "MAIL", "RCPT", "DATA", "CONTENT"})
        QTest::newRow(command) << QString::fromLatin1(command);
}

void tst_SmtpFailures::theServerHangsUp()
{
    QFETCH(QString, command);
    SmtpServer mailServer(server(Encryption::StartTls) + QStringList{QStringLiteral("--drop"), command});
    const MailResult result = send(account(mailServer.port(), Encryption::StartTls), message(2), ample);
    QVERIFY(!result.sent);
    QCOMPARE(result.failedPositions, (QList<int>{0, 1}));
    QVERIFY2(result.reason.startsWith(QLatin1String("The connection to the mail server broke: ")),
             qPrintable(result.reason));
    QCOMPARE(mailServer.mails().size(), 0);
}

void tst_SmtpFailures::nobodyListens()
{
    int port = 0;
    {
        const SmtpServer mailServer({});
        port = mailServer.port();
    }
    const MailResult result = send(account(port, Encryption::Tls), message(2), ample);
    QVERIFY(!result.sent);
    QCOMPARE(result.failedPositions, (QList<int>{0, 1}));
    QCOMPARE(result.reason, QStringLiteral("The mail server 127.0.0.1 cannot be reached at port %1.").arg(port));
}

void tst_SmtpFailures::nothingIsSentForABadOrder_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* name, const char* field, const QString& value, const char* reason) {
        QTest::newRow(name) << QString::fromLatin1(field) << value << QString::fromLatin1(reason);
    };
    const char server[] = "The name of the mail server is not valid.";
    row("no server", "server", QString(), server);
    row("a line break in the server", "server", QStringLiteral("127.0.0.1\r\nQUIT"), server);
    row("a port with the server", "server", QStringLiteral("127.0.0.1:25"), server);
    row("a user with the server", "server", QStringLiteral("127.0.0.1@mail.invalid"), server);
    row("port 0", "port", QStringLiteral("0"), "The mail server's port is not valid.");
    row("port 65536", "port", QStringLiteral("65536"), "The mail server's port is not valid.");
    row("no sender", "address", QString(), "The sender's address is not valid.");
    row("a line break in the sender", "address", QStringLiteral("a@b.com\nRCPT TO:<c@d.com>"),
        "The sender's address is not valid.");
    row("a line break in the password", "password", QStringLiteral("a\r\nb"),
        "The password holds characters that cannot be sent.");
    row("a line break in the subject", "subject", QStringLiteral("a\r\nBcc: c@d.com"),
        "The subject holds a line break or another control character.");
    row("no recipient", "recipients", QString(), "There is no recipient.");
    row("no sound recipient", "recipient", QStringLiteral("a@b.com\r\nDATA"), "A recipient's address is not valid.");
    row("no sound name", "name", QStringLiteral("a\r\nBcc: c@d.com"),
        "A recipient's name holds a line break or another control character.");
}

void tst_SmtpFailures::nothingIsSentForABadOrder()
{
    QFETCH(QString, field);
    QFETCH(QString, value);
    QFETCH(QString, reason);
    SmtpServer mailServer({});
    MailAccount from = account(mailServer.port(), Encryption::None);
    MailMessage mail = message(1);
    if (field == QLatin1String("server"))
        from.server = value;
    else if (field == QLatin1String("port"))
        from.port = value.toInt();
    else if (field == QLatin1String("address"))
        from.address = value;
    else if (field == QLatin1String("password"))
        from.password = value;
    else if (field == QLatin1String("subject"))
        mail.subject = value;
    else if (field == QLatin1String("recipient"))
        mail.recipients[0].strAddress = value;
    else if (field == QLatin1String("name"))
        mail.recipients[0].strName = value;
    else
        mail.recipients.clear();
    const MailResult result = send(from, mail, ample);
    QVERIFY(!result.sent);
    QCOMPARE(result.failedPositions.size(), mail.recipients.size());
    QCOMPARE(result.reason, reason);
    QCOMPARE(mailServer.commands(), QStringList());
}

void tst_SmtpFailures::aMailCanBeCancelled()
{
    SmtpServer mailServer({QStringLiteral("--hold"), QStringLiteral("RCPT")});
    std::atomic_bool cancelled{false};
    const SmtpSender sender({QString(), ample});
    auto result = std::async(std::launch::async, [&] {
        return sender.send(account(mailServer.port(), Encryption::None), message(1), cancelled);
    });
    QVERIFY(mailServer.waitFor("RCPT"));
    QElapsedTimer timer;
    timer.start();
    cancelled = true;
    QCOMPARE(result.get().reason, QStringLiteral("The mail was given up."));
    QVERIFY2(timer.elapsed() < slackMs, qPrintable(QString::number(timer.elapsed())));
}

void tst_SmtpFailures::noReasonTellsThePassword()
{
    MailAccount from = account(0, Encryption::None);
    from.password = QStringLiteral("Sesame7opens");
    const auto encoded = [](const QByteArray& text) { return QString::fromLatin1(text.toBase64()); };
    for (const QString& secret :
         {from.password, encoded("Sesame7opens"), encoded(QByteArray("\0sender@example.com\0Sesame7opens", 32))}) {
        SmtpServer mailServer({QStringLiteral("--password"), from.password, QStringLiteral("--refuse-content"),
                               QStringLiteral("--refusal"), QStringLiteral("550 you said ") + secret});
        from.port = mailServer.port();
        QCOMPARE(send(from, message(1), ample).reason, QStringLiteral("The mail server refuses the mail: 550"));
    }
}

SETTINGAREA_TEST_MAIN(tst_SmtpFailures, QCoreApplication)
#include "tst_SmtpFailures.moc"
