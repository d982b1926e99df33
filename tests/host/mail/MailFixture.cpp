#include "tests/host/mail/MailFixture.h"

bool MailFixture::makeCertificates(const QDir& folder)
{
    QProcess process;
    process.start(QStringLiteral(MAIL_TESTS "/make-certificates"), {folder.path()});
    return process.waitForFinished() && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

QStringList MailFixture::words(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QStringList MailFixture::encrypted(const char* kind, const QDir& certificates, const char* name)
{
    return {QStringLiteral("--tls"), QLatin1String(kind), QStringLiteral("--certificate"),
            certificates.filePath(QLatin1String(name) + QLatin1String(".pem"))};
}

MailAccount MailFixture::account(int port, MailAccount::Encryption encryption)
{
    MailAccount account;
    account.server = QStringLiteral("127.0.0.1");
    account.port = port;
    account.encryption = encryption;
    account.address = QStringLiteral("sender@example.com");
    account.password = QStringLiteral("secret");
    return account;
}

MailMessage MailFixture::message(int recipients)
{
    MailMessage message;
    message.subject = QStringLiteral("Test");
    message.body = QStringLiteral("Hello");
    for (int i = 0; i < recipients; ++i)
        message.recipients.append({QString(), QChar(u'a' + i) + QStringLiteral("@example.com")});
    return message;
}
