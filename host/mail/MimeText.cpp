#include "host/mail/MimeText.h"

#include "host/mail/MailMessage.h"

#include <QLocale>

#include <algorithm>

namespace {

const char crlf[] = "\r\n";
const char fold[] = "\r\n ";

// A line with an encoded word has at most 76 characters, the header's name included.
constexpr int wordBytes = 39;
constexpr int longestPlain = 64; // also the longest name that a user can enter
constexpr int longestLine = 70;

constexpr int base64Line = 76;

bool isPlain(const QString& text)
{
    const auto printable = [](QChar c) { return c >= QLatin1Char(' ') && c < QChar(0x7F); };
    return text.size() <= longestPlain && std::all_of(text.begin(), text.end(), printable) &&
           !text.contains(QLatin1String("=?")) && text == text.trimmed();
}

// Each word stands for whole characters.
QByteArray encodedWords(const QString& text)
{
    QByteArray words;
    QByteArray part;
    const auto endWord = [&] {
        words += (words.isEmpty() ? "" : fold) + ("=?UTF-8?B?" + part.toBase64() + "?=");
        part.clear();
    };
    const auto codePoints = text.toUcs4();
    for (const uint& codePoint : codePoints) {
        const QByteArray bytes = QString::fromUcs4(&codePoint, 1).toUtf8();
        if (part.size() + bytes.size() > wordBytes)
            endWord();
        part += bytes;
    }
    endWord();
    return words;
}

QByteArray quoted(const QString& name)
{
    QByteArray text = name.toLatin1();
    text.replace('\\', "\\\\").replace('"', "\\\"");
    return '"' + text + '"';
}

QByteArray mailboxes(const QList<SEmailRecipient>& recipients)
{
    QByteArray list;
    for (const SEmailRecipient& recipient : recipients) {
        if (!list.isEmpty())
            list += QByteArray(",") + fold;
        list += MimeText::mailbox(recipient.strName, recipient.strAddress);
    }
    return list;
}

// Date and zone of the C locale, whatever the user's language.
QByteArray dateText(const QDateTime& date)
{
    return (QLocale::c().toString(date, QStringLiteral("ddd, ")) + date.toString(Qt::RFC2822Date)).toLatin1();
}

// In Base64 no server has a reason to change a line, however long it is and whatever it begins with.
QByteArray encodedBody(QString body)
{
    body.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    body.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    body.replace(QLatin1Char('\n'), QLatin1String("\r\n"));
    const QByteArray encoded = body.toUtf8().toBase64();
    QByteArray lines;
    lines.reserve(encoded.size() / base64Line * (base64Line + 2) + base64Line + 2);
    for (int i = 0; i < encoded.size(); i += base64Line)
        lines += encoded.mid(i, base64Line) + crlf;
    return lines;
}

} // namespace

QByteArray MimeText::unstructured(const QString& text)
{
    return isPlain(text) ? text.toLatin1() : encodedWords(text);
}

QByteArray MimeText::mailbox(const QString& name, const QString& address)
{
    const QByteArray path = '<' + address.toLatin1() + '>';
    if (name.isEmpty())
        return path;
    const QByteArray phrase = isPlain(name) ? quoted(name) : encodedWords(name);
    const bool fits = phrase.size() + path.size() < longestLine;
    return phrase + (fits ? " " : fold) + path;
}

QByteArray MimeText::compose(const QString& sender, const MailMessage& message, const QDateTime& date,
                             const QByteArray& messageId)
{
    QByteArray text;
    const auto header = [&text](const char* name, const QByteArray& value) { text += name + (": " + value) + crlf; };
    header("Date", dateText(date));
    header("From", mailbox(QStringLiteral("Orvel"), sender));
    header("To", mailboxes(message.recipients));
    header("Subject", unstructured(message.subject));
    header("Message-ID", '<' + messageId + '>');
    header("Auto-Submitted", "auto-generated"); // so that nobody's holiday notice answers
    header("MIME-Version", "1.0");
    header("Content-Type", "text/plain; charset=UTF-8");
    header("Content-Transfer-Encoding", "base64");
    return text + crlf + encodedBody(message.body);
}
