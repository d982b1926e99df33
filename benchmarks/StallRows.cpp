#include "benchmarks/Rows.h"
#include "benchmarks/Stage.h"
#include "benchmarks/StallMeter.h"
#include "typelibrary/store/CTypeLibrary.h"

#include <QEventLoop>
#include <QWidget>

#include <thread>

namespace {

constexpr int settleTime = 500; // milliseconds for the window to be shown and filled
constexpr int typeLibraryTab = 1;

// The event loop's waiting times while `work` runs on a thread of its own.
template<typename Work>
Samples gapsDuring(Work work)
{
    QEventLoop loop;
    StallMeter meter;
    std::thread worker([&] {
        work();
        QMetaObject::invokeMethod(&loop, "quit", Qt::QueuedConnection);
    });
    loop.exec();
    worker.join();
    return meter.stop();
}

} // namespace

std::vector<Measurement> measureStall(const BenchOptions& options)
{
    ISettingInterface& area = settingArea();
    area.setTypeLibraryPath(usualLibrary(options).path(options.files));
    area.setCurrentTab(typeLibraryTab);
    area.widget()->resize(1200, 800);
    area.widget()->show();
    processEventsFor(settleTime);

    Measurement usual(QStringLiteral("wait of the GUI thread during a cold scan, median, beside idle"));
    Measurement rare(QStringLiteral("- 99th percentile"), Measurement::Value, 0.016);
    Measurement longest(QStringLiteral("- longest"));
    CTypeLibrary& library = CTypeLibrary::instance();
    for (int i = 0; i < options.repeat; ++i) {
        forget(library.nodes());
        double duration = 0;
        const Samples busy = gapsDuring([&] { duration = secondsOf([&] { library.updateLibrary(); }); });
        const Samples idle = gapsDuring([&] { std::this_thread::sleep_for(std::chrono::duration<double>(duration)); });
        usual.add(busy.median(), idle.median());
        rare.add(busy.percentile(0.99), idle.percentile(0.99));
        longest.add(busy.percentile(1), idle.percentile(1));
    }
    area.widget()->hide();
    return {usual, rare, longest};
}
