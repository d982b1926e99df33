#include "host/tour/TourSteps.h"

#include "host/CMainWindow.h"
#include "host/tour/TourStage.h"
#include "plugin/interface/ISettingInterface.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QToolButton>
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

// What the wizard is to show.
struct WizardView
{
    QString configuration; // as the first step offers it
    bool orientation = false;
    int step = 0; // 0 .. 2
};

void click(QWidget* dialog, const char* button)
{
    dialog->findChild<QAbstractButton*>(QLatin1String(button))->click();
}

// Goes through the cabinet wizard as a user does, up to the step, with a new type from the library's first file.
bool showWizard(TourStage& stage, QWidget* dialog, const WizardView& view)
{
    const QList<QAction*> entries = dialog->findChild<QPushButton*>(QStringLiteral("ParameterFile"))->menu()->actions();
    for (QAction* const entry : entries) {
        if (!entry->icon().isNull()) {
            entry->trigger();
            break;
        }
    }
    dialog->findChild<QComboBox*>(QStringLiteral("ReceiverCount"))->setCurrentText(view.configuration);
    if (view.step > 0) {
        click(dialog, "NextButton");
        if (view.orientation)
            dialog->findChild<QCheckBox*>()->click();
        if (auto* const topology = dialog->findChild<QToolButton*>(
                view.orientation ? QStringLiteral("left-down-direction") : QStringLiteral("right-dwon"));
            topology->isVisible())
            topology->click();
    }
    if (view.step > 1) {
        click(dialog, "NextButton");
        dialog->findChild<QLineEdit*>(QStringLiteral("MultiRcvCabinet"))
            ->setText(QStringLiteral("Cabinet-") + QString(view.configuration).remove(QLatin1Char(' ')));
    }
    return stage.shoot();
}

std::function<bool(TourStage&)> wizard(const WizardView& view)
{
    return [view](TourStage& stage) {
        stage.area()->setCurrentTab(TypeLibraryTab);
        auto* const open = stage.area()->widget()->findChild<QToolButton*>(QStringLiteral("MultiRcvCabinet"));
        return stage.inDialog([open] { open->click(); },
                              [&](QWidget* dialog) { return showWizard(stage, dialog, view); });
    };
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
        {"wizard-2x1-receivers", wizard({QStringLiteral("2 x 1"), false, 0})},
        {"wizard-2x1-topology", wizard({QStringLiteral("2 x 1"), false, 1})},
        {"wizard-2x1-label", wizard({QStringLiteral("2 x 1"), false, 2})},
        {"wizard-2x2-receivers", wizard({QStringLiteral("2 x 2"), false, 0})},
        {"wizard-2x2-topology", wizard({QStringLiteral("2 x 2"), false, 1})},
        {"wizard-2x2-label", wizard({QStringLiteral("2 x 2"), false, 2})},
        {"wizard-2x2-orientation", wizard({QStringLiteral("2 x 2"), true, 1})},
        {"wizard-1x4-receivers", wizard({QStringLiteral("1 x 4"), false, 0})},
        {"wizard-1x4-topology", wizard({QStringLiteral("1 x 4"), false, 1})},
        {"wizard-1x4-label", wizard({QStringLiteral("1 x 4"), false, 2})},
    };
}
