#include "host/tour/ShortcutSteps.h"

#include "host/CMainWindow.h"
#include "host/tour/TourStage.h"
#include "plugin/interface/ISettingInterface.h"

#include <QPushButton>
#include <QTabBar>

namespace {

constexpr int preferencesTab = 0;
constexpr QSize smallWindow(1024, 600);
constexpr QSize wideWindow(1920, 1080);

enum PanelTab
{
    LayoutTab,
    SoftEdgeTab,
};

// Presses the button on the Preferences page, and waits until the panel has come.
bool openPanel(TourStage& stage)
{
    auto* const overlay = stage.window()->findChild<QWidget*>(QStringLiteral("OverLay"));
    auto* const panel = overlay->findChild<QWidget*>(QStringLiteral("ShortcutPanel"));
    const auto children = stage.area()->widget()->findChildren<QWidget*>();
    for (QWidget* child : children) {
        if (child->inherits("CPreferencesSettings"))
            child->findChild<QPushButton*>()->click();
    }
    return stage.waitFor([=] { return panel->isVisible() && panel->geometry().bottom() == overlay->rect().bottom(); },
                         QStringLiteral("the shortcut panel"));
}

std::function<bool(TourStage&)> panel(PanelTab tab, QSize windowSize = {})
{
    return [=](TourStage& stage) {
        const QSize size = stage.window()->size();
        if (windowSize.isValid())
            stage.window()->resize(windowSize);
        stage.area()->setCurrentTab(preferencesTab);
        auto* const tabBar = stage.window()->findChild<QTabBar*>(QStringLiteral("ShortCut"));
        tabBar->setCurrentIndex(tab);
        const bool shot = openPanel(stage) && stage.shoot();
        stage.area()->closeShortcutPanel();
        stage.window()->resize(size);
        return shot;
    };
}

} // namespace

std::vector<TourStep> shortcutSteps()
{
    return {
        {"shortcuts-layout", panel(LayoutTab)},
        {"shortcuts-soft-edge", panel(SoftEdgeTab)},
        {"shortcuts-small-window", panel(LayoutTab, smallWindow)},
        {"shortcuts-soft-edge-small-window", panel(SoftEdgeTab, smallWindow)},
        {"shortcuts-wide-window", panel(SoftEdgeTab, wideWindow)},
    };
}
