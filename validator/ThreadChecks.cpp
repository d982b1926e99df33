#include "validator/Checks.h"
#include "validator/Report.h"
#include "validator/Stage.h"

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <thread>
#include <vector>

namespace {

constexpr int typeCount = 60;

bool endsWithThreads = false; // the process, while others use what it has allocated

// What is marked "[any thread]", all at once, while libraries are set from two threads.
void worksOnAnyThread(const Options& options, Report& report)
{
    Stage stage(options, report);
    if (!stage.isReady())
        return;
    ISettingInterface& settings = stage.settings();
    const QString folders[] = {stage.folder(QStringLiteral("first")), stage.folder(QStringLiteral("second"))};
    Stage::fill(folders[0], typeCount);
    Stage::fill(folders[1], typeCount, typeCount);

    std::atomic<int> running{0};
    std::vector<std::thread> workers;
    const auto start = [&](auto work) {
        ++running;
        workers.emplace_back([&running, work] {
            for (int round = 0; round < 30; ++round)
                work(round);
            --running;
        });
    };
    for (const QString& folder : folders)
        start([&, folder](int round) { settings.setTypeLibraryPath(round % 5 == 4 ? QString() : folder); });
    start([&](int) { settings.isTypeLibraryReady(); });
    start([&](int) {
        const std::size_t entries = settings.getTypeLibrary().size();
        if (entries != 0 && entries != 3 + typeCount / 4)
            report.fail(QStringLiteral("getTypeLibrary gave %1 entries of a library that was set").arg(entries));
    });
    start([&](int round) { settings.setHandler(round % 2 == 0 ? new CheckingHandler(stage.host()) : nullptr); });
    start([&](int) { settings.getHandler(); });
    const bool haveEnded = stage.await([&] {
        settings.getSettings(); // the GUI thread's share
        return running == 0;
    });
    if (!report.expect(haveEnded, "calls on several threads wait for each other"))
        std::_Exit(1);
    for (std::thread& worker : workers)
        worker.join();
    report.expect(settings.isTypeLibraryReady(), "the library is not ready after every call has come back");
    settings.setHandler(new CheckingHandler(stage.host()));
    report.expect(stage.setLibrary(folders[0]), "setTypeLibraryPath is false");
    report.expect(settings.getTypeLibrary().size() == 3 + typeCount / 4, "the library set last is not complete");
}

// On the GUI thread itself the call blocks for the time of the scan, and no longer.
void worksOnGuiThread(const Options& options, Report& report)
{
    Stage stage(options, report);
    if (!stage.isReady())
        return;
    const QString folder = stage.folder(QStringLiteral("types"));
    Stage::fill(folder, typeCount);
    report.expect(stage.settings().setTypeLibraryPath(folder), "setTypeLibraryPath on the GUI thread is false");
    report.expect(stage.settings().isTypeLibraryReady(), "the library is not ready");
    report.expect(stage.settings().getTypeLibrary().size() == 3 + typeCount / 4, "the library is not complete");
}

// The same from within a query of the scan, whose own thread must not wait for the scan's end.
void worksWithinQuery(const Options& options, Report& report)
{
    class CallingHandler : public CheckingHandler
    {
    public:
        explicit CallingHandler(Stage& stage)
            : CheckingHandler(stage.host()),
              m_stage(stage)
        {
        }
        bool isMultiRcvCabinetFile(const QString& path) override
        {
            ISettingInterface& settings = m_stage.settings();
            settings.isTypeLibraryReady();
            settings.getTypeLibrary();
            if (settings.getHandler().get() == this)
                settings.setHandler(new CheckingHandler(m_stage.host()));
            return CheckingHandler::isMultiRcvCabinetFile(path);
        }

    private:
        Stage& m_stage;
    };
    Stage stage(options, report);
    if (!stage.isReady())
        return;
    const QString folders[] = {stage.folder(QStringLiteral("first")), stage.folder(QStringLiteral("second"))};
    Stage::fill(folders[0], typeCount);
    Stage::fill(folders[1], typeCount, typeCount);

    stage.settings().setHandler(new CallingHandler(stage));
    report.expect(stage.setLibrary(folders[0]), "setTypeLibraryPath is false");
    report.expect(stage.settings().getTypeLibrary().size() == 3 + typeCount / 4, "the library is not complete");
    stage.settings().setHandler(new CallingHandler(stage));
    report.expect(stage.settings().setTypeLibraryPath(folders[1]), "setTypeLibraryPath on the GUI thread is false");
    report.expect(stage.settings().getTypeLibrary().size() == 3 + typeCount / 4, "the library is not complete");
    report.expect(stage.await([&] { return stage.host()->handlersAlive == 1; }),
                  "a handler that replaced itself lives on");
}

// The process may end at any moment: this one does so in the middle of a scan.
void endsDuringScan(const Options& options, Report& report)
{
    class EndlessHandler : public CheckingHandler
    {
    public:
        using CheckingHandler::CheckingHandler;
        bool isMultiRcvCabinetFile(const QString& path) override
        {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
            return CheckingHandler::isMultiRcvCabinetFile(path);
        }
    };
    // Neither is destroyed: the process ends around them.
    auto* const stage = new Stage(options, report);
    if (!stage->isReady())
        return;
    const QString folder = stage->folder(QStringLiteral("types"));
    Stage::fill(folder, typeCount);
    stage->settings().setHandler(new EndlessHandler(stage->host()));
    std::thread([stage, folder] { stage->settings().setTypeLibraryPath(folder); }).detach();
    report.expect(stage->await([stage] { return stage->host()->queries > 0; }), "the scan asks nothing");
    endsWithThreads = true;
    std::exit(report.hasFailed() ? 1 : 0);
}

} // namespace

// What the leak sanitizer asks before it looks: it cannot look into threads that go on meanwhile.
extern "C" Q_DECL_EXPORT int __lsan_is_turned_off() // NOLINT(bugprone-reserved-identifier)
{
    return endsWithThreads ? 1 : 0;
}

std::vector<Check> threadChecks()
{
    return {
        {5, "operations for any thread on six threads at once", worksOnAnyThread},
        {5, "the library set on the GUI thread", worksOnGuiThread},
        {5, "operations for any thread within a query of the scan", worksWithinQuery},
        {5, "the process ends during a scan", endsDuringScan},
    };
}
