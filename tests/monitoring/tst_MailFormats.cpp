#include "monitoring/MailFormats.h"
#include "tests/support/TestObject.h"

#include <QCoreApplication>

#include <limits>
#include <random>
#include <regex>

namespace {

constexpr int longestText = 32767; // that a line edit holds
constexpr int randomTexts = 100000;

bool matches(const QString& text, const char* pattern)
{
    const std::wregex regex(QString::fromLatin1(pattern).toStdWString(), std::regex::ECMAScript);
    return std::regex_match(text.toStdWString(), regex);
}

} // namespace

class tst_MailFormats : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void addresses_data();
    void addresses();
    void addressesAsThePattern();
    void longTexts_data();
    void longTexts();
    void ports_data();
    void ports();
    void portsAsThePattern();
    void characters();
};

void tst_MailFormats::addresses_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isAddress");
    const auto row = [](const char* text, bool isAddress) {
        QTest::newRow(text) << QString::fromUtf8(text) << isAddress;
    };
    row("a@b.cd", true);
    row("A-b_c.D9@site42.com", true);
    row("...@0.xyz", true);
    row("ann@host.com.cn", true);
    row("ann@host.cn.uk", true);
    row("", false);
    row("@", false);
    row("ann", false);
    row("ann@", false);
    row("@host.com", false);
    row("ann@host", false);
    row("ann@host.", false);
    row("ann@.com", false);
    row("ann@host.c", false);
    row("ann@host.info", false);
    row("ann@mail.host.com", false); // a sub-domain
    row("ann@host.com.", false);
    row("ann@host.com.c", false);
    row("ann@host.com.cnn", false);
    row("ann@host.com.cn.uk", false);
    row("ann@Host.com", false);
    row("ann@host.Com", false);
    row("ann@host.com.CN", false);
    row("ann@my-host.com", false);
    row("ann@host.c0m", false);
    row("ann@bob@host.com", false);
    row("ann+x@host.com", false);
    row("ann @host.com", false);
    row(" ann@host.com", false);
    row("ann@host.com ", false);
    row("ann@host.com\n", false);
    row("\nann@host.com", false);
    row("änn@host.com", false);
    row("ann@höst.com", false);
    row("ann＠host.com", false);
    row("ann@host．com", false);
    row("ann@host.com,bob@host.com", false);
    QTest::newRow("zero") << QStringLiteral("ann@host.com") + QChar(0) << false;
    QTest::newRow("null") << QString() << false;
}

void tst_MailFormats::addresses()
{
    QFETCH(QString, text);
    QFETCH(bool, isAddress);
    QCOMPARE(isMailAddress(text), isAddress);
}

// Texts in which every part of the pattern has its near misses.
void tst_MailFormats::addressesAsThePattern()
{
    const std::wregex pattern(L"([0-9A-Za-z\\-_\\.]+)@([0-9a-z]+\\.[a-z]{2,3}(\\.[a-z]{2})?)", std::regex::ECMAScript);
    const QString alphabet = QString::fromUtf8("aaaabzzAZ09-_...@@ é");
    std::mt19937 random(4711);
    std::uniform_int_distribution<int> length(0, 14);
    std::uniform_int_distribution<int> character(0, alphabet.size() - 1);
    int addresses = 0;
    for (int i = 0; i < randomTexts; ++i) {
        QString text;
        for (int left = length(random); left > 0; --left)
            text += alphabet.at(character(random));
        // Half of them are near an address: a good one with one character changed, added or taken away.
        if (i % 2 == 0) {
            text = i % 4 == 0 ? QStringLiteral("a.b@c.de.fg") : QStringLiteral("-_@0z.abc");
            const int place = std::uniform_int_distribution<int>(0, text.size() - 1)(random);
            const QChar other = alphabet.at(character(random));
            switch (std::uniform_int_distribution<int>(0, 2)(random)) {
            case 0:
                text[place] = other;
                break;
            case 1:
                text.insert(place, other);
                break;
            default:
                text.remove(place, 1);
            }
        }
        const bool expected = std::regex_match(text.toStdWString(), pattern);
        addresses += expected ? 1 : 0;
        QVERIFY2(isMailAddress(text) == expected, qPrintable(text));
    }
    QVERIFY2(addresses > 10000 && addresses < 90000, qPrintable(QString::number(addresses)));
}

