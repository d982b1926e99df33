#include "preferences/CPreferencesSettings.h"
#include "tests/shortcut/LetSlidesEnd.h"
#include "tests/shortcut/PanelRows.h"
#include "tests/support/AreaFixture.h"
#include "tests/support/UpperCase.h"

#include <QApplication>
#include <QPushButton>
#include <QToolButton>

// What the settings area passes on to the shortcut panel, and the host is told of it.
class tst_PanelForwarding : public AreaFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void settingsReachThePanel();
    void settingsDuringASlide();
    void lateOverlayGetsTheSettings();
    void languageReachesThePanel();
    void panelComesFromTheBottom();
    void pressedAgainNothingChanges();
    void closeDuringASlide_data();
    void closeDuringASlide();
    void closeTellsTheHostOnce();
    void closeLetsTheHostDestroyTheOverlay();
    void overlayIsDestroyedDuringTheSlide();

private:
    CShortcutPanel* panel() const { return m_host->panel(); }
    bool isMoving() const { return panel()->findChild<CTranslatingAnimation*>()->isMoving(); }
    static void pressButton();
    static ISettingInterface& interface() { return area(); }

    std::unique_ptr<HostWindow> m_host;
    FakeHandler* m_handler = nullptr;
};

namespace {

constexpr int slideMs = 250; // as long as the panel takes

const QString toldShown = QStringLiteral("notifyShortcutPanelVisible(1)");
const QString toldHidden = QStringLiteral("notifyShortcutPanelVisible(0)");

} // namespace

// "Keyboard shortcuts table...": the page's only push button.
void tst_PanelForwarding::pressButton()
{
    QTest::mouseClick(area().findChild<CPreferencesSettings*>()->findChild<QPushButton*>(), Qt::LeftButton);
}

void tst_PanelForwarding::init()
{
    AreaFixture::init();
    m_handler = new FakeHandler;
    area().setHandler(m_handler);
    m_host = std::make_unique<HostWindow>();
    m_host->overlayLayout->setContentsMargins(0, 0, 0, 0);
    area().attachShortcutPanel();
    m_host->window.show();
    area().show();
}

void tst_PanelForwarding::cleanup()
{
    area().hide();
    m_host.reset();
    area().setHandler(nullptr);
    AreaFixture::cleanup();
}

void tst_PanelForwarding::settingsReachThePanel()
{
    QCOMPARE(rowsOf(*panel(), 0).at(0), QStringLiteral("Select all cabinets: Ctrl A"));
    QCOMPARE(rowsOf(*panel(), 1).at(4), QStringLiteral("Brightness(+): Page up"));
    SSettings settings;
    settings.layoutShortcuts[0] = QKeySequence(Qt::Key_Q, Qt::ALT);
    settings.layoutShortcuts.remove(9);
    settings.softEdgeShortcuts[4] = QKeySequence(Qt::Key_W);
    settings.softEdgeShortcuts[8] = QKeySequence(Qt::Key_B);
    for (int i = 0; i < 2; ++i) {
        interface().setSettings(settings);
        QCOMPARE(rowsOf(*panel(), 0).at(0), QStringLiteral("Select all cabinets: Alt Q"));
        QCOMPARE(rowsOf(*panel(), 0).at(9), QStringLiteral("Exit add cabinet:"));
        QCOMPARE(rowsOf(*panel(), 1).at(4), QStringLiteral("Brightness(+): B"));
        QCOMPARE(rowsOf(*panel(), 1).at(5), QString::fromUtf8("Switch seam(↑): W"));
        QCOMPARE(panel()->findChildren<CShortcutLabel*>().size(), 20);
    }
    QVERIFY(m_handler->calls().isEmpty());
}

void tst_PanelForwarding::settingsDuringASlide()
{
    pressButton();
    QTRY_VERIFY(panel()->y() < 600);
    int y = panel()->y();
    for (int i = 0; i < 5; ++i) {
        interface().setSettings(SSettings()); // new rows, and a new layout
        QCoreApplication::processEvents();
        QVERIFY(panel()->y() <= y);
        QVERIFY(panel()->y() >= 355);
        y = panel()->y();
    }
    QTRY_COMPARE(m_handler->calls(), QStringList{toldShown});
    QCOMPARE(panel()->geometry(), QRect(0, 355, 900, 245));
}

void tst_PanelForwarding::lateOverlayGetsTheSettings()
{
    m_host.reset();
    SSettings settings;
    settings.layoutShortcuts[2] = QKeySequence(Qt::Key_Insert, Qt::SHIFT);
    interface().setSettings(settings);
    m_host = std::make_unique<HostWindow>();
    area().attachShortcutPanel();
    QCOMPARE(rowsOf(*panel(), 0).at(2), QStringLiteral("Paste: Shift Ins"));
}

