#include "tests/host/mail/MailFixture.h"
#include "tests/support/TestObject.h"

#include <QJsonArray>
#include <QTemporaryDir>

#include <future>

using Encryption = MailAccount::Encryption;
using MailFixture::account;
using MailFixture::encrypted;
using MailFixture::message;
using MailFixture::words;

// Mails that a server takes, all or in part.
class tst_SmtpSender : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void aMailGoesOut_data();
    void aMailGoesOut();
    void everyPartOfTheMailArrives();
    void aLongMailArrivesUnchanged();
    void withoutAPasswordThereIsNoLogin();
    void someRecipientsAreRefused();
    void manyRecipientsAreToldApart();
    void recipientsThatCannotBeNamedAreLeftOut();
    void theServerIsBidFarewellButNotWaitedFor();
    void aProxyForTheWebIsPassedBy();

private:
    MailResult send(const MailAccount& from, const MailMessage& mail) const;
    QStringList server(Encryption encryption) const;

    QTemporaryDir m_folder;
    QDir m_certificates;
    const std::atomic_bool m_never{false};
};

void tst_SmtpSender::initTestCase()
{
    m_certificates.setPath(m_folder.path());
    QVERIFY(MailFixture::makeCertificates(m_certificates));
}

MailResult tst_SmtpSender::send(const MailAccount& from, const MailMessage& mail) const
{
    const SmtpSender sender({m_certificates.filePath(QStringLiteral("authority.pem")), std::chrono::seconds(30)});
    return sender.send(from, mail, m_never);
}

QStringList tst_SmtpSender::server(Encryption encryption) const
{
    switch (encryption) {
    case Encryption::StartTls:
        return encrypted("starttls", m_certificates, "sound");
    case Encryption::Tls:
        return encrypted("implicit", m_certificates, "sound");
    case Encryption::None:
        break;
    }
    return {};
}

void tst_SmtpSender::aMailGoesOut_data()
{
    QTest::addColumn<Encryption>("encryption");
    QTest::addColumn<QStringList>("commands");
    QTest::newRow("plain") << Encryption::None << words("EHLO AUTH MAIL RCPT RCPT DATA");
    QTest::newRow("STARTTLS") << Encryption::StartTls << words("EHLO STARTTLS EHLO AUTH MAIL RCPT RCPT DATA");
    QTest::newRow("TLS") << Encryption::Tls << words("EHLO AUTH MAIL RCPT RCPT DATA");
}

void tst_SmtpSender::aMailGoesOut()
{
    QFETCH(Encryption, encryption);
    QFETCH(QStringList, commands);
    SmtpServer mailServer(server(encryption));
    const MailResult result = send(account(mailServer.port(), encryption), message(2));
    QCOMPARE(result.reason, QString());
    QVERIFY(result.sent);
    QCOMPARE(result.failedPositions, QList<int>());
    QVERIFY(mailServer.waitFor("QUIT"));
    QCOMPARE(mailServer.commands(), commands + QStringList{QStringLiteral("QUIT")});
    QCOMPARE(mailServer.sawOpenLogin(), encryption == Encryption::None);
    QCOMPARE(mailServer.mails().size(), 1);
    const QJsonObject mail = mailServer.mails().constFirst();
    QCOMPARE(mail.value(QLatin1String("sender")), QJsonValue(QStringLiteral("sender@example.com")));
    QCOMPARE(mail.value(QLatin1String("recipients")),
             QJsonValue(QJsonArray{QStringLiteral("a@example.com"), QStringLiteral("b@example.com")}));
}

void tst_SmtpSender::everyPartOfTheMailArrives()
{
    SmtpServer mailServer({});
    MailMessage mail;
    mail.subject =
        QStringLiteral("Störung an der LED-Wand: 显示屏温度过高,请立即检查所有接收卡 \U0001F525\U0001F525\U0001F525");
    mail.body = QStringLiteral("Grüße\n.\n..dots\r\n显示屏\rend");
    mail.recipients = {{QStringLiteral("Ann"), QStringLiteral("a@example.com")},
                       {QStringLiteral("O'Hara, \"Bob\" \\ <b@evil>"), QStringLiteral("b@example.com")},
                       {QStringLiteral("王小明"), QStringLiteral("c@example.com")},
                       {QStringLiteral("=?UTF-8?B?QQ==?="), QStringLiteral("d@example.com")},
                       {QString(), QStringLiteral("e@example.com")},
                       {QString(64, QLatin1Char('x')), QStringLiteral("f@example.com")}};
    const QDateTime before = QDateTime::currentDateTime();
    QVERIFY(send(account(mailServer.port(), Encryption::None), mail).sent);
    const QJsonObject arrived = mailServer.mails().value(0);
    QCOMPARE(arrived.value(QLatin1String("defects")), QJsonValue(QJsonArray()));
    QCOMPARE(arrived.value(QLatin1String("subject")), QJsonValue(mail.subject));
    QCOMPARE(arrived.value(QLatin1String("from")), QJsonValue(QStringLiteral("Orvel <sender@example.com>")));
    QJsonArray to;
    for (const SEmailRecipient& recipient : qAsConst(mail.recipients))
        to.append(QJsonArray{recipient.strName, recipient.strAddress});
    QCOMPARE(arrived.value(QLatin1String("to")), QJsonValue(to));
    QCOMPARE(arrived.value(QLatin1String("type")), QJsonValue(QStringLiteral("text/plain; charset=\"UTF-8\"")));
    QCOMPARE(arrived.value(QLatin1String("body")).toString(), QStringLiteral("Grüße\r\n.\r\n..dots\r\n显示屏\r\nend"));
    const QDateTime date = QDateTime::fromString(arrived.value(QLatin1String("date")).toString(), Qt::ISODate);
    QVERIFY(date.isValid());
    QVERIFY(qAbs(before.secsTo(date)) < 60);

    // A mail program forgives much: what goes over the line as well.
    const QString content = arrived.value(QLatin1String("content")).toString();
    QVERIFY(content.contains(QRegularExpression(QStringLiteral("\r\nMessage-ID: <[0-9a-f-]{36}@example\\.com>\r\n"))));
    QVERIFY(!QString(content).remove(QLatin1String("\r\n")).contains(QRegularExpression(QStringLiteral("[\r\n]"))));
    const QStringList lines = content.split(QStringLiteral("\r\n"));
    for (const QString& line : lines)
        QVERIFY2(line.size() <= 78, qPrintable(line));
}

