#include "monitoring/MailFormats.h"

#include <QString>

#include <algorithm>

namespace {

constexpr int longestPort = 8;

bool isBetween(char16_t first, char16_t character, char16_t last)
{
    return first <= character && character <= last;
}

bool isDigit(char16_t character)
{
    return isBetween(u'0', character, u'9');
}

bool isLower(char16_t character)
{
    return isBetween(u'a', character, u'z');
}

bool isOfHost(char16_t character)
{
    return isLower(character) || isDigit(character);
}

bool isOfMailbox(char16_t character)
{
    return isOfHost(character) || isBetween(u'A', character, u'Z') || character == u'-' || character == u'_' ||
           character == u'.';
}

// Takes as many characters of a kind off the front of the text as there are; how many these were.
template<typename Kind>
qsizetype takeAll(QStringView& text, Kind isOfKind)
{
    const auto* const end = std::find_if_not(text.utf16(), text.utf16() + text.size(), isOfKind);
    const qsizetype count = end - text.utf16();
    text = text.mid(count);
    return count;
}

bool take(QStringView& text, QChar character)
{
    const bool isThere = text.startsWith(character);
    if (isThere)
        text = text.mid(1);
    return isThere;
}

} // namespace

// By hand, because a standard regular expression recurses for every character and long texts overflow the stack. No
// part of the pattern can begin with what may end the part before it, so the first way to read a text is the only one.
bool isMailAddress(QStringView text)
{
    if (takeAll(text, isOfMailbox) == 0 || !take(text, QLatin1Char('@')))
        return false;
    if (takeAll(text, isOfHost) == 0 || !take(text, QLatin1Char('.')))
        return false;
    const qsizetype topLevel = takeAll(text, isLower);
    if (topLevel != 2 && topLevel != 3)
        return false;
    return text.isEmpty() || (take(text, QLatin1Char('.')) && takeAll(text, isLower) == 2 && text.isEmpty());
}

bool isMailPort(QStringView text)
{
    const bool startsWell = !text.startsWith(QLatin1Char('0'));
    const qsizetype digits = takeAll(text, isDigit);
    return startsWell && digits >= 1 && digits <= longestPort && text.isEmpty();
}

QString mailCharacters()
{
    return QStringLiteral(R"(^[A-Za-z0-9`~!@#$%^&*()_\-+=<>,.\\/]*)");
}