void tst_PanelForwarding::languageReachesThePanel()
{
    pressButton();
    const UpperCase language;
    QCOMPARE(rowsOf(*panel(), 0).at(0), QStringLiteral("SELECT ALL CABINETS: Ctrl A"));
    QVERIFY(isMoving());
}

void tst_PanelForwarding::panelComesFromTheBottom()
{
    // The overlay's layout has nothing else that would hold the panel down.
    pressButton();
    QCOMPARE(panel()->geometry(), QRect(0, 600, 900, 245));
    QTRY_COMPARE(m_handler->calls(), QStringList{toldShown});
    QCOMPARE(panel()->geometry(), QRect(0, 355, 900, 245));
}

void tst_PanelForwarding::pressedAgainNothingChanges()
{
    pressButton();
    QTRY_VERIFY(panel()->y() < 600);
    const int y = panel()->y();
    pressButton(); // on its way in
    QVERIFY(panel()->y() <= y);
    QTRY_COMPARE(m_handler->calls(), QStringList{toldShown});
    pressButton(); // is in
    QVERIFY(!isMoving());
    QCOMPARE(panel()->geometry(), QRect(0, 355, 900, 245));
    letSlidesEnd(slideMs);
    QCOMPARE(m_handler->calls(), QStringList{toldShown});
}

void tst_PanelForwarding::closeDuringASlide_data()
{
    QTest::addColumn<bool>("out");
    QTest::newRow("on the way in") << false;
    QTest::newRow("on the way out") << true;
}

void tst_PanelForwarding::closeDuringASlide()
{
    QFETCH(bool, out);
    pressButton();
    if (out) {
        QTRY_VERIFY(!isMoving());
        m_handler->forgetCalls();
        QTest::mouseClick(panel()->findChild<QToolButton*>(), Qt::LeftButton);
    }
    QVERIFY(isMoving());
    interface().closeShortcutPanel();
    QVERIFY(!isMoving());
    QVERIFY(!panel()->isVisible());
    QCOMPARE(m_handler->calls(), QStringList{toldHidden});
    letSlidesEnd(slideMs);
    QVERIFY(!panel()->isVisible());
    QCOMPARE(m_handler->calls(), QStringList{toldHidden});

    pressButton(); // it comes again as before
    QTRY_COMPARE(m_handler->calls(), QStringList({toldHidden, toldShown}));
    QCOMPARE(panel()->geometry(), QRect(0, 355, 900, 245));
}

void tst_PanelForwarding::closeTellsTheHostOnce()
{
    interface().closeShortcutPanel(); // is out
    QVERIFY(m_handler->calls().isEmpty());
    pressButton();
    QTRY_COMPARE(m_handler->calls(), QStringList{toldShown});
    interface().closeShortcutPanel();
    interface().closeShortcutPanel();
    QVERIFY(!panel()->isVisible());
    QCOMPARE(m_handler->calls(), QStringList({toldShown, toldHidden}));

    pressButton();
    QTRY_COMPARE(m_handler->calls(), QStringList({toldShown, toldHidden, toldShown}));
    m_host->window.hide(); // the panel is not visible either, and stays in
    interface().closeShortcutPanel();
    QCOMPARE(m_handler->calls(), QStringList({toldShown, toldHidden, toldShown}));
    m_host->window.show();
    QVERIFY(panel()->isVisible());
}

// The panel is hidden by the time the host is told, and not needed afterwards.
void tst_PanelForwarding::closeLetsTheHostDestroyTheOverlay()
{
    struct Destroyer : FakeHandler
    {
        HostWindow* host = nullptr;
        bool sawPanel = true;
        void notifyShortcutPanelVisible(bool visible) override
        {
            FakeHandler::notifyShortcutPanelVisible(visible);
            sawPanel = host->panel()->isVisible();
            if (!visible)
                delete host->overlay;
        }
    };
    auto* const handler = new Destroyer;
    handler->host = m_host.get();
    area().setHandler(handler);
    pressButton();
    QTRY_COMPARE(handler->calls(), QStringList{toldShown});
    QVERIFY(handler->sawPanel);
    interface().closeShortcutPanel();
    QVERIFY(!handler->sawPanel);
    interface().closeShortcutPanel();
    QCOMPARE(handler->calls(), QStringList({toldShown, toldHidden}));
}

void tst_PanelForwarding::overlayIsDestroyedDuringTheSlide()
{
    pressButton();
    QVERIFY(isMoving());
    delete m_host->overlay;
    letSlidesEnd(slideMs);
    pressButton();
    interface().closeShortcutPanel();
    interface().setSettings(SSettings());
    QVERIFY(m_handler->calls().isEmpty());

    m_host = std::make_unique<HostWindow>();
    area().attachShortcutPanel();
    m_host->window.show();
    pressButton();
    QTRY_COMPARE(m_handler->calls(), QStringList{toldShown});
}

SETTINGAREA_TEST_MAIN(tst_PanelForwarding, QApplication)
#include "tst_PanelForwarding.moc"
