#include "validator/Checks.h"
#include "validator/Report.h"
#include "validator/Stage.h"

#include <QApplication>
#include <QDialog>
#include <QDockWidget>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

// The area can still be used: it shows itself, gives its values and changes its tab.
void expectAlive(Stage& stage)
{
    ISettingInterface& settings = stage.settings();
    settings.setCurrentTab(2);
    settings.getSettings();
    settings.setCurrentTab(0);
    stage.work();
}

void survivesWindows(const Options& options, Report& report)
{
    Stage stage(options, report);
    if (!stage.isReady())
        return;
    const QPointer<QWidget> area = stage.settings().widget();
    for (int round = 0; round < 20 && area; ++round) {
        stage.undock();
        if (!report.expect(area, "the settings area is destroyed with its window"))
            return;
        report.expect(!area->isVisible(), "the settings area is left visible when its window goes");
        expectAlive(stage);
        stage.dock();
        report.expect(area->isVisible(), "the settings area is not visible in the next window");
        expectAlive(stage);
    }
}

void survivesAncestors(const Options& options, Report& report)
{
    Stage stage(options, report);
    if (!stage.isReady())
        return;
    const QPointer<QWidget> area = stage.settings().widget();
    IAbstractControlInterface* control = nullptr;
    for (int depth = 1; depth < 8 && area; ++depth) {
        auto* const top = new QWidget;
        QWidget* parent = top;
        for (int level = 1; level < depth; ++level)
            parent = new QWidget(parent);
        report.expect(stage.init()(&control, parent), "SettingArea_Init is false for a nested parent");
        top->show();
        area->show();
        stage.work();
        delete top;
        if (!report.expect(area, "the settings area is destroyed with an ancestor"))
            return;
        expectAlive(stage);
    }
    // The window goes first, then the area is docked in nothing, then in a window again.
    stage.undock();
    report.expect(stage.init()(&control, nullptr), "SettingArea_Init is false for no window");
    report.expect(area && !area->parentWidget(), "the settings area has a parent when it is docked in nothing");
    stage.dock();
    expectAlive(stage);
}

void survivesDocks(const Options& options, Report& report)
{
    Stage stage(options, report);
    if (!stage.isReady())
        return;
    const QPointer<QWidget> area = stage.settings().widget();
    IAbstractControlInterface* control = nullptr;
    for (int round = 0; round < 5 && area; ++round) {
        auto* const window = new QMainWindow;
        stage.init()(&control, window);
        window->setCentralWidget(area);
        window->show();
        stage.work();
        window->setCentralWidget(new QWidget); // which makes the one before delete itself later
        stage.work();
        if (!report.expect(area, "the settings area is destroyed when a main window replaces it"))
            return;
        auto* const dock = new QDockWidget(window);
        dock->setWidget(area);
        window->addDockWidget(Qt::LeftDockWidgetArea, dock);
        stage.work();
        delete dock;
        report.expect(area, "the settings area is destroyed with its dock");
        delete window;
        expectAlive(stage);
    }
}

// A window goes while a dialog of the area's is open.
void survivesWithDialogs(const Options& options, Report& report)
{
    Stage stage(options, report);
    if (!stage.isReady())
        return;
    const QString folder = stage.folder(QStringLiteral("types"));
    Stage::fill(folder, 8);
    stage.setLibrary(folder);
    const QPointer<QWidget> area = stage.settings().widget();
    for (const char* const name : {"ImportFolder", "ImportCabinet", "MultiRcvCabinet", "ClearAll"}) {
        auto* const button = area->findChild<QToolButton*>(QLatin1String(name));
        if (!button) {
            report.fail(QStringLiteral("there is no button \"%1\"").arg(QLatin1String(name)));
            continue;
        }
        stage.settings().setCurrentTab(1);
        if (!stage.await([button] { return button->isVisible() && button->isEnabled(); })) {
            report.fail(QStringLiteral("the button \"%1\" cannot be pressed").arg(QLatin1String(name)));
            continue;
        }
        bool wasOpen = false;
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            if (!wasOpen)
                stage.undock();
            wasOpen = true;
            dialog->reject();
        });
        watch.start(0);
        button->click();
        watch.stop();
        if (!wasOpen)
            report.fail(QStringLiteral("the button \"%1\" opens no dialog").arg(QLatin1String(name)));
        if (!report.expect(area, "the settings area is destroyed with a window that had a dialog"))
            return;
        expectAlive(stage);
        stage.dock();
    }
}

} // namespace

std::vector<Check> dockingChecks()
{
    return {
        {4, "windows destroyed and docked again", survivesWindows},
        {4, "ancestors of the parent destroyed", survivesAncestors},
        {4, "central widgets replaced and docks destroyed", survivesDocks},
        {4, "windows destroyed while a dialog is open", survivesWithDialogs},
    };
}
