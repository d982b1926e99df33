#include "monitoring/MailReport.h"
#include "tests/support/TestObject.h"
#include "tests/support/UpperCase.h"

#include <QCoreApplication>

#include <limits>

namespace {

QList<SEmailRecipient> recipients(int count)
{
    QList<SEmailRecipient> list;
    for (int i = 0; i < count; ++i)
        list.append({QStringLiteral("Name"), QStringLiteral("r%1@host.com").arg(i)});
    return list;
}

} // namespace

class tst_MailReport : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void outcomes_data();
    void outcomes();
    void texts_data();
    void texts();
    void textFollowsTheLanguage();
};

void tst_MailReport::outcomes_data()
{
    QTest::addColumn<bool>("isSent");
    QTest::addColumn<int>("count");
    QTest::addColumn<QList<int>>("failed");
    QTest::addColumn<int>("outcome");
    const auto row = [](const char* name, bool isSent, int count, const QList<int>& failed, MailOutcome outcome) {
        QTest::newRow(name) << isSent << count << failed << static_cast<int>(outcome);
    };
    row("all delivered", true, 3, {}, MailOutcome::Sent);
    row("one failed", true, 3, {1}, MailOutcome::PartlySent);
    row("two failed", true, 3, {0, 2}, MailOutcome::PartlySent);
    row("all failed", true, 3, {0, 1, 2}, MailOutcome::Failed);
    row("all failed, in disorder", true, 3, {2, 0, 1}, MailOutcome::Failed);
    row("the only one failed", true, 1, {0}, MailOutcome::Failed);
    row("not sent", false, 3, {}, MailOutcome::Failed);
    row("not sent, one named", false, 3, {1}, MailOutcome::Failed);
    row("positions outside", true, 3, {-1, 3, std::numeric_limits<int>::max()}, MailOutcome::Sent);
    row("one of them outside", true, 2, {1, 7}, MailOutcome::PartlySent);
    row("all and one outside", true, 2, {0, 1, 2}, MailOutcome::Failed);
}

void tst_MailReport::outcomes()
{
    QFETCH(bool, isSent);
    QFETCH(int, count);
    QFETCH(QList<int>, failed);
    QFETCH(int, outcome);
    QCOMPARE(static_cast<int>(mailOutcome(isSent, recipients(count), failed)), outcome);
}

void tst_MailReport::texts_data()
{
    QTest::addColumn<QList<int>>("failed");
    QTest::addColumn<QString>("text");
    QTest::newRow("one") << QList<int>{1}
                         << QStringLiteral("Receiving address:r1@host.com , failed to send the email.");
    QTest::newRow("two") << QList<int>{0, 2}
                         << QStringLiteral("Receiving address:r0@host.com r2@host.com , failed to send the email.");
    QTest::newRow("in the order given") << QList<int>{2, 0}
                                        << QStringLiteral(
                                               "Receiving address:r2@host.com r0@host.com , failed to send the email.");
    QTest::newRow("outside") << QList<int>{-1, 3, 1, std::numeric_limits<int>::min()}
                             << QStringLiteral("Receiving address:r1@host.com , failed to send the email.");
}

void tst_MailReport::texts()
{
    QFETCH(QList<int>, failed);
    QFETCH(QString, text);
    QCOMPARE(partlySentText(recipients(3), failed), text);
}

void tst_MailReport::textFollowsTheLanguage()
{
    const UpperCase language;
    QCOMPARE(partlySentText(recipients(1), {0}),
             QStringLiteral("RECEIVING ADDRESS:r0@host.com , FAILED TO SEND THE EMAIL."));
}

SETTINGAREA_TEST_MAIN(tst_MailReport, QCoreApplication)

#include "tst_MailReport.moc"
