#pragma once

#include <QString>

// What is shown of a recipient's name or address: all that an editor takes, and the beginning of the text of a damaged
// record, which as a whole would take minutes to lay out.
inline QString shownText(const QString& text)
{
    constexpr int longest = 1000; // characters
    return text.left(longest);
}
