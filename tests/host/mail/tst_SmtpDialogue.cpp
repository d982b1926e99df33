#include "host/mail/SmtpDialogue.h"
#include "tests/support/TestObject.h"

using Stage = SmtpDialogue::Stage;

class tst_SmtpDialogue : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void aLoginIsFollowed();
    void aRefusedLoginLeavesNoWords();
    void repliesArePairedWithTheirRecipients();
    void aReplyMayHaveSeveralLines();
    void theServersWordsAreMadeFitToShow();
    void nonsenseIsPassedOver();
};

void tst_SmtpDialogue::aLoginIsFollowed()
{
    SmtpDialogue dialogue;
    dialogue.received("220 mail\r\n");
    dialogue.sent("EHLO here\r\n");
    dialogue.received("250-AUTH PLAIN\r\n");
    dialogue.received("250 HELP\r\n");
    QCOMPARE(dialogue.stage(), Stage::Greeting);
    QVERIFY(!dialogue.hasTriedLogin());
    dialogue.sent("AUTH LOGIN\r\n");
    dialogue.received("334 VXNlcg==\r\n");
    dialogue.sent("QUIT\r\n"); // what a name may look like once it is encoded
    QCOMPARE(dialogue.stage(), Stage::Login);
    dialogue.received("334 UGFzcw==\r\n");
    dialogue.sent("DATA\r\n");
    QVERIFY(!dialogue.hasLoggedIn());
    dialogue.received("235 welcome\r\n");
    QVERIFY(dialogue.hasTriedLogin());
    QVERIFY(dialogue.hasLoggedIn());
    dialogue.sent("MAIL FROM:<a@b.com>\r\n");
    QCOMPARE(dialogue.stage(), Stage::Sender);
    dialogue.sent("QUIT\r\n");
    QCOMPARE(dialogue.stage(), Stage::Quit);
}

void tst_SmtpDialogue::aRefusedLoginLeavesNoWords()
{
    SmtpDialogue dialogue;
    dialogue.sent("AUTH PLAIN\r\n");
    dialogue.received("334\r\n");
    dialogue.sent("AHVzZXIAcGFzcw==\r\n");
    dialogue.received("535 not AHVzZXIAcGFzcw==\r\n");
    QVERIFY(dialogue.hasTriedLogin());
    QVERIFY(!dialogue.hasLoggedIn());
    QCOMPARE(dialogue.refusal(), QString());
}

void tst_SmtpDialogue::repliesArePairedWithTheirRecipients()
{
    SmtpDialogue dialogue;
    dialogue.sent("MAIL FROM:<a@b.com>\r\n");
    dialogue.received("250 OK\r\n");
    for (const char* reply : {"250 OK", "550 gone", "251 elsewhere", "452 full"}) {
        dialogue.sent("RCPT TO:<x@b.com>\r\n");
        dialogue.received(reply);
    }
    dialogue.sent("RCPT TO:<x@b.com>\r\n"); // no reply
    dialogue.sent("DATA\r\n");
    dialogue.received("354 go\r\n");
    dialogue.received("250 OK\r\n");
    QVERIFY(dialogue.isAccepted(0));
    QVERIFY(!dialogue.isAccepted(1));
    QVERIFY(dialogue.isAccepted(2));
    QVERIFY(!dialogue.isAccepted(3));
    QVERIFY(!dialogue.isAccepted(4));
    QVERIFY(!dialogue.isAccepted(5));
    QCOMPARE(dialogue.refusal(), QStringLiteral("452 full"));
    QCOMPARE(dialogue.stage(), Stage::Content);
}

void tst_SmtpDialogue::aReplyMayHaveSeveralLines()
{
    SmtpDialogue dialogue;
    dialogue.sent("RCPT TO:<a@b.com>\r\n");
    dialogue.received("250-well\r\n");
    QVERIFY(!dialogue.isAccepted(0));
    dialogue.received("550-no\r\n");
    dialogue.received("550 really not\r\n");
    QVERIFY(!dialogue.isAccepted(0));
    QCOMPARE(dialogue.refusal(), QStringLiteral("550 really not"));
    dialogue.sent("RCPT TO:<b@b.com>\r\n");
    dialogue.received("250\r\n"); // without a text
    QVERIFY(dialogue.isAccepted(1));
}

void tst_SmtpDialogue::theServersWordsAreMadeFitToShow()
{
    SmtpDialogue dialogue;
    dialogue.sent("DATA\r\n");
    dialogue.received("554 a\x1B[31mb\x07\tc \xE2\x80\xAE\xE6\xB5\x8B\r\n");
    QCOMPARE(dialogue.refusal(), QStringLiteral("554 a[31mb c 测"));
    dialogue.received("554 " + QByteArray(100'000, 'x'));
    QCOMPARE(dialogue.refusal(), QStringLiteral("554 ") + QString(196, QLatin1Char('x')));
}

void tst_SmtpDialogue::nonsenseIsPassedOver()
{
    SmtpDialogue dialogue;
    for (const char* line : {"", "\r\n", "2", "abc def", "HTTP/1.1 400 Bad Request"})
        dialogue.received(line);
    QCOMPARE(dialogue.refusal(), QString());
    QCOMPARE(dialogue.stage(), Stage::Greeting);
}

QTEST_APPLESS_MAIN(tst_SmtpDialogue)
#include "tst_SmtpDialogue.moc"
