#include "validator/Checks.h"
#include "validator/ExportedSymbols.h"
#include "validator/LoadedPlugin.h"
#include "validator/Report.h"
#include "validator/Stage.h"

#include <QApplication>

namespace {

void exportsOneSymbol(const Options& options, Report& report)
{
    QString error;
    const QStringList symbols = exportedSymbols(options.plugin, error);
    if (!error.isEmpty())
        report.fail(error);
    else if (symbols != QStringList(QLatin1String(SettingArea_InitSymbol)))
        report.fail(
            QStringLiteral("it exports %1, not %2 alone")
                .arg(symbols.isEmpty() ? QStringLiteral("nothing") : symbols.mid(0, 10).join(QLatin1String(", ")),
                     QLatin1String(SettingArea_InitSymbol)));
}

void isLoaded(const Options& options, Report& report)
{
    QString error;
    if (!loadPlugin(options.plugin, error))
        report.fail(error);
}

void refusesNull(const Options& options, Report& report)
{
    QString error;
    const SettingArea_InitFunction init = loadPlugin(options.plugin, error);
    if (!init) {
        report.fail(error);
        return;
    }
    QWidget parent;
    report.expect(!init(nullptr, nullptr), "SettingArea_Init(nullptr, nullptr) is true");
    report.expect(!init(nullptr, &parent), "SettingArea_Init(nullptr, window) is true");
    report.expect(parent.children().isEmpty(), "SettingArea_Init(nullptr, window) docks something");
    report.expect(QApplication::topLevelWidgets() == QWidgetList{&parent},
                  "SettingArea_Init(nullptr, ...) makes a widget");
    IAbstractControlInterface* control = nullptr;
    report.expect(init(&control, nullptr) && control, "SettingArea_Init does not work after a call that it refused");
}

void isGivenOut(const Options& options, Report& report)
{
    Stage stage(options, report);
    if (!stage.isReady())
        return;
    ISettingInterface& settings = stage.settings();
    report.expect(settings.initialize(), "initialize() is false");
    report.expect(settings.isValid(), "isValid() is false");
    report.expect(settings.widget()->isVisible(), "the settings area is not visible in its window");
    IAbstractControlInterface* second = nullptr;
    QWidget other;
    report.expect(stage.init()(&second, &other), "the second SettingArea_Init is false");
    report.expect(second == &settings, "the second SettingArea_Init gives another settings area");
    report.expect(settings.widget()->parentWidget() == &other, "the second SettingArea_Init does not dock anew");
}

} // namespace

std::vector<Check> loadChecks()
{
    return {
        {1, "exports the one symbol", exportsOneSymbol},
        {1, "loads with every symbol resolved", isLoaded},
        {1, "refuses a null control and creates nothing", refusesNull},
        {1, "gives one settings area, docked where it was asked to", isGivenOut},
    };
}
