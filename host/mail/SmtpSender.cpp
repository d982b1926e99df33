#include "host/mail/SmtpSender.h"

#include "host/mail/MailChecks.h"
#include "host/mail/MimeText.h"

#include <QDateTime>
#include <QFile>
#include <QUuid>

#include <algorithm>

namespace {

constexpr int lastPort = 65535;

// An identification that says nothing about this computer.
QByteArray newMessageId(const QString& sender)
{
    const QString domain = sender.mid(sender.lastIndexOf(QLatin1Char('@')));
    return (QUuid::createUuid().toString(QUuid::WithoutBraces) + domain).toLatin1();
}

// Whether the text holds the password, as it is or as one of the two ways to send it encodes it.
bool tellsPassword(const QString& text, const MailAccount& account)
{
    const QByteArray password = account.password.toUtf8();
    if (password.isEmpty())
        return false;
    const QByteArray bytes = text.toUtf8();
    const QByteArray login = '\0' + account.address.toUtf8() + '\0' + password;
    return bytes.contains(password) || bytes.contains(password.toBase64()) || bytes.contains(login.toBase64());
}

// The words in which the server has refused, or their code alone.
QString refusalOf(const SmtpTransfer& transfer, const MailAccount& account)
{
    constexpr int codeLength = 3;
    const QString words = transfer.dialogue().refusal();
    return tellsPassword(words, account) ? words.left(codeLength) : words;
}

} // namespace

SmtpSender::SmtpSender(const Options& options)
    : m_options(options)
{
}

MailResult SmtpSender::failure(const MailMessage& message, const QString& reason)
{
    MailResult result;
    for (int position = 0; position < message.recipients.size(); ++position)
        result.failedPositions.append(position);
    result.reason = reason;
    return result;
}

MailResult SmtpSender::send(const MailAccount& account, const MailMessage& message,
                            const std::atomic_bool& cancelled) const
{
    const QString wrong = problem(account, message);
    if (!wrong.isEmpty())
        return failure(message, wrong);

    MailResult result;
    MailMessage sound = message;
    sound.recipients.clear();
    QList<int> positions; // of the sound recipients
    SmtpTransfer::Order order;
    for (int position = 0; position < message.recipients.size(); ++position) {
        const SEmailRecipient& recipient = message.recipients.at(position);
        const QString reason = problem(recipient);
        if (!reason.isEmpty()) {
            result.failedPositions.append(position);
            result.reason = reason;
            continue;
        }
        positions.append(position);
        sound.recipients.append(recipient);
        order.recipients.push_back(recipient.strAddress.toLatin1());
    }
    if (positions.isEmpty())
        return failure(message, result.reason);

    order.host = MailChecks::hostForUrl(account.server);
    order.port = account.port;
    order.encryption = account.encryption;
    order.user = account.address.toUtf8();
    order.password = account.password.toUtf8();
    order.sender = account.address.toLatin1();
    order.content =
        MimeText::compose(account.address, sound, QDateTime::currentDateTime(), newMessageId(account.address));
    order.authorities = QFile::encodeName(m_options.authorities);
    order.timeout = m_options.timeout;

    SmtpTransfer transfer(order, cancelled);
    const CURLcode code = transfer.run();
    if (code != CURLE_OK)
        return failure(message, reasonFor(code, account, transfer));
    result.sent = true;
    for (int i = 0; i < positions.size(); ++i) {
        if (transfer.dialogue().isAccepted(i))
            continue;
        result.failedPositions.append(positions.at(i));
        result.reason = tr("The server refuses a recipient: %1").arg(refusalOf(transfer, account));
    }
    std::sort(result.failedPositions.begin(), result.failedPositions.end());
    return result;
}

// Why nothing can be sent, or an empty text.
QString SmtpSender::problem(const MailAccount& account, const MailMessage& message)
{
    if (MailChecks::hasControlCharacter(account.server) || MailChecks::hostForUrl(account.server).isEmpty())
        return tr("The name of the mail server is not valid.");
    if (account.port < 1 || account.port > lastPort)
        return tr("The mail server's port is not valid.");
    if (!MailChecks::isAddress(account.address))
        return tr("The sender's address is not valid.");
    if (MailChecks::hasControlCharacter(account.password))
        return tr("The password holds characters that cannot be sent.");
    if (MailChecks::hasControlCharacter(message.subject))
        return tr("The subject holds a line break or another control character.");
    if (message.recipients.isEmpty())
        return tr("There is no recipient.");
    return {};
}

// Why nothing can be sent to this recipient, or an empty text.
QString SmtpSender::problem(const SEmailRecipient& recipient)
{
    if (MailChecks::hasControlCharacter(recipient.strName))
        return tr("A recipient's name holds a line break or another control character.");
    if (!MailChecks::isAddress(recipient.strAddress))
        return tr("A recipient's address is not valid.");
    return {};
}

QString SmtpSender::reasonFor(CURLcode result, const MailAccount& account, const SmtpTransfer& transfer)
{
    switch (result) {
    case CURLE_COULDNT_RESOLVE_HOST:
        return tr("The mail server %1 is not known.").arg(account.server);
    case CURLE_COULDNT_CONNECT:
        return tr("The mail server %1 cannot be reached at port %2.").arg(account.server).arg(account.port);
    case CURLE_OPERATION_TIMEDOUT:
        return tr("The mail server did not answer in time.");
    case CURLE_ABORTED_BY_CALLBACK:
        return tr("The mail was given up.");
    case CURLE_USE_SSL_FAILED:
        return tr("The mail server offers no encryption at port %1.").arg(account.port);
    case CURLE_SSL_CONNECT_ERROR:
        return tr("No encrypted connection comes about at port %1: %2").arg(account.port).arg(transfer.errorText());
    case CURLE_PEER_FAILED_VERIFICATION:
        return tr("The mail server's certificate is not trusted: %1").arg(transfer.errorText());
    case CURLE_SSL_CACERT_BADFILE:
        return tr("The certificates to trust cannot be read: %1").arg(transfer.errorText());
    case CURLE_LOGIN_DENIED:
        return transfer.dialogue().hasTriedLogin() ? tr("The mail server refuses the address and password.")
                                                   : tr("The mail server offers no login, so nothing was sent.");
    default:
        break;
    }
    const QString words = refusalOf(transfer, account);
    return words.isEmpty()
               ? tr("The connection to the mail server broke: %1").arg(QLatin1String(curl_easy_strerror(result)))
               : tr("The mail server refuses the mail: %1").arg(words);
}
