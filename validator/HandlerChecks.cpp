#include "validator/CheckingHandler.h"
#include "validator/Checks.h"
#include "validator/Report.h"
#include "validator/Stage.h"

#include "plugin/interface/SHwRcvInCabinetInfo.h"

#include <QAbstractButton>
#include <QEasingCurve>
#include <QTreeView>

#include <chrono>
#include <limits>
#include <thread>

namespace {

constexpr int typeCount = 40;

// Nothing is what it has to say.
class EmptyHandler : public CheckingHandler
{
public:
    using CheckingHandler::CheckingHandler;

    QString projectName() override { return {}; }
    bool isMultiRcvCabinetFile(const QString& /*path*/) override { return false; }
    void readCabinetInfo(const QString& /*path*/, SHwRcvInCabinetInfo& /*info*/) override {}
    void writeCabinetInfo(const QString& /*path*/, const SHwRcvInCabinetInfo& /*info*/) override {}
    void queryCabinetResolution(const QString& /*path*/, int& /*width*/, int& /*height*/) override {}
    std::array<std::int64_t, 4> queryCabinetBlock(const QString& /*path*/) override { return {}; }
    QObject* showProgress(const QString& /*text*/, int /*ms*/, const QEasingCurve& /*curve*/) override
    {
        return nullptr;
    }
    void endProgress(QObject* /*progress*/) override {}
};

// Sizes and positions that no cabinet and no list has.
class AbsurdHandler : public CheckingHandler
{
public:
    using CheckingHandler::CheckingHandler;

    bool SendEmail(QList<int>& failedPositions, const SEmailSettings& /*settings*/, const QString& /*body*/) override
    {
        failedPositions = {-1, std::numeric_limits<int>::max(), 0, 0, std::numeric_limits<int>::min()};
        return true;
    }
    QString projectName() override { return QString().fill(QLatin1Char('/'), 100'000); }
    bool isMultiRcvCabinetFile(const QString& /*path*/) override { return true; }
    void readCabinetInfo(const QString& /*path*/, SHwRcvInCabinetInfo& info) override
    {
        info.columns = 255;
        info.rows = 255;
        info.wiringOrder.fill(255);
        info.weight = std::numeric_limits<float>::quiet_NaN();
        info.voltageMin = std::numeric_limits<float>::infinity();
        info.name = QString(10'000, QLatin1Char('x'));
        std::fill(std::begin(info.md5.data), std::end(info.md5.data), 'z'); // without its terminating zero
    }
    void queryCabinetResolution(const QString& /*path*/, int& width, int& height) override
    {
        width = std::numeric_limits<int>::min();
        height = std::numeric_limits<int>::max();
    }
};

class SlowHandler : public CheckingHandler
{
public:
    using CheckingHandler::CheckingHandler;

    bool isMultiRcvCabinetFile(const QString& path) override
    {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        return CheckingHandler::isMultiRcvCabinetFile(path);
    }
};

// Not the kind of handler that a settings area calls.
class OtherHandler : public IAbstractInterfaceHandler
{
};

// Shows the library and every page under the handler, and reads everything back.
void live(Stage& stage, IAbstractInterfaceHandler* handler)
{
    ISettingInterface& settings = stage.settings();
    settings.setHandler(handler);
    const QString folder = stage.folder(QStringLiteral("types"));
    Stage::fill(folder, typeCount);
    stage.report().expect(stage.setLibrary(folder), "setTypeLibraryPath is false");
    settings.setSettings(SSettings());
    for (const int tab : {1, 2, 0, 1}) {
        settings.setCurrentTab(tab);
        stage.work();
    }
    if (auto* const tree = settings.widget()->findChild<QTreeView*>(QStringLiteral("TypeLibrary"))) {
        tree->expandAll();
        stage.await([tree] { return tree->model() && tree->model()->rowCount(tree->rootIndex()) > 3; });
        tree->expandAll();
        tree->viewport()->repaint();
    }
    settings.refreshPreferences();
    settings.getSettings();
    // Thirty in three groups, the others beside those.
    stage.report().expect(settings.getTypeLibrary().size() == 3 + typeCount / 4, "the library is not complete");
}

template<typename Handler>
void livesWith(const Options& options, Report& report)
{
    Stage stage(options, report);
    if (stage.isReady())
        live(stage, new Handler(stage.host()));
}

void livesWithOther(const Options& options, Report& report)
{
    Stage stage(options, report);
    if (!stage.isReady())
        return;
    const int calls = stage.host()->calls;
    live(stage, new OtherHandler);
    report.expect(stage.host()->calls == calls, "a handler that was replaced is called");
}

void replacesDuringScan(const Options& options, Report& report)
{
    Stage stage(options, report);
    if (!stage.isReady())
        return;
    const QString folder = stage.folder(QStringLiteral("types"));
    Stage::fill(folder, typeCount);
    for (int round = 0; round < 10 && !report.hasFailed(); ++round) {
        stage.settings().setHandler(new SlowHandler(stage.host()));
        const int queries = stage.host()->queries;
        std::atomic<bool> isDone{false};
        std::thread worker([&] {
            stage.settings().setTypeLibraryPath(round % 2 == 0 ? folder : QString());
            isDone = true;
        });
        stage.await([&] { return stage.host()->queries > queries || isDone; });
        stage.settings().setHandler(round % 3 == 0 ? nullptr : new CheckingHandler(stage.host()));
        report.expect(stage.await([&] { return isDone.load(); }), "the scan does not end");
        worker.join();
        // Other files, so that the next scan asks again.
        Stage::fill(folder, typeCount, (round + 1) * typeCount);
    }
    stage.settings().setHandler(nullptr);
    report.expect(stage.await([&] { return stage.host()->handlersAlive == 0; }), "handlers that were replaced live on");
}

} // namespace

std::vector<Check> handlerChecks()
{
    return {
        {3, "a handler of another kind is not called", livesWithOther},
        {3, "a handler whose answers are empty", livesWith<EmptyHandler>},
        {3, "a handler whose answers are absurd", livesWith<AbsurdHandler>},
        {3, "a slow handler", livesWith<SlowHandler>},
        {3, "handler replaced during a scan", replacesDuringScan},
    };
}
