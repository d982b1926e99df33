#include "host/tour/WizardSteps.h"

#include "host/tour/TourStage.h"
#include "plugin/interface/ISettingInterface.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>

namespace {

constexpr int typeLibraryTab = 1;

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
        stage.area()->setCurrentTab(typeLibraryTab);
        auto* const open = stage.area()->widget()->findChild<QToolButton*>(QStringLiteral("MultiRcvCabinet"));
        return stage.inDialog([open] { open->click(); },
                              [&](QWidget* dialog) { return showWizard(stage, dialog, view); });
    };
}

} // namespace

std::vector<TourStep> wizardSteps()
{
    return {
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