void tst_SmtpSender::aLongMailArrivesUnchanged()
{
    SmtpServer mailServer({});
    MailMessage mail = message(1);
    mail.body = QString(1'000'000, QLatin1Char('.'));
    // The server tells more of the mail than a pipe holds, so that it must be listened to meanwhile.
    const MailAccount from = account(mailServer.port(), Encryption::None);
    auto result = std::async(std::launch::async, [&] { return send(from, mail); });
    QVERIFY(mailServer.waitFor("QUIT"));
    QVERIFY(result.get().sent);
    QVERIFY(mailServer.mails().value(0).value(QLatin1String("body")) == QJsonValue(mail.body));
}

void tst_SmtpSender::withoutAPasswordThereIsNoLogin()
{
    SmtpServer mailServer(words("--no-auth"));
    MailAccount from = account(mailServer.port(), Encryption::None);
    from.password.clear();
    QVERIFY(send(from, message(1)).sent);
    QVERIFY(mailServer.waitFor("QUIT"));
    QCOMPARE(mailServer.commands(), words("EHLO MAIL RCPT DATA QUIT"));
}

void tst_SmtpSender::someRecipientsAreRefused()
{
    SmtpServer mailServer(words("--refuse a@example.com --refuse c@example.com"));
    const MailResult result = send(account(mailServer.port(), Encryption::None), message(4));
    QVERIFY(result.sent);
    QCOMPARE(result.failedPositions, (QList<int>{0, 2}));
    QCOMPARE(result.reason, QStringLiteral("The server refuses a recipient: 550 5.1.1 no such mailbox"));
    QCOMPARE(mailServer.mails().value(0).value(QLatin1String("recipients")),
             QJsonValue(QJsonArray{QStringLiteral("b@example.com"), QStringLiteral("d@example.com")}));
}

void tst_SmtpSender::manyRecipientsAreToldApart()
{
    QStringList options;
    QList<int> refused;
    MailMessage mail = message(0);
    for (int i = 0; i < 300; ++i) {
        const QString address = QStringLiteral("r%1@example.com").arg(i);
        mail.recipients.append({QString(), address});
        if (i % 7 == 3) {
            refused.append(i);
            options << QStringLiteral("--refuse") << address;
        }
    }
    SmtpServer mailServer(options);
    const MailResult result = send(account(mailServer.port(), Encryption::None), mail);
    QVERIFY(result.sent);
    QCOMPARE(result.failedPositions, refused);
}

void tst_SmtpSender::recipientsThatCannotBeNamedAreLeftOut()
{
    SmtpServer mailServer(words("--refuse a@example.com"));
    MailMessage mail = message(3);
    mail.recipients.insert(0, {QString(), QStringLiteral("x@example.com>\r\nRCPT TO:<victim@example.com")});
    mail.recipients.insert(2, {QStringLiteral("Bob\r\nBcc: victim@example.com"), QStringLiteral("y@example.com")});
    const MailResult result = send(account(mailServer.port(), Encryption::None), mail);
    QVERIFY(result.sent);
    QCOMPARE(result.failedPositions, (QList<int>{0, 1, 2})); // and a@example.com, which the server refuses
    QCOMPARE(mailServer.mails().size(), 1);
    QCOMPARE(mailServer.mails().value(0).value(QLatin1String("recipients")),
             QJsonValue(QJsonArray{QStringLiteral("b@example.com"), QStringLiteral("c@example.com")}));
    QVERIFY(!mailServer.mails().value(0).value(QLatin1String("content")).toString().contains(QLatin1String("victim")));
}

void tst_SmtpSender::theServerIsBidFarewellButNotWaitedFor()
{
    SmtpServer mailServer(words("--hold QUIT"));
    QElapsedTimer timer;
    timer.start();
    const MailResult result = send(account(mailServer.port(), Encryption::None), message(2));
    QVERIFY2(timer.elapsed() < 10'000, qPrintable(QString::number(timer.elapsed())));
    QVERIFY(result.sent);
    QCOMPARE(result.failedPositions, QList<int>());
    QVERIFY(mailServer.waitFor("QUIT"));
    QCOMPARE(mailServer.mails().size(), 1);
}

void tst_SmtpSender::aProxyForTheWebIsPassedBy()
{
    SmtpServer mailServer({});
    qputenv("ALL_PROXY", "http://127.0.0.1:1"); // where nothing listens
    const MailResult result = send(account(mailServer.port(), Encryption::None), message(1));
    qunsetenv("ALL_PROXY");
    QVERIFY2(result.sent, qPrintable(result.reason));
    QCOMPARE(mailServer.mails().size(), 1);
}

SETTINGAREA_TEST_MAIN(tst_SmtpSender, QCoreApplication)
#include "tst_SmtpSender.moc"
