#include "benchmarks/Measurement.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

QString text(double value, Measurement::Unit unit)
{
    if (unit == Measurement::Bytes)
        return value < 1e5 ? QStringLiteral("%1 B").arg(value, 0, 'f', 0)
                           : QStringLiteral("%1 MB").arg(value / 1e6, 0, 'f', 1);
    if (value < 1e-3)
        return QStringLiteral("%1 us").arg(value * 1e6, 0, 'f', 1);
    return QStringLiteral("%1 ms").arg(value * 1e3, 0, 'f', value < 0.1 ? 2 : 0);
}

// Median, and the spread of all values.
QString text(const Samples& samples, Measurement::Unit unit)
{
    if (samples.isEmpty())
        return {};
    return QStringLiteral("%1 (%2 .. %3)")
        .arg(text(samples.median(), unit), text(samples.percentile(0), unit), text(samples.percentile(1), unit));
}

QString row(const QStringList& cells, bool markdown)
{
    if (markdown)
        return QStringLiteral("| %1 |").arg(cells.join(QStringLiteral(" | ")));
    constexpr std::array widths{48, 36, 36, 7, 8, 3};
    QString line;
    for (std::size_t i = 0; i < widths.size(); ++i)
        line += cells.at(int(i)).leftJustified(widths[i]) + QLatin1Char(' ');
    return line.trimmed();
}

} // namespace

double Samples::percentile(double part) const
{
    std::vector<double> sorted = m_values;
    std::sort(sorted.begin(), sorted.end());
    return sorted[static_cast<std::size_t>(std::lround(part * static_cast<double>(sorted.size() - 1)))];
}

bool Measurement::isSound() const
{
    const auto isNumber = [](const Samples& samples) {
        return std::isfinite(samples.percentile(1)) && samples.percentile(0) > 0;
    };
    return !ours.isEmpty() && isNumber(ours) && (peer.isEmpty() || isNumber(peer));
}

QString tableHead(bool markdown)
{
    const QString head =
        row({QStringLiteral("row"), QStringLiteral("ours (min .. max)"), QStringLiteral("peer (min .. max)"),
             QStringLiteral("ratio"), QStringLiteral("reach"), QStringLiteral("ok")},
            markdown);
    return markdown ? head + QStringLiteral("\n|---|---|---|---|---|---|") : head;
}

QString tableLine(const Measurement& line, bool markdown)
{
    QString ratio;
    QString reach;
    QString ok;
    if (!line.peer.isEmpty())
        ratio = QString::number(line.ratio(), 'f', 2);
    if (line.reach != Measurement::Nothing) {
        const bool ofRatio = line.reach == Measurement::Ratio;
        reach = ofRatio ? QStringLiteral("%1 x").arg(line.limit) : text(line.limit, line.unit);
        ok = (ofRatio ? line.ratio() : line.ours.median()) <= line.limit ? QStringLiteral("yes") : QStringLiteral("no");
    }
    return row({line.name, text(line.ours, line.unit), text(line.peer, line.unit), ratio, reach, ok}, markdown);
}
