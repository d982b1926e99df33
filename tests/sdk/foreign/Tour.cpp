#include "Tour.h"

#include "Check.h"
#include "ModalAnswers.h"
#include "Records.h"

#include <utilbase/Utils.h>

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QDeadlineTimer>
#include <QDir>
#include <QEasingCurve>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

#include <atomic>
#include <cstring>
#include <functional>
#include <thread>

namespace {

constexpr int patience = 20 * 1000; // milliseconds

// Runs the event loop until the condition holds.
bool waitFor(const std::function<bool()>& condition)
{
    const QDeadlineTimer deadline(patience);
    while (!condition() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 10);
    return condition();
}

void write(const QString& path, const char* content)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) < 0)
        qFatal("cannot write %s", qPrintable(path));
}

template<typename Button>
Button* buttonWithText(const QWidget* area, const char* text)
{
    const auto buttons = area->findChildren<Button*>();
    for (Button* const button : buttons) {
        if (button->text() == QLatin1String(text))
            return button;
    }
    qFatal("there is no button %s", text);
}

} // namespace

#define CALL(name) counted(#name, &ISettingInterface::name)

Tour::Tour(Calls& calls, QWidget* overlay, IAbstractControlInterface* control)
    : m_calls(calls),
      m_pOverlay(overlay),
      m_pArea(dynamic_cast<ISettingInterface*>(control)), // not static: finds the other compiler's type information
      m_pHandler(new RecordingHandler(calls))
{
    if (!m_pArea)
        qFatal("what SettingArea_Init gave is no ISettingInterface");
}

QAbstractItemView* Tour::tree() const
{
    return m_pArea->widget()->findChild<QAbstractItemView*>(QStringLiteral("TypeLibrary"));
}

void Tour::click(const char* toolButton) const
{
    m_pArea->widget()->findChild<QToolButton*>(QLatin1String(toolButton))->click();
}

void Tour::control()
{
    CHECK(CALL(initialize)());
    CHECK(CALL(isValid)());
    CHECK(CALL(widget)()->objectName() == QLatin1String("SettingArea"));
    CHECK(!CALL(getHandler)());
    CALL(setHandler)(static_cast<IAbstractInterfaceHandler*>(m_pHandler));
    CHECK(CALL(getHandler)().get() == m_pHandler);
}

void Tour::settings()
{
    const SSettings pushed = distinctSettings();
    CALL(setSettings)(pushed);
    SSettings* const record = CALL(getSettings)();
    checkSettings(*record, pushed);
    record->monitoring.dVoltage4Min = 2.75; // the host's own entry
    CHECK(CALL(getSettings)() == record);
    CHECK(record->monitoring.dVoltage4Min == 2.75);
}

void Tour::library()
{
    write(m_folder + QStringLiteral("/Card.rcvp"), "card");
    write(m_folder + QStringLiteral("/Group/Pair.rcvbp"), "pair");
    CHECK(!CALL(isTypeLibraryReady)());
    std::atomic_int result{-1};
    std::thread worker([&] { result = CALL(setTypeLibraryPath)(m_folder); });
    CHECK(waitFor([&] { return result >= 0; }));
    worker.join();
    CHECK(result == 1);
    CHECK(CALL(isTypeLibraryReady)());
    checkTree(CALL(getTypeLibrary)(), m_folder);
    checkTree(CALL(getSettings)()->typeLibraryTree, m_folder);
}

void Tour::preferences()
{
    CALL(setCurrentTab)(0);
    QWidget* const page = m_pArea->widget();
    auto* const chinese = buttonWithText<QRadioButton>(page, "Chinese");
    auto* const priority = buttonWithText<QRadioButton>(page, "USB and LAN");
    QLocale::setDefault(QLocale(QLocale::Chinese, QLocale::China));
    CALL(syncLanguageWithLocale)();
    CHECK(chinese->isChecked());
    CHECK(m_calls.count("setLanguage") == 0);
    buttonWithText<QRadioButton>(page, "English")->click();
    CHECK(m_pHandler->locale == QLocale(QLocale::English, QLocale::UnitedStates));

    CALL(setControlsEnabled)(false);
    CHECK(!priority->isEnabled());
    CALL(setControlsEnabled)(true);
    const QString project = m_files.filePath(QStringLiteral("Chosen.prj"));
    const ModalAnswers answers({project});
    priority->click();
    CHECK(m_pHandler->savedPath == project);
    CHECK(m_pHandler->priority == 1);
    CHECK(priority->isVisible());
    CALL(refreshPreferences)();
    CHECK(!priority->isVisible());
}

