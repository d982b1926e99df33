#include "host/tour/HealthSteps.h"

#include "host/CMainWindow.h"
#include "host/tour/TourStage.h"
#include "plugin/interface/ISettingInterface.h"

#include <widgetry/CMessageBox.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTableWidget>

namespace {

constexpr int healthSettingsTab = 2;

// With everything watched, or nothing.
SSettings settingsWith(bool on)
{
    SSettings settings;
    SMonitorSettings& m = settings.monitoring;
    for (bool* const flag :
         {&m.bVideoInput, &m.bFreeze, &m.bBlackout, &m.bZeroBrightness, &m.bCableError, &m.bTemperature, &m.bHumidity,
          &m.bFan, &m.bPsu1, &m.bPsu2, &m.bPsu3, &m.bPsu4, &m.bVoltage1, &m.bVoltage2, &m.bVoltage3, &m.bRcvVoltage})
        *flag = on;
    m.nRefreshInterval = 5445;
    m.nTemperature = 100;
    m.nHumidity = 100;
    m.dVoltage2Max = 20;
    SEmailSettings& e = settings.email;
    e.bEmailNotification = on;
    e.bRecoveryNotice = on;
    e.bSsl = on;
    if (on) {
        e.strSenderAddress = QStringLiteral("video-wall@stage.com");
        e.strPassword = QStringLiteral("secret42");
        e.strSmtpServer = QStringLiteral("smtp.stage.com");
        const QString name = QString::fromUtf8("张伟");
        e.lstRecipients = {
            {QStringLiteral("Ann"), QStringLiteral("ann@stage.com")},
            {name, QStringLiteral("zhang.wei@screenteam.com.cn")},
            {QStringLiteral("<b>Night shift</b>"), QStringLiteral("night_shift-control.room@venue.com.cn")},
            {{}, QStringLiteral("on-call@venue.com")},
            {QStringLiteral("Bob"), QStringLiteral("bob@stage.com")},
            {QStringLiteral("Carla"), QStringLiteral("carla@stage.com")},
            {QStringLiteral("Dan"), QStringLiteral("dan@stage.com")}};
    }
    return settings;
}

QTableWidget* table(const TourStage& stage)
{
    return stage.area()->widget()->findChild<QTableWidget*>(QStringLiteral("RecevierMail"));
}

// The page that the table is on.
QScrollArea* scrollArea(const TourStage& stage)
{
    for (QWidget* widget = table(stage)->parentWidget(); widget; widget = widget->parentWidget()) {
        if (auto* const area = qobject_cast<QScrollArea*>(widget))
            return area;
    }
    return nullptr;
}

enum End
{
    Top,
    Bottom,
};

void show(TourStage& stage, bool on, End end)
{
    stage.area()->setSettings(settingsWith(on));
    stage.area()->setCurrentTab(healthSettingsTab);
    QCoreApplication::sendPostedEvents(); // the page's height follows what it shows
    QScrollBar* const bar = scrollArea(stage)->verticalScrollBar();
    bar->setValue(end == Top ? bar->minimum() : bar->maximum());
}

std::function<bool(TourStage&)> page(bool on, End end)
{
    return [=](TourStage& stage) {
        show(stage, on, end);
        return stage.shoot();
    };
}

std::function<bool(TourStage&)> smallWindow(End end)
{
    return [=](TourStage& stage) {
        const QSize size = stage.window()->size();
        stage.window()->resize(1024, 600);
        show(stage, true, end);
        const bool shot = stage.shoot();
        stage.window()->resize(size);
        return shot;
    };
}

// The edits of the sender's address and of the port, in that order.
QList<QLineEdit*> checkedEdits(const TourStage& stage)
{
    QList<QLineEdit*> edits;
    const auto all = scrollArea(stage)->findChildren<QLineEdit*>();
    for (QLineEdit* const edit : all) {
        if (edit->inherits("CWarningTipLineEdit"))
            edits.append(edit);
    }
    return edits;
}

bool wrongAccount(TourStage& stage)
{
    show(stage, true, Bottom);
    const QString wrong[] = {QStringLiteral("video-wall@stage"), QStringLiteral("0465")};
    const QList<QLineEdit*> edits = checkedEdits(stage);
    for (int i = 0; i < edits.size(); ++i) {
        edits[i]->setText(wrong[i]);
        Q_EMIT edits[i]->editingFinished();
    }
    return stage.shoot();
}

// The dialog for a new recipient, with an address that may be one that is still being entered.
std::function<bool(TourStage&)> newRecipient(const char* address, bool isFinished)
{
    return [=](TourStage& stage) {
        show(stage, true, Bottom);
        auto* const add = scrollArea(stage)->findChild<QPushButton*>(QStringLiteral("AddEmail"));
        return stage.inDialog([add] { add->click(); },
                              [&](QWidget* dialog) {
                                  const auto edits = dialog->findChildren<QLineEdit*>();
                                  edits.at(0)->setText(QStringLiteral("Eve"));
                                  edits.at(1)->setText(QLatin1String(address));
                                  if (isFinished)
                                      Q_EMIT edits.at(1)->editingFinished();
                                  return stage.shoot();
                              });
    };
}

// What a key opens for the second recipient.
std::function<bool(TourStage&)> recipientDialog(Qt::Key key)
{
    return [key](TourStage& stage) {
        show(stage, true, Bottom);
        table(stage)->selectRow(1);
        auto* const add = scrollArea(stage)->findChild<QPushButton*>(QStringLiteral("AddEmail"));
        return stage.shootDialog([=] {
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
            QCoreApplication::sendEvent(add, &press);
        });
    };
}

QString mailText(const char* text)
{
    return QCoreApplication::translate("CEmailWidget", text);
}

bool testMailSent(TourStage& stage)
{
    return stage.shootDialog([&] {
        CMessageBox::information(stage.window(), mailText("The email was sent successful."), QStringLiteral("Orvel"));
    });
}

bool testMailPartlySent(TourStage& stage)
{
    return stage.shootDialog([&] {
        stage.window()->warn(mailText("Receiving address:") + QStringLiteral("ann@stage.com bob@stage.com ") +
                             mailText(", failed to send the email."));
    });
}

bool testMailFailed(TourStage& stage)
{
    return stage.shootDialog([&] { stage.window()->warn(mailText("Failed to send the email.")); });
}

} // namespace

std::vector<TourStep> healthSteps()
{
    return {
        {"health-settings", page(true, Top)},
        {"health-settings-email", page(true, Bottom)},
        {"health-settings-off", page(false, Top)},
        {"health-settings-off-email", page(false, Bottom)},
        {"health-settings-small-window", smallWindow(Top)},
        {"health-settings-small-window-email", smallWindow(Bottom)},
        {"health-settings-wrong-account", wrongAccount},
        {"recipient-new", newRecipient("", false)},
        {"recipient-valid", newRecipient("eve@stage.com", false)},
        {"recipient-duplicate", newRecipient("ann@stage.com", false)},
        {"recipient-wrong-format", newRecipient("eve@stage", true)},
        {"recipient-modify", recipientDialog(Qt::Key_F2)},
        {"recipient-delete-question", recipientDialog(Qt::Key_Delete)},
        {"test-mail-sent", testMailSent},
        {"test-mail-partly-sent", testMailPartlySent},
        {"test-mail-failed", testMailFailed},
    };
}
