// The input is a text in UTF-8.

#include "monitoring/MailFormats.h"
#include "tests/fuzz/Expect.h"

#include <QRegularExpression>

namespace {

constexpr int longestCompared = 2000; // characters; the regular expression gives up at long ones

bool matches(const QRegularExpression& pattern, const QString& text)
{
    return pattern.match(text).hasMatch();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const QRegularExpression address(
        QStringLiteral(R"(\A([0-9A-Za-z\-_\.]+)@([0-9a-z]+\.[a-z]{2,3}(\.[a-z]{2})?)\z)"));
    static const QRegularExpression port(QStringLiteral(R"(\A[1-9][0-9]{0,7}\z)"));
    static const QRegularExpression canBeTyped(QRegularExpression::anchoredPattern(mailCharacters()));

    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const bool isAddress = isMailAddress(text);
    const bool isPort = isMailPort(text);
    EXPECT(!isAddress || !isPort);
    if (text.size() > longestCompared)
        return 0;
    EXPECT(isAddress == matches(address, text));
    EXPECT(isPort == matches(port, text));
    EXPECT(!isAddress || matches(canBeTyped, text));
    return 0;
}