void Tour::shortcuts()
{
    buttonWithText<QPushButton>(m_pArea->widget(), "Keyboard shortcuts table...")->click();
    CHECK(waitFor([this] { return m_pHandler->panelVisible; }));
    const auto* const panel = m_pOverlay->findChild<QWidget*>(QStringLiteral("ShortcutPanel"));
    CHECK(panel && panel->isVisible());
    CALL(closeShortcutPanel)();
    CHECK(!m_pHandler->panelVisible);
    CHECK(panel && !panel->isVisible());
}

void Tour::mail()
{
    CALL(setCurrentTab)(2);
    const ModalAnswers answers;
    m_pArea->widget()->findChild<QPushButton*>(QStringLiteral("SendTestEmail"))->click();
    checkEmail(m_pHandler->email, distinctSettings().email);
}

void Tour::importFolder()
{
    CALL(setCurrentTab)(1);
    write(m_files.filePath(QStringLiteral("North/New.rcvp")), "new");
    const ModalAnswers answers({m_files.filePath(QStringLiteral("North"))});
    click("ImportFolder");
    CHECK(QFile::exists(m_folder + QStringLiteral("/North/New.rcvp")));
    CHECK(m_pHandler->progressDuration == 300);
    CHECK(m_pHandler->progressCurve == QEasingCurve::InQuart);
    CHECK(m_pHandler->progressCameBack);
}

void Tour::makeType()
{
    tree()->setCurrentIndex({});
    const ModalAnswers answers;
    click("MultiRcvCabinet");
    const SHwRcvInCabinetInfo& written = m_pHandler->written;
    CHECK(m_pHandler->writtenPath == m_folder + QStringLiteral("/Made.rcvbp"));
    CHECK(written.name == QLatin1String("Card"));
    CHECK(std::strcmp(written.md5.data, Utils::getFileMD5(m_folder + QStringLiteral("/Card.rcvp")).data) == 0);
    CHECK(written.columns == 2 && written.rows == 1);
    CHECK((written.wiringOrder == std::array<std::uint8_t, 10>{0, 1}));
}

// The host says that the type is used, so it stays.
void Tour::deleteUsedType()
{
    QAbstractItemView* const view = tree();
    QPersistentModelIndex card;
    CHECK(waitFor([&] {
        const QModelIndex root = view->rootIndex();
        for (int row = 0; row < view->model()->rowCount(root); ++row) {
            const QModelIndex index = view->model()->index(row, 0, root);
            if (index.data().toString().startsWith(QLatin1String("Card")))
                card = index;
        }
        return card.isValid() && !view->visualRect(card).isEmpty();
    }));
    view->setCurrentIndex(card);
    const QPoint place = view->visualRect(card).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, view->viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(view->viewport(), &event);
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    CHECK(menu);
    if (!menu)
        return;
    const ModalAnswers answers;
    const QList<QAction*> entries = menu->actions();
    for (QAction* const entry : entries) {
        if (entry->text() == QLatin1String("Delete"))
            entry->trigger();
    }
    menu->close();
    CHECK(waitFor([this] { return m_calls.count("isTypeUsedInLayout") > 0; }));
    const QString file = m_folder + QStringLiteral("/Card.rcvp");
    CHECK(std::strcmp(m_pHandler->usedType.data, Utils::getFileMD5(file).data) == 0);
    CHECK(waitFor([] { return !QApplication::activeModalWidget(); }));
    CHECK(QFile::exists(file));
}

// The settings area deletes this compiler's object, here by way of the last of two owners.
void Tour::replaceHandler()
{
    std::shared_ptr<IAbstractInterfaceHandler> kept = CALL(getHandler)();
    CALL(setHandler)(static_cast<IAbstractInterfaceHandler*>(new RecordingHandler(m_calls)));
    CHECK(m_calls.count("~RecordingHandler") == 0);
    kept.reset();
    CHECK(m_calls.count("~RecordingHandler") == 1);
    CALL(setHandler)(static_cast<IAbstractInterfaceHandler*>(nullptr));
    CHECK(m_calls.count("~RecordingHandler") == 2);
}
