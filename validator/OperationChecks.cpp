#include "validator/Checks.h"
#include "validator/Random.h"
#include "validator/Report.h"
#include "validator/Stage.h"
#include "validator/random/RecordInvariant.h"
#include "validator/random/WildRecord.h"

#include <QAbstractButton>

namespace {

// Every operation once, in the order of the contract.
void callEverything(Stage& stage)
{
    ISettingInterface& settings = stage.settings();
    Report& report = stage.report();
    report.expect(settings.widget() != nullptr, "widget() is null");
    report.expect(settings.initialize(), "initialize() is false");
    report.expect(settings.isValid(), "isValid() is false");
    settings.syncLanguageWithLocale();
    settings.setSettings(SSettings());
    report.expect(stage.setLibrary(QString()), "setTypeLibraryPath is false for no folder");
    report.expect(stage.setLibrary(stage.folder(QStringLiteral("types"))), "setTypeLibraryPath is false for a folder");
    report.expect(stage.setLibrary(stage.folder(QStringLiteral("types")) + QStringLiteral("/none")),
                  "setTypeLibraryPath is false for a folder that does not exist");
    report.expect(settings.isTypeLibraryReady(), "the library is not ready after setTypeLibraryPath");
    report.expect(settings.getSettings() != nullptr, "getSettings() is null");
    for (const int tab : {1, 2, 0, -1, 3, 1'000'000'000, 0})
        settings.setCurrentTab(tab);
    report.expect(settings.getTypeLibrary().empty(), "a folder that does not exist has types");
    settings.setControlsEnabled(false);
    settings.setControlsEnabled(true);
    settings.closeShortcutPanel();
    settings.refreshPreferences();
    stage.work();
}

void worksWithoutHandler(const Options& options, Report& report)
{
    Stage stage(options, report);
    if (!stage.isReady())
        return;
    stage.settings().setHandler(nullptr);
    report.expect(!stage.settings().getHandler(), "getHandler() is not empty after setHandler(nullptr)");
    report.expect(stage.host()->handlersAlive == 0, "setHandler(nullptr) keeps the handler");
    const int calls = stage.host()->calls;
    callEverything(stage);
    Stage::fill(stage.folder(QStringLiteral("types")), 8);
    report.expect(stage.setLibrary(stage.folder(QStringLiteral("types"))), "setTypeLibraryPath is false");
    report.expect(stage.host()->calls == calls, "a handler that was taken away is called");
}

void worksWithHandler(const Options& options, Report& report)
{
    Stage stage(options, report);
    if (!stage.isReady())
        return;
    callEverything(stage);
    Stage::fill(stage.folder(QStringLiteral("types")), 8);
    report.expect(stage.setLibrary(stage.folder(QStringLiteral("types"))), "setTypeLibraryPath is false");
    report.expect(stage.settings().getTypeLibrary().size() == 5, "eight types in three groups and the library itself "
                                                                 "are not five entries");
    report.expect(stage.host()->queries > 0, "the handler is never asked about a type file");
    report.expect(stage.settings().getSettings() == stage.settings().getSettings(), "the record moves");
}

void keepsRecords(const Options& options, Report& report)
{
    Stage stage(options, report);
    if (!stage.isReady())
        return;
    const RecordInvariant record(*stage.settings().widget(), report);
    record.check(*stage.settings().getSettings());
    for (std::uint64_t number = 0; number < 200 && !report.hasFailed(); ++number) {
        Random random(options.seed, number);
        const SSettings pushed = wildRecord(random);
        stage.settings().setSettings(pushed);
        const SSettings read = *stage.settings().getSettings();
        record.check(read);
        record.checkKept(pushed, read);
        // What comes back is in every range, so that it is the same the next time.
        stage.settings().setSettings(read);
        record.checkSame(read, *stage.settings().getSettings());
        stage.work();
    }
    report.expect(stage.host()->lastPriority == -1, "a push tells the host of a new connection priority");
}

} // namespace

std::vector<Check> operationChecks()
{
    return {
        {2, "every operation without a handler", worksWithoutHandler},
        {2, "every operation with a handler", worksWithHandler},
        {2, "200 records, sound and wild, come back as the controls show them", keepsRecords},
    };
}
