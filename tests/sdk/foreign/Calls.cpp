#include "Calls.h"

#include <QFile>
#include <QRegularExpression>
#include <QTextStream>

void Calls::note(const char* operation)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    ++m_counts[QLatin1String(operation)];
}

int Calls::count(const char* operation) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_counts.value(QLatin1String(operation));
}

QStringList Calls::report(const QString& contractFile) const
{
    QFile file(contractFile);
    if (!file.open(QIODevice::ReadOnly))
        return {QStringLiteral("there is no ") + contractFile};
    QTextStream out(stdout);
    QStringList faults;
    int operations = 0;
    bool isInterface = false;
    const QRegularExpression entry(QStringLiteral("^ +\\d+ (\\w+): "));
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine());
        if (!line.startsWith(QLatin1Char(' '))) {
            isInterface = line.startsWith(QLatin1String("interface ")) || line.startsWith(QLatin1String("function "));
            continue;
        }
        const QString operation = entry.match(line).captured(1);
        if (!isInterface || operation.isEmpty())
            continue;
        ++operations;
        const int calls = count(operation.toLatin1().constData());
        out << QStringLiteral("%1 %2").arg(calls, 6).arg(operation) << Qt::endl;
        if (operation.startsWith(QLatin1String("reserved")) ? calls != 0 : calls == 0)
            faults.append(QStringLiteral("%1 was called %2 times").arg(operation).arg(calls));
    }
    if (operations == 0)
        faults.append(QStringLiteral("no operations are in ") + contractFile);
    return faults;
}
