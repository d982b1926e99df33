#include "monitoring/MailFormats.h"

#include <QString>

#include <algorithm>

namespace {

constexpr int longestPort = 8;

bool isBetween(QChar first, QChar character, QChar last)
{
    return first <= character && character <= last;
}

bool isDigit(QChar character)
{
    return isBetween(QLatin1Char('0'), character, QLatin1Char('9'));
}

bool isLower(QChar character)
{
    return isBetween(QLatin1Char('a'), character, QLatin1Char('z'));
}

bool isOfHost(QChar character)
{
    return isDigit(character) || isLower(character);
}

bool isOfMailbox(QChar character)
{
    return isOfHost(character) || isBetween(QLatin1Char('A'), character, QLatin1Char('Z')) ||
           character == QLatin1Char('-') || character == QLatin1Char('_') || character == QLatin1Char('.');
}

// Whether the text is `shortest` to `longest` characters, all of them of one kind.
template<typename Kind>
bool consistsOf(QStringView text, Kind isOfKind, qsizetype shortest, qsizetype longest)
{
    return text.size() >= shortest && text.size() <= longest && std::all_of(text.begin(), text.end(), isOfKind);
}

// Takes the text up to the first separator off its front: all of it where there is none.
QStringView takeFirst(QStringView& text, QChar separator)
{
    const auto* const end = std::find(text.begin(), text.end(), separator);
    const qsizetype length = end - text.begin();
    const QStringView first = text.left(length);
    text = text.mid(std::min(length + 1, text.size()));
    return first;
}

} // namespace

// By hand, because a standard regular expression recurses for every character and long texts overflow the stack.
bool isMailAddress(QStringView text)
{
    QStringView rest = text;
    const QStringView mailbox = takeFirst(rest, QLatin1Char('@'));
    const QStringView label = takeFirst(rest, QLatin1Char('.'));
    const QStringView topLevel = takeFirst(rest, QLatin1Char('.'));
    const bool endsThere = topLevel.end() == text.end();
    return consistsOf(mailbox, isOfMailbox, 1, text.size()) && consistsOf(label, isOfHost, 1, text.size()) &&
           consistsOf(topLevel, isLower, 2, 3) && (endsThere || consistsOf(rest, isLower, 2, 2));
}

bool isMailPort(QStringView text)
{
    return consistsOf(text, isDigit, 1, longestPort) && text.front() != QLatin1Char('0');
}

QString mailCharacters()
{
    return QStringLiteral(R"(^[A-Za-z0-9`~!@#$%^&*()_\-+=<>,.\\/]*)");
}
