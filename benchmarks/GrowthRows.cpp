#include "benchmarks/PaintedWindow.h"
#include "benchmarks/Rows.h"
#include "benchmarks/Stage.h"
#include "typelibrary/store/CTypeLibrary.h"

#include <QCoreApplication>
#include <QProcess>

#include <malloc.h>

#include <array>
#include <cstdio>

namespace {

// What one process measured, for one type.
struct Growth
{
    Samples coldScan;
    Samples rescan;
    Samples heap;
    Samples resident;
    Samples process; // in all, not for one type
};

// Bytes that the program has taken from the heap and not given back.
double heapInUse()
{
    const auto info = ::mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

int countTypes(const std::vector<CTypeLibrary::STreeNode>& nodes)
{
    int count = 0;
    for (const auto& node : nodes)
        count += node.children.empty() ? 1 : countTypes(node.children);
    return count;
}

void measureInOwnProcess(const QString& folder, int types, Growth& growth)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--growth-of"), folder});
    if (!process.waitForFinished(-1) || process.exitCode() != 0)
        qFatal("The process that measures %s failed", qPrintable(folder));
    const QList<QByteArray> values = process.readAllStandardOutput().split(' ');
    if (values.size() != 6 || values[0].toInt() != types)
        qFatal("The process that measures %s found %s", qPrintable(folder), values[0].constData());
    growth.coldScan.add(values[1].toDouble() / types);
    growth.rescan.add(values[2].toDouble() / types);
    growth.heap.add(values[3].toDouble() / types);
    growth.resident.add(values[4].toDouble() / types);
    growth.process.add(values[5].toDouble());
}

} // namespace

void printGrowth(const QString& folder)
{
    settingArea();
    const double heapBefore = heapInUse();
    const double residentBefore = residentSize();
    CTypeLibrary& library = CTypeLibrary::instance();
    const double coldScan = secondsOf([&] { library.setRootPath(folder); });
    const double heap = heapInUse() - heapBefore;
    const double resident = residentSize() - residentBefore;
    const double rescan = secondsOf([&] { library.updateLibrary(); });
    std::printf("%d %.9f %.9f %.0f %.0f %.0f", countTypes(library.nodes()), coldScan, rescan, heap, resident,
                residentSize());
}

std::vector<Measurement> measureGrowth(const BenchOptions& options)
{
    constexpr std::array sizes{1'000, 10'000, 100'000};
    std::array<Growth, sizes.size()> growth;
    for (int i = -1; i < options.repeat; ++i) {
        for (std::size_t k = 0; k < sizes.size(); ++k) {
            const int types = options.types(sizes[k]);
            Growth unused; // of the first round, which brings the files into memory
            measureInOwnProcess(lightLibrary(types).path(options.files), types, i < 0 ? unused : growth[k]);
        }
    }

    const auto line = [](const QString& name, const Samples& ours, Measurement::Reach reach = Measurement::Nothing,
                         double limit = 0, Measurement::Unit unit = Measurement::Seconds) {
        Measurement result(name, reach, limit, unit);
        result.ours = ours;
        return result;
    };
    const auto growthOf = [&](const QString& name, Samples Growth::*samples, Measurement::Unit unit) {
        Measurement result = line(name, growth[2].*samples, Measurement::Ratio, 1.3, unit);
        result.peer = growth[1].*samples;
        return result;
    };
    const QString beside10000 = QStringLiteral("- in 100,000 types, beside 10,000 types");
    return {
        line(QStringLiteral("a type's cold scan in 1,000 types"), growth[0].coldScan),
        growthOf(beside10000, &Growth::coldScan, Measurement::Seconds),
        line(QStringLiteral("a type's rescan in 1,000 types"), growth[0].rescan),
        growthOf(beside10000, &Growth::rescan, Measurement::Seconds),
        line(QStringLiteral("a type's memory in 1,000 types"), growth[0].heap, Measurement::Nothing, 0,
             Measurement::Bytes),
        growthOf(beside10000, &Growth::heap, Measurement::Bytes),
        line(QStringLiteral("- in 100,000 types"), growth[2].heap, Measurement::Value, 1024, Measurement::Bytes),
        line(QStringLiteral("- the process's growth in 100,000 types"), growth[2].resident, Measurement::Nothing, 0,
             Measurement::Bytes),
        line(QStringLiteral("the process's memory with 1,000 types"), growth[0].process, Measurement::Nothing, 0,
             Measurement::Bytes),
        line(QStringLiteral("- with 10,000 types"), growth[1].process, Measurement::Nothing, 0, Measurement::Bytes),
        line(QStringLiteral("- with 100,000 types"), growth[2].process, Measurement::Nothing, 0, Measurement::Bytes),
    };
}
