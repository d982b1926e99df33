#include "plugin/CSettingArea.h"
#include "shortcut/CShortcutPanel.h"
#include "tests/shortcut/LetSlidesEnd.h"
#include "tests/support/FakeHandler.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QPushButton>
#include <QTabBar>
#include <QToolButton>
#include <QVBoxLayout>

// The panel on an overlay, from the first slide in to the last slide out.
class tst_PanelSlides : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void slidesInAndOutAtTheBottom();
    void escapeClosesFromEveryControl();
    void otherKeysAreTheHosts();
    void closeButtonByTheKeyboard();
    void movingInTwiceTellsTheHostOnce();
    void closingOnTheWayInTurnsBack();
    void withoutHandler();
    void laterHandlerIsTold();
    void overlayIsResized();
    void overlayIsDestroyed_data();
    void overlayIsDestroyed();
    void hostDestroysTheOverlayWhenTold();
    void keyboardComesAndGoes();
    void keyboardStaysWithThePage();

private:
    QToolButton* closeButton() const { return m_panel->findChild<QToolButton*>(); }
    QTabBar* tabBar() const { return m_panel->findChild<QTabBar*>(); }
    bool isMoving() const { return m_panel->findChild<CTranslatingAnimation*>()->isMoving(); }
    void slideIn();

    std::unique_ptr<QWidget> m_window; // 900 x 600
    QPushButton* m_page = nullptr;
    QPointer<QWidget> m_overlay;
    QPointer<CShortcutPanel> m_panel;
    FakeHandler* m_handler = nullptr;
};

namespace {

constexpr int slideMs = 80;

const QString toldShown = QStringLiteral("notifyShortcutPanelVisible(1)");
const QString toldHidden = QStringLiteral("notifyShortcutPanelVisible(0)");

} // namespace

void tst_PanelSlides::init()
{
    TestObject::init();
    m_handler = new FakeHandler;
    CSettingArea::instance().setHandler(m_handler);
    m_window = std::make_unique<QWidget>();
    m_window->resize(900, 600);
    new QPushButton(m_window.get()); // which Qt would give the keyboard to
    m_page = new QPushButton(m_window.get());
    m_overlay = new QWidget(m_window.get());
    m_overlay->resize(900, 600);
    auto* const layout = new QVBoxLayout(m_overlay);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addStretch();
    m_panel = new CShortcutPanel(m_overlay);
    layout->addWidget(m_panel);
    m_panel->findChild<CTranslatingAnimation*>()->setDuration(slideMs);
    m_window->show();
}

void tst_PanelSlides::cleanup()
{
    m_window.reset();
    CSettingArea::instance().setHandler(nullptr);
    TestObject::cleanup();
}

void tst_PanelSlides::slideIn()
{
    m_panel->moveIn();
    QTRY_VERIFY(!isMoving());
    m_handler->forgetCalls();
}

void tst_PanelSlides::slidesInAndOutAtTheBottom()
{
    QVERIFY(!m_panel->isVisible());
    m_panel->moveIn();
    QVERIFY(m_panel->isVisible());
    QCOMPARE(m_panel->geometry(), QRect(0, 600, 900, 245));
    QVERIFY(m_handler->calls().isEmpty()); // until it has come
    QTRY_COMPARE(m_handler->calls(), QStringList{toldShown});
    QCOMPARE(m_panel->geometry(), QRect(0, 355, 900, 245));

    m_handler->forgetCalls();
    QTest::mouseClick(closeButton(), Qt::LeftButton);
    QVERIFY(m_panel->isVisible());
    QVERIFY(isMoving());
    QVERIFY(m_handler->calls().isEmpty());
    QTRY_VERIFY(!m_panel->isVisible());
    QCOMPARE(m_handler->calls(), QStringList{toldHidden});
}

void tst_PanelSlides::escapeClosesFromEveryControl()
{
    for (QWidget* control : {static_cast<QWidget*>(tabBar()), static_cast<QWidget*>(closeButton()),
                             static_cast<QWidget*>(m_panel.data())}) {
        slideIn();
        QTest::keyClick(control, Qt::Key_Escape);
        QTRY_COMPARE(m_handler->calls(), QStringList{toldHidden});
        QVERIFY(!m_panel->isVisible());
    }
}

void tst_PanelSlides::otherKeysAreTheHosts()
{
    slideIn();
    for (const auto& [key, modifier] :
         {std::pair(Qt::Key_A, Qt::NoModifier), std::pair(Qt::Key_Escape, Qt::ShiftModifier)}) {
        QKeyEvent press(QEvent::KeyPress, key, modifier);
        QCoreApplication::sendEvent(m_panel, &press);
        QVERIFY(!press.isAccepted());
        QVERIFY(!isMoving());
    }
    QVERIFY(m_panel->isVisible());
}

void tst_PanelSlides::closeButtonByTheKeyboard()
{
    slideIn();
    QTest::keyClick(closeButton(), Qt::Key_Space);
    QTRY_COMPARE(m_handler->calls(), QStringList{toldHidden});
}

void tst_PanelSlides::movingInTwiceTellsTheHostOnce()
{
    m_panel->moveIn();
    const int y = m_panel->y();
    QTRY_VERIFY(m_panel->y() < y);
    const int onItsWay = m_panel->y();
    m_panel->moveIn();
    QVERIFY(m_panel->y() <= onItsWay);
    QTRY_COMPARE(m_handler->calls(), QStringList{toldShown});
    m_panel->moveIn();
    QVERIFY(!isMoving());
    QCOMPARE(m_panel->y(), 355);
    letSlidesEnd(slideMs);
    QCOMPARE(m_handler->calls(), QStringList{toldShown});
}

