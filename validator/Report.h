#pragma once

#include <QString>
#include <QStringList>

#include <mutex>

class Trace;

// What one check has found, in the process that runs it. The findings go to the parent over the standard output at
// once, so that a crash later does not lose them. [any thread, but for trace()]
class Report
{
public:
    // `trace` outlives the report.
    explicit Report(Trace& trace)
        : m_trace(trace)
    {
    }

    // Something does not hold.
    void fail(const QString& what);

    // A figure or a circumstance for the check's line.
    void note(const QString& text);

    // Fails with `what` unless `holds`; gives back `holds`.
    bool expect(bool holds, const char* what);

    bool hasFailed() const;

    Trace& trace() { return m_trace; }

    // How the lines begin that a child writes.
    static constexpr char finding[] = "finding: ";
    static constexpr char remark[] = "remark: ";

private:
    void say(const char* kind, const QString& text);

    Trace& m_trace;
    mutable std::mutex m_mutex; // guards what follows, and the output
    bool m_bFailed = false;
};