void tst_MailFormats::longTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isAddress");
    const QString tail = QStringLiteral("@host.com");
    const QString mailbox(longestText - tail.size(), QLatin1Char('a'));
    QTest::newRow("mailbox") << mailbox + tail << true;
    QTest::newRow("wrong end") << mailbox + QStringLiteral("@host.coM") << false;
    QTest::newRow("no at sign") << QString(longestText, QLatin1Char('a')) << false;
    QTest::newRow("dots") << QString(longestText, QLatin1Char('.')) << false;
    QTest::newRow("dots before") << QString(longestText - tail.size(), QLatin1Char('.')) + tail << true;
    QTest::newRow("at signs") << QString(longestText, QLatin1Char('@')) << false;
    QTest::newRow("host") << QStringLiteral("a@") + QString(longestText - 6, QLatin1Char('0')) + QStringLiteral(".com")
                          << true;
    QTest::newRow("host without end") << QStringLiteral("a@") + QString(longestText - 2, QLatin1Char('0')) << false;
    QTest::newRow("labels") << QStringLiteral("a@") + QStringLiteral("ab.").repeated((longestText - 2) / 3) << false;
    QTest::newRow("top level") << QStringLiteral("a@b.") + QString(longestText - 4, QLatin1Char('c')) << false;
    QTest::newRow("country") << QStringLiteral("a@b.cd.") + QString(longestText - 7, QLatin1Char('e')) << false;
    QTest::newRow("blanks") << QString(longestText, QLatin1Char(' ')) << false;
}

void tst_MailFormats::longTexts()
{
    QFETCH(QString, text);
    QFETCH(bool, isAddress);
    QVERIFY(text.size() >= longestText - 2);
    QCOMPARE(isMailAddress(text), isAddress);
    QCOMPARE(isMailPort(text), false);
}

void tst_MailFormats::ports_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isPort");
    for (const char* text : {"1", "9", "25", "465", "65535", "65536", "9999999", "99999999", "10000000"})
        QTest::newRow(text) << QString::fromLatin1(text) << true;
    for (const char* text : {"", "0", "00", "0465", "100000000", "+465", "-465", "46 5", " 465", "465 ", "465\n",
                             "4,65", "465.", "0x1d1", "a"})
        QTest::newRow(text) << QString::fromLatin1(text) << false;
    QTest::newRow("other digits") << QString::fromUtf8("٤٦٥") << false;
    QTest::newRow("wide digits") << QString::fromUtf8("４６５") << false;
}

void tst_MailFormats::ports()
{
    QFETCH(QString, text);
    QFETCH(bool, isPort);
    QCOMPARE(isMailPort(text), isPort);
    QCOMPARE(matches(text, "[1-9][0-9]{0,7}"), isPort);
}

void tst_MailFormats::portsAsThePattern()
{
    const std::wregex pattern(L"[1-9][0-9]{0,7}", std::regex::ECMAScript);
    const QString alphabet = QStringLiteral("00123456789999-a");
    std::mt19937 random(4712);
    std::uniform_int_distribution<int> length(0, 10);
    std::uniform_int_distribution<int> character(0, alphabet.size() - 1);
    int ports = 0;
    for (int i = 0; i < randomTexts; ++i) {
        QString text;
        for (int left = length(random); left > 0; --left)
            text += alphabet.at(character(random));
        const bool expected = std::regex_match(text.toStdWString(), pattern);
        ports += expected ? 1 : 0;
        QVERIFY2(isMailPort(text) == expected, qPrintable(text));
    }
    QVERIFY2(ports > 10000 && ports < 90000, qPrintable(QString::number(ports)));
}

void tst_MailFormats::characters()
{
    QCOMPARE(mailCharacters(), QStringLiteral("^[A-Za-z0-9`~!@#$%^&*()_\\-+=<>,.\\\\/]*"));
}

SETTINGAREA_TEST_MAIN(tst_MailFormats, QCoreApplication)

#include "tst_MailFormats.moc"
