#include "benchmarks/Peer.h"
#include "benchmarks/Rows.h"
#include "benchmarks/Stage.h"
#include "typelibrary/store/CTypeLibrary.h"

namespace {

constexpr int settleTime = 500; // milliseconds for the tab to show the library's groups

} // namespace

std::vector<Measurement> measureColdScan(const BenchOptions& options)
{
    settingArea();
    const QString folder = usualLibrary(options).path(options.files);
    const Peer md5sum = md5sumOfAll(folder);
    CTypeLibrary library;
    library.setRootPath(folder);
    md5sum.run();

    Measurement line(QStringLiteral("cold scan, beside md5sum"), Measurement::Ratio, 0.6);
    const auto scan = [&] {
        forget(library.nodes());
        return secondsOf([&] { library.updateLibrary(); });
    };
    measureByTurns(options.repeat, line, scan, [&] { return md5sum.run(); });
    return {line};
}

std::vector<Measurement> measureRescan(const BenchOptions& options)
{
    settingArea();
    const QString folder = usualLibrary(options).path(options.files);
    const Peer find = findSizes(folder);
    CTypeLibrary library;
    library.setRootPath(folder);
    find.run();

    Measurement line(QStringLiteral("rescan, nothing changed, beside find -printf %s"), Measurement::Ratio, 1.2);
    const auto rescan = [&] { return secondsOf([&] { library.updateLibrary(); }); };
    measureByTurns(options.repeat, line, rescan, [&] { return find.run(); });
    return {line};
}

std::vector<Measurement> measureGetSettings(const BenchOptions& options)
{
    ISettingInterface& area = settingArea();
    const QString folder = usualLibrary(options).path(options.files);
    const Peer find = findSizes(folder);
    area.setTypeLibraryPath(folder);
    processEventsFor(settleTime);
    find.run();

    Measurement line(QStringLiteral("getSettings, beside find -printf %s"), Measurement::Ratio, 1.5);
    const auto getSettings = [&] { return secondsOf([&] { area.getSettings(); }); };
    measureByTurns(options.repeat, line, getSettings, [&] { return find.run(); });
    return {line};
}
