#include "host/mail/MailAccount.h"
#include "plugin/interface/SEmailSettings.h"
#include "tests/support/TestObject.h"

using Encryption = MailAccount::Encryption;
Q_DECLARE_METATYPE(Encryption)

class tst_MailAccount : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void theFieldsAreTaken();
    void thePortDecidesOnTheEncryption_data();
    void thePortDecidesOnTheEncryption();
};

void tst_MailAccount::theFieldsAreTaken()
{
    SEmailSettings settings;
    settings.strSmtpServer = QStringLiteral(" mail.example.com ");
    settings.strSenderAddress = QStringLiteral("a@example.com");
    settings.strPassword = QStringLiteral(" pass ");
    const MailAccount account = MailAccount::from(settings);
    QCOMPARE(account.server, QStringLiteral("mail.example.com"));
    QCOMPARE(account.port, 465);
    QCOMPARE(account.encryption, Encryption::Tls);
    QCOMPARE(account.address, QStringLiteral("a@example.com"));
    QCOMPARE(account.password, QStringLiteral(" pass "));
}

void tst_MailAccount::thePortDecidesOnTheEncryption_data()
{
    QTest::addColumn<bool>("ssl");
    QTest::addColumn<int>("port");
    QTest::addColumn<int>("usedPort");
    QTest::addColumn<Encryption>("encryption");
    QTest::newRow("SSL, 465") << true << 465 << 465 << Encryption::Tls;
    QTest::newRow("SSL, 587") << true << 587 << 587 << Encryption::StartTls;
    QTest::newRow("SSL, 25") << true << 25 << 25 << Encryption::StartTls;
    QTest::newRow("SSL, 2525") << true << 2525 << 2525 << Encryption::Tls;
    QTest::newRow("SSL, none") << true << 0 << 465 << Encryption::Tls;
    QTest::newRow("plain, 465") << false << 465 << 465 << Encryption::None;
    QTest::newRow("plain, 587") << false << 587 << 587 << Encryption::None;
    QTest::newRow("plain, none") << false << 0 << 25 << Encryption::None;
}

void tst_MailAccount::thePortDecidesOnTheEncryption()
{
    QFETCH(bool, ssl);
    QFETCH(int, port);
    SEmailSettings settings;
    settings.bSsl = ssl;
    settings.nPort = port;
    const MailAccount account = MailAccount::from(settings);
    QTEST(account.port, "usedPort");
    QTEST(account.encryption, "encryption");
}

QTEST_APPLESS_MAIN(tst_MailAccount)
#include "tst_MailAccount.moc"
