#include "host/tour/TourSteps.h"

#include "host/CMainWindow.h"
#include "host/tour/TourStage.h"
#include "plugin/interface/ISettingInterface.h"

#include <QAction>
#include <QCoreApplication>
#include <QMenu>
#include <QMenuBar>
#include <QTreeView>

namespace {

enum Tab
{
    PreferencesTab,
    TypeLibraryTab,
    HealthSettingsTab,
};

std::function<bool(TourStage&)> page(Tab tab)
{
    return [tab](TourStage& stage) {
        stage.area()->setCurrentTab(tab);
        return stage.shoot();
    };
}

// Opens all groups below `parent`; the model reads each folder on a thread of its own.
bool expand(TourStage& stage, QTreeView* tree, const QModelIndex& parent)
{
    const QAbstractItemModel* const model = tree->model();
    const auto isRead = [&] { return model->rowCount(parent) > 0 || !model->hasChildren(parent); };
    if (!stage.waitFor(isRead, QStringLiteral("the content of the type library")))
        return false;
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex index = model->index(row, 0, parent);
        if (!model->hasChildren(index))
            continue;
        tree->expand(index);
        if (!expand(stage, tree, index))
            return false;
    }
    return true;
}

bool typeLibrary(TourStage& stage)
{
    stage.area()->setCurrentTab(TypeLibraryTab);
    auto* const tree = stage.area()->widget()->findChild<QTreeView*>();
    return expand(stage, tree, tree->rootIndex()) && stage.shoot();
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

bool about(TourStage& stage)
{
    QAction* const action = stage.window()->action(CMainWindow::About);
    return stage.inDialog([action] { action->trigger(); }, [&stage](QWidget*) { return stage.shoot(); });
}

bool warning(TourStage& stage)
{
    const QString text = QCoreApplication::translate("SettingsFile", "The settings file %1 cannot be used: %2")
                             .arg(QStringLiteral("settings.json"),
                                  QCoreApplication::translate("SettingsFile", "it is not a JSON object."));
    return stage.inDialog([&] { stage.window()->warn(text); }, [&stage](QWidget*) { return stage.shoot(); });
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

} // namespace

std::vector<TourStep> tourSteps()
{
    return {
        {"preferences", page(PreferencesTab)},
        {"type-library", typeLibrary},
        {"type-library-small-window", smallWindow},
        {"health-settings", page(HealthSettingsTab)},
        {"file-menu", menu(CMainWindow::FileMenu)},
        {"view-menu", menu(CMainWindow::ViewMenu)},
        {"about", about},
        {"warning", warning},
    };
}
