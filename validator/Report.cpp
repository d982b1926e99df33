#include "validator/Report.h"

#include <cstdio>

void Report::fail(const QString& what)
{
    say(finding, what);
}

void Report::note(const QString& text)
{
    say(remark, text);
}

bool Report::expect(bool holds, const char* what)
{
    if (!holds)
        fail(QString::fromUtf8(what));
    return holds;
}

bool Report::hasFailed() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_bFailed;
}

void Report::say(const char* kind, const QString& text)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (kind == finding)
        m_bFailed = true;
    std::printf("%s%s\n", kind, qUtf8Printable(QString(text).replace(QLatin1Char('\n'), QLatin1Char(' '))));
    std::fflush(stdout);
}
