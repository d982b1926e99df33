#include "host/mail/MailChecks.h"

#include <QUrl>

#include <algorithm>

namespace {

constexpr int longestAddress = 254; // with its angle brackets it fits in a command's path
constexpr int longestHost = 253;

const QLatin1String hexadecimal("0123456789abcdefABCDEF");

bool isAlphanumeric(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

bool isLineBreak(QChar c)
{
    const QChar::Category category = c.category();
    return category == QChar::Separator_Line || category == QChar::Separator_Paragraph;
}

bool isIpv6Address(const QString& server)
{
    const auto fits = [](QChar c) { return c == QLatin1Char(':') || c == QLatin1Char('.') || hexadecimal.contains(c); };
    return server.count(QLatin1Char(':')) > 1 && std::all_of(server.begin(), server.end(), fits);
}

} // namespace

bool MailChecks::hasControlCharacter(const QString& text)
{
    return std::any_of(text.begin(), text.end(),
                       [](QChar c) { return c.category() == QChar::Other_Control || isLineBreak(c); });
}

bool MailChecks::isAddress(const QString& text)
{
    const auto fits = [](QChar c) {
        return c > QLatin1Char(' ') && c < QChar(0x7F) && c != QLatin1Char('<') && c != QLatin1Char('>') &&
               c != QLatin1Char(',');
    };
    const int at = text.lastIndexOf(QLatin1Char('@'));
    return at > 0 && at < text.size() - 1 && text.size() <= longestAddress &&
           std::all_of(text.begin(), text.end(), fits);
}

QByteArray MailChecks::hostForUrl(const QString& server)
{
    if (server.size() > longestHost)
        return {};
    if (isIpv6Address(server))
        return '[' + server.toLatin1() + ']';
    const QByteArray host = QUrl::toAce(server);
    const auto fits = [](char c) { return c == '.' || c == '-' || c == '_' || isAlphanumeric(c); };
    return std::all_of(host.begin(), host.end(), fits) ? host : QByteArray();
}
