#include "host/tour/PreferencesSteps.h"

#include "host/CHost.h"
#include "host/CMainWindow.h"
#include "host/tour/TourStage.h"
#include "plugin/interface/ISettingInterface.h"

#include <QCoreApplication>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>

namespace {

constexpr int preferencesTab = 0;
constexpr QSize smallSize(1024, 600);

enum End
{
    Top,
    Bottom,
};

QScrollArea* page(const TourStage& stage)
{
    const auto areas = stage.area()->widget()->findChildren<QScrollArea*>();
    for (QScrollArea* area : areas) {
        if (area->inherits("CPreferencesSettings"))
            return area;
    }
    return nullptr;
}

void show(TourStage& stage, bool softEdge, End end)
{
    SSettings settings;
    settings.preferences.showSoftEdgePane = softEdge;
    settings.preferences.snapSpace = 30; // as wide as it gets
    stage.area()->setSettings(settings);
    stage.area()->setCurrentTab(preferencesTab);
    QCoreApplication::sendPostedEvents(); // the page's height follows what it shows
    QScrollBar* const bar = page(stage)->verticalScrollBar();
    bar->setValue(end == Top ? bar->minimum() : bar->maximum());
}

std::function<bool(TourStage&)> shown(bool softEdge, End end)
{
    return [=](TourStage& stage) {
        show(stage, softEdge, end);
        return stage.shoot();
    };
}

std::function<bool(TourStage&)> smallWindow(End end)
{
    return [=](TourStage& stage) {
        const QSize size = stage.window()->size();
        stage.window()->resize(smallSize);
        show(stage, true, end);
        const bool shot = stage.shoot();
        stage.window()->resize(size);
        return shot;
    };
}

std::function<bool(TourStage&)> disabled(End end)
{
    return [=](TourStage& stage) {
        show(stage, false, end);
        stage.area()->setControlsEnabled(false);
        const bool shot = stage.shoot();
        stage.area()->setControlsEnabled(true);
        return shot;
    };
}

bool withoutPriority(TourStage& stage)
{
    stage.host().setPriorityConnectionHidden(true);
    show(stage, true, Top);
    const bool shot = stage.shoot();
    stage.host().setPriorityConnectionHidden(false);
    return shot;
}

QRadioButton* radioButton(const TourStage& stage, const char* text)
{
    const auto buttons = page(stage)->findChildren<QRadioButton*>();
    for (QRadioButton* button : buttons) {
        if (button->text() == QCoreApplication::translate("CPreferencesSettings", text))
            return button;
    }
    return nullptr;
}

bool saveQuestion(TourStage& stage)
{
    show(stage, false, Top);
    SMD5 md5{};
    md5.data[0] = 'f'; // of no type in the library
    Project* const project = stage.host().project();
    project->place(md5, QStringLiteral("P5-640x640"));
    const bool shot = stage.shootDialog([&] { radioButton(stage, "USB and LAN")->click(); });
    project->removeAt(project->indexOf(md5));
    return shot;
}

} // namespace

std::vector<TourStep> preferencesSteps()
{
    return {
        {"preferences-soft-edge", shown(true, Top)},       {"preferences-end", shown(true, Bottom)},
        {"preferences-small-window", smallWindow(Top)},    {"preferences-small-window-end", smallWindow(Bottom)},
        {"preferences-disabled", disabled(Top)},           {"preferences-disabled-end", disabled(Bottom)},
        {"preferences-without-priority", withoutPriority}, {"preferences-save-question", saveQuestion},
    };
}
