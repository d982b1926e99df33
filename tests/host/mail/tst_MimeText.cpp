#include "host/mail/MailMessage.h"
#include "host/mail/MimeText.h"
#include "tests/support/TestObject.h"

#include <QTimeZone>

class tst_MimeText : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void theWholeMail();
    void subjects_data();
    void subjects();
    void encodedWordsHoldWholeCharacters();
    void mailboxes_data();
    void mailboxes();
    void theDateIsInEnglish();
};

void tst_MimeText::theWholeMail()
{
    MailMessage message;
    message.subject = QStringLiteral("Test");
    message.body = QStringLiteral("a\nb\r\nc\r") + QString(60, QLatin1Char('x'));
    message.recipients = {{QStringLiteral("Ann"), QStringLiteral("a@example.com")},
                          {QString(), QStringLiteral("b@example.com")}};
    const QDateTime date(QDate(2024, 2, 29), QTime(7, 8, 9), Qt::OffsetFromUTC, 19800);
    QCOMPARE(MimeText::compose(QStringLiteral("s@example.com"), message, date, "id@example.com"),
             QByteArray("Date: Thu, 29 Feb 2024 07:08:09 +0530\r\n"
                        "From: \"Orvel\" <s@example.com>\r\n"
                        "To: \"Ann\" <a@example.com>,\r\n"
                        " <b@example.com>\r\n"
                        "Subject: Test\r\n"
                        "Message-ID: <id@example.com>\r\n"
                        "Auto-Submitted: auto-generated\r\n"
                        "MIME-Version: 1.0\r\n"
                        "Content-Type: text/plain; charset=UTF-8\r\n"
                        "Content-Transfer-Encoding: base64\r\n"
                        "\r\n"
                        "YQ0KYg0KYw0KeHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4\r\n"
                        "eHh4eHh4eHh4eHh4\r\n"));
}

void tst_MimeText::subjects_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("header");
    QTest::newRow("plain") << QStringLiteral("a \"b\" <c>") << QByteArray("a \"b\" <c>");
    QTest::newRow("empty") << QString() << QByteArray();
    QTest::newRow("Chinese") << QStringLiteral("测试") << QByteArray("=?UTF-8?B?5rWL6K+V?=");
    QTest::newRow("looks encoded") << QStringLiteral("=?UTF-8?B?QQ==?=")
                                   << QByteArray("=?UTF-8?B?PT9VVEYtOD9CP1FRPT0/PQ==?=");
    QTest::newRow("outer blanks") << QStringLiteral(" a") << QByteArray("=?UTF-8?B?IGE=?=");
    QTest::newRow("line break") << QStringLiteral("a\r\nb") << QByteArray("=?UTF-8?B?YQ0KYg==?=");
    QTest::newRow("just plain") << QString(64, QLatin1Char('a')) << QByteArray(64, 'a');
    QTest::newRow("long") << QString(65, QLatin1Char('a'))
                          << "=?UTF-8?B?" + QByteArray(39, 'a').toBase64() + "?=\r\n =?UTF-8?B?" +
                                 QByteArray(26, 'a').toBase64() + "?=";
}

void tst_MimeText::subjects()
{
    QFETCH(QString, text);
    QTEST(MimeText::unstructured(text), "header");
}

// A word that ended in the middle of a character would show two signs for damage.
void tst_MimeText::encodedWordsHoldWholeCharacters()
{
    const QString text = QStringLiteral("x\U0001F525é测").repeated(20);
    QString decoded;
    const QList<QByteArray> words = MimeText::unstructured(text).split('\n');
    QCOMPARE(words.size(), 6);
    for (const QByteArray& line : words) {
        const QByteArray word = line.trimmed();
        QVERIFY2(word.startsWith("=?UTF-8?B?") && word.endsWith("?=") && word.size() <= 75, word.constData());
        const QByteArray bytes = QByteArray::fromBase64(word.mid(10, word.size() - 12));
        QCOMPARE(QString::fromUtf8(bytes).toUtf8(), bytes);
        decoded += QString::fromUtf8(bytes);
    }
    QCOMPARE(decoded, text);
}

void tst_MimeText::mailboxes_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("mailbox");
    QTest::newRow("none") << QString() << QByteArray("<a@b.com>");
    QTest::newRow("plain") << QStringLiteral("Ann, Bob") << QByteArray("\"Ann, Bob\" <a@b.com>");
    QTest::newRow("quotes") << QStringLiteral("a\"b\\c") << QByteArray(R"("a\"b\\c" <a@b.com>)");
    QTest::newRow("Chinese") << QStringLiteral("小明") << QByteArray("=?UTF-8?B?5bCP5piO?= <a@b.com>");
    QTest::newRow("long") << QString(64, QLatin1Char('n')) << '"' + QByteArray(64, 'n') + "\"\r\n <a@b.com>";
}

void tst_MimeText::mailboxes()
{
    QFETCH(QString, name);
    QTEST(MimeText::mailbox(name, QStringLiteral("a@b.com")), "mailbox");
}

void tst_MimeText::theDateIsInEnglish()
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Chinese));
    const QDateTime date(QDate(2024, 12, 1), QTime(0, 0), Qt::UTC);
    const QByteArray mail = MimeText::compose(QStringLiteral("s@example.com"), {}, date, "id");
    QLocale::setDefault(before);
    QVERIFY2(mail.startsWith("Date: Sun, 01 Dec 2024 00:00:00 +0000\r\n"), mail.constData());
}

QTEST_APPLESS_MAIN(tst_MimeText)
#include "tst_MimeText.moc"