void tst_PanelSlides::closingOnTheWayInTurnsBack()
{
    m_panel->moveIn();
    QTest::mouseClick(closeButton(), Qt::LeftButton);
    QTRY_COMPARE(m_handler->calls(), QStringList{toldHidden});
    QVERIFY(!m_panel->isVisible());

    slideIn();
    QTest::mouseClick(closeButton(), Qt::LeftButton);
    QVERIFY(isMoving());
    m_panel->moveIn();
    QTRY_COMPARE(m_handler->calls(), QStringList{toldShown});
    QCOMPARE(m_panel->geometry(), QRect(0, 355, 900, 245));
}

void tst_PanelSlides::withoutHandler()
{
    CSettingArea::instance().setHandler(nullptr);
    m_panel->moveIn();
    QTRY_VERIFY(!isMoving());
    QVERIFY(m_panel->isVisible());
    QTest::mouseClick(closeButton(), Qt::LeftButton);
    QTRY_VERIFY(!m_panel->isVisible());
}

void tst_PanelSlides::laterHandlerIsTold()
{
    m_panel->moveIn();
    auto* const later = new FakeHandler;
    CSettingArea::instance().setHandler(later);
    QTRY_COMPARE(later->calls(), QStringList{toldShown});
    CSettingArea::instance().setHandler(m_handler = new FakeHandler);
    QTest::mouseClick(closeButton(), Qt::LeftButton);
    QTRY_COMPARE(m_handler->calls(), QStringList{toldHidden});
}

void tst_PanelSlides::overlayIsResized()
{
    slideIn();
    m_overlay->resize(1300, 700);
    QTRY_COMPARE(m_panel->geometry(), QRect(0, 455, 1300, 245));
    m_overlay->resize(750, 400);
    QTRY_COMPARE(m_panel->geometry(), QRect(0, 155, 750, 245));
    m_panel->findChild<CTranslatingAnimation*>()->moveOut();
    m_overlay->resize(1000, 500);
    QTRY_COMPARE(m_handler->calls(), QStringList{toldHidden});
    m_handler->forgetCalls();
    m_panel->moveIn();
    QCOMPARE(m_panel->y(), 500);
    QTRY_COMPARE(m_handler->calls(), QStringList{toldShown});
    QCOMPARE(m_panel->geometry(), QRect(0, 255, 1000, 245));
}

void tst_PanelSlides::overlayIsDestroyed_data()
{
    QTest::addColumn<int>("slide");
    QTest::newRow("on the way in") << 0;
    QTest::newRow("while it is in") << 1;
    QTest::newRow("on the way out") << 2;
}

void tst_PanelSlides::overlayIsDestroyed()
{
    QFETCH(int, slide);
    m_panel->moveIn();
    if (slide > 0) {
        QTRY_VERIFY(!isMoving());
    }
    if (slide > 1)
        QTest::mouseClick(closeButton(), Qt::LeftButton);
    m_handler->forgetCalls();
    delete m_overlay;
    QVERIFY(!m_panel);
    letSlidesEnd(slideMs);
    QVERIFY(m_handler->calls().isEmpty());
}

void tst_PanelSlides::hostDestroysTheOverlayWhenTold()
{
    // The handler's last reference may go as well, within its own call.
    struct Destroyer : FakeHandler
    {
        QPointer<QWidget> overlay;
        void notifyShortcutPanelVisible(bool /*visible*/) override
        {
            delete overlay;
            CSettingArea::instance().setHandler(nullptr);
        }
    };
    auto* const handler = new Destroyer;
    handler->overlay = m_overlay;
    CSettingArea::instance().setHandler(handler);
    m_panel->moveIn();
    QTRY_VERIFY(!m_overlay);
    QVERIFY(!CSettingArea::instance().getHandler());
}

void tst_PanelSlides::keyboardComesAndGoes()
{
    m_page->setFocus();
    m_panel->moveIn();
    QCOMPARE(m_window->focusWidget(), tabBar());
    QTRY_VERIFY(!isMoving());
    QTest::keyClick(tabBar(), Qt::Key_Escape);
    QTRY_VERIFY(!m_panel->isVisible());
    QCOMPARE(m_window->focusWidget(), m_page);

    slideIn();
    m_panel->hide(); // at once
    QCOMPARE(m_window->focusWidget(), m_page);

    // The user has gone back to the page meanwhile, to another control.
    auto* const other = new QPushButton(m_window.get());
    other->show();
    slideIn();
    other->setFocus();
    m_panel->hide();
    QCOMPARE(m_window->focusWidget(), other);

    // What had the keyboard is gone.
    slideIn();
    delete other;
    tabBar()->setFocus();
    m_panel->hide();
    QVERIFY(!m_panel->isVisible());
}

void tst_PanelSlides::keyboardStaysWithThePage()
{
    slideIn();
    m_page->setFocus();
    m_panel->moveIn(); // is in: nothing changes
    QCOMPARE(m_window->focusWidget(), m_page);
    m_panel->hide();
    QCOMPARE(m_window->focusWidget(), m_page);

    slideIn();
    m_window->hide(); // the window is, not the panel
    m_window->show();
    QVERIFY(m_panel->isVisible());
    QCOMPARE(m_window->focusWidget(), tabBar());
    m_panel->hide();
    QCOMPARE(m_window->focusWidget(), m_page);
}

SETTINGAREA_TEST_MAIN(tst_PanelSlides, QApplication)
#include "tst_PanelSlides.moc"
