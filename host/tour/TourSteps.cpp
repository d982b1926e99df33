#include "host/tour/TourSteps.h"

#include "host/CMainWindow.h"
#include "host/tour/HealthSteps.h"
#include "host/tour/LibrarySteps.h"
#include "host/tour/LibraryTree.h"
#include "host/tour/PreferencesSteps.h"
#include "host/tour/ShortcutSteps.h"
#include "host/tour/TourStage.h"
#include "host/tour/WizardSteps.h"
#include "plugin/interface/ISettingInterface.h"

#include <QAction>
#include <QCoreApplication>
#include <QFileDialog>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>

namespace {

enum Tab
{
    PreferencesTab,
    TypeLibraryTab,
};

std::function<bool(TourStage&)> page(Tab tab)
{
    return [tab](TourStage& stage) {
        stage.area()->setCurrentTab(tab);
        return stage.shoot();
    };
}

bool typeLibrary(TourStage& stage)
{
    return LibraryTree::expandAll(stage) && stage.shoot();
}

std::function<bool(TourStage&)> menu(CMainWindow::Command command)
{
    return [command](TourStage& stage) {
        QMenuBar* const bar = stage.window()->menuBar();
        QAction* const action = stage.window()->action(command);
        action->menu()->popup(bar->mapToGlobal(bar->actionGeometry(action).bottomLeft()));
        const bool shot = stage.shoot();
        action->menu()->close();
        return shot;
    };
}

// What a command opens, until it is closed.
std::function<bool(TourStage&)> dialogOf(CMainWindow::Command command)
{
    return
        [command](TourStage& stage) { return stage.shootDialog([&] { stage.window()->action(command)->trigger(); }); };
}

bool warning(TourStage& stage)
{
    const QString text = QCoreApplication::translate("SettingsFile", "The settings file %1 cannot be used: %2")
                             .arg(QStringLiteral("settings.json"),
                                  QCoreApplication::translate("SettingsFile", "it is not a JSON object."));
    return stage.shootDialog([&] { stage.window()->warn(text); });
}

// On the smallest screen that the window is meant for.
bool smallWindow(TourStage& stage)
{
    const QSize size = stage.window()->size();
    stage.window()->resize(1024, 600);
    const bool shot = stage.shoot();
    stage.window()->resize(size);
    return shot;
}

bool fileDialog(TourStage& stage)
{
    return stage.inDialog(
        [&] { stage.window()->action(CMainWindow::OpenLibrary)->trigger(); },
        [&](QWidget* dialog) {
            // Not the folder that the program happens to be started in.
            qobject_cast<QFileDialog*>(dialog)->setDirectory(stage.path(QStringLiteral("type-library")));
            return stage.waitFor(
                       [dialog] {
                           auto* const list = dialog->findChild<QListView*>(QStringLiteral("listView"));
                           return list->model()->rowCount(list->rootIndex()) > 0;
                       },
                       QStringLiteral("the content of the folder")) &&
                   stage.shoot();
        });
}

bool placedTypes(TourStage& stage)
{
    if (!LibraryTree::expandAll(stage))
        return false;
    for (const char* type : {"Indoor/Fixed/P4-512x512.rcvp", "Indoor/Fixed/P3-1152x1152-2x2.rcvbp"}) {
        if (!LibraryTree::select(stage, QLatin1String(type)))
            return false;
        stage.window()->action(CMainWindow::PlaceInLayout)->trigger();
    }
    return stage.shoot();
}

// The settings cannot be written: a file has taken the place of their folder.
bool quitQuestion(TourStage& stage)
{
    QFile file(stage.path(QStringLiteral("settings")));
    if (!QDir(file.fileName()).removeRecursively() || !file.open(QIODevice::WriteOnly))
        return stage.fail(file.errorString());
    const auto dropChanges = [](QWidget* question) {
        question->findChild<QPushButton*>(QStringLiteral("NoButton"))->click();
        return true;
    };
    const bool shot = stage.inDialogs([&] { stage.window()->close(); }, {dropChanges, stage.shot()});
    return file.remove() && shot;
}

} // namespace

std::vector<TourStep> tourSteps()
{
    std::vector<TourStep> steps{
        {"preferences", page(PreferencesTab)},
        {"type-library", typeLibrary},
        {"type-library-small-window", smallWindow},
        {"file-menu", menu(CMainWindow::FileMenu)},
        {"view-menu", menu(CMainWindow::ViewMenu)},
        {"help-menu", menu(CMainWindow::HelpMenu)},
        {"about", dialogOf(CMainWindow::About)},
        {"about-qt", dialogOf(CMainWindow::AboutQt)},
        {"warning", warning},
        {"file-dialog", fileDialog},
        {"placed-types", placedTypes},
        {"placed-types-small-window", smallWindow},
        {"layout-menu", menu(CMainWindow::LayoutMenu)},
        {"save-project-question", dialogOf(CMainWindow::NewProject)},
        {"quit-question", quitQuestion},
    };
    for (const auto& more : {preferencesSteps(), healthSteps(), wizardSteps(), librarySteps(), shortcutSteps()})
        steps.insert(steps.end(), more.begin(), more.end());
    return steps;
}
