#include "host/mail/MailChecks.h"
#include "tests/support/TestObject.h"

class tst_MailChecks : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void controlCharactersAreFound();
    void addresses_data();
    void addresses();
    void hosts_data();
    void hosts();
};

void tst_MailChecks::controlCharactersAreFound()
{
    QVERIFY(!MailChecks::hasControlCharacter(QString()));
    QVERIFY(!MailChecks::hasControlCharacter(QStringLiteral("Ann <b> 小明 \U0001F525 é")));
    for (const char16_t c : {u'\0', u'\t', u'\n', u'\r', u'\x1F', u'\x7F', u'\x85', u'\x2028', u'\x2029'})
        QVERIFY2(MailChecks::hasControlCharacter(QStringLiteral("a") + QChar(c) + QStringLiteral("b")),
                 qPrintable(QString::number(c, 16)));
}

void tst_MailChecks::addresses_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isAddress");
    const auto row = [](const QString& text, bool isAddress) {
        QTest::newRow(qPrintable(text.left(40))) << text << isAddress;
    };
    row(QStringLiteral("a@b"), true);
    row(QStringLiteral("first.last+tag@example.co.uk"), true);
    row(QString(252, QLatin1Char('a')) + QStringLiteral("@b"), true);
    row(QString(253, QLatin1Char('b')) + QStringLiteral("@b"), false);
    row(QString(), false);
    row(QStringLiteral("a"), false);
    row(QStringLiteral("@b"), false);
    row(QStringLiteral("a@"), false);
    row(QStringLiteral("a b@c"), false);
    row(QStringLiteral("a@b>"), false);
    row(QStringLiteral("<a@b"), false);
    row(QStringLiteral("a@b,c@d"), false);
    row(QStringLiteral("a@b\r\nDATA"), false);
    row(QStringLiteral("a@b\x7F"), false);
    row(QStringLiteral("ü@b"), false);
}

void tst_MailChecks::addresses()
{
    QFETCH(QString, text);
    QTEST(MailChecks::isAddress(text), "isAddress");
}

void tst_MailChecks::hosts_data()
{
    QTest::addColumn<QString>("server");
    QTest::addColumn<QByteArray>("host");
    const auto row = [](const char* server, const char* host) {
        QTest::newRow(server) << QString::fromUtf8(server) << QByteArray(host);
    };
    row("mail.example.com", "mail.example.com");
    row("127.0.0.1", "127.0.0.1");
    row("::1", "[::1]");
    row("fe80::ffff:10.0.0.1", "[fe80::ffff:10.0.0.1]");
    row("müller.example", "xn--mller-kva.example");
    row("", "");
    row("mail.example.com:25", "");
    row("mail.example.com/path", "");
    row("user@mail.example.com", "");
    row("mail example", "");
    row("mail\r\n", "");
    row("[::1]", "");
    row("::1%eth0", "");
    QTest::newRow("too long") << QString(130, QLatin1Char('a')).replace(QLatin1Char('a'), QLatin1String("a."))
                              << QByteArray();
}

void tst_MailChecks::hosts()
{
    QFETCH(QString, server);
    QTEST(MailChecks::hostForUrl(server), "host");
}

QTEST_APPLESS_MAIN(tst_MailChecks)
#include "tst_MailChecks.moc"
