#include "validator/RunChecks.h"

#include "validator/Checks.h"
#include "validator/Process.h"
#include "validator/Report.h"
#include "validator/Trace.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTextStream>

#include <csignal>

namespace {

// The lines of a child's output that are of this kind.
QStringList linesOf(const QByteArray& output, const char* kind)
{
    QStringList result;
    const QList<QByteArray> lines = output.split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith(kind))
            result.append(QString::fromUtf8(line.mid(static_cast<int>(qstrlen(kind)))));
    }
    return result;
}

// Runs one check and prints its lines; whether it holds.
bool holds(const Options& options, int position, const QString& traceFile, QTextStream& out)
{
    const Check& check = checks()[static_cast<std::size_t>(position)];
    const Trace trace(traceFile, true);
    const ProcessEnd end = runProcess(options.childArguments(position, traceFile), trace, options.patience);

    QStringList findings = linesOf(end.output, Report::finding);
    if (!end.isClean && (findings.isEmpty() || !end.manner.endsWith(QLatin1String("code 1"))))
        findings.append(QStringLiteral("the process %1").arg(end.manner));
    const QStringList remarks = linesOf(end.output, Report::remark);

    out << (findings.isEmpty() ? "ok   " : "FAIL ") << check.level << ' ' << check.name;
    if (!remarks.isEmpty())
        out << ": " << remarks.join(QLatin1String(", "));
    out << '\n';
    for (const QString& finding : qAsConst(findings))
        out << "       " << finding << '\n';
    if (!findings.isEmpty()) {
        const QStringList steps = trace.steps();
        if (!steps.isEmpty())
            out << "     the last steps, with seed " << options.seed << ":\n";
        for (const QString& step : steps)
            out << "       " << step << '\n';
        if (!end.errors.isEmpty())
            out << "     its standard error:\n" << QString::fromLocal8Bit(end.errors) << '\n';
    }
    out.flush();
    return findings.isEmpty();
}

} // namespace

int runChecks(const Options& options)
{
    // Whoever started this program may ignore it, and passes that on.
    std::signal(SIGCHLD, SIG_DFL);
    QTextStream out(stdout);
    const QTemporaryDir folder;
    if (!folder.isValid()) {
        QTextStream(stderr) << "orvel-validate: " << folder.errorString() << '\n';
        return 2;
    }
    out << options.plugin << ", strictness " << options.strictness << ", seed " << options.seed << '\n';
    out.flush();

    QElapsedTimer clock;
    clock.start();
    int made = 0;
    int failed = 0;
    for (std::size_t position = 0; position < checks().size(); ++position) {
        if (checks()[position].level > options.strictness)
            continue;
        ++made;
        if (!holds(options, static_cast<int>(position), folder.filePath(QStringLiteral("trace")), out))
            ++failed;
    }
    out << made - failed << " of " << made << " checks hold, " << clock.elapsed() / 1000 << " s\n";
    return failed == 0 ? 0 : 1;
}
