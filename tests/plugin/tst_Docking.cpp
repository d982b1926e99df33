#include "preferences/CPreferencesSettings.h"
#include "tests/support/AreaFixture.h"

#include <QApplication>
#include <QDockWidget>
#include <QScrollArea>
#include <QStackedWidget>

#include <memory>

class tst_Docking : public AreaFixture
{
    Q_OBJECT

private Q_SLOTS:
    void withoutMainWindowThereIsNoPanel();
    void withoutOverlayThereIsNoPanel();
    void onlyTheFirstMainWindowCounts();
    void panelLiesOnTheOverlay();
    void overlayWithAnotherLayoutKeepsIt();
    void shortcutClickSlidesThePanelIn();
    void closeShortcutPanelTellsTheHost();
    void closeShortcutPanelWhenHiddenTellsNobody();
    void panelComesWithTheNextWindow();
    void panelOutlastsTheFirstOfTwoWindows();
    void survivesItsParent_data();
    void survivesItsParent();
    void thousandDockings();
};

void tst_Docking::withoutMainWindowThereIsNoPanel()
{
    area().attachShortcutPanel();
    QVERIFY(!area().findChild<CShortcutPanel*>());
    Q_EMIT area().findChild<CPreferencesSettings*>()->notifyShortcutClicked();
    const QWidgetList widgets = QApplication::allWidgets();
    for (const QWidget* widget : widgets)
        QVERIFY(!qobject_cast<const CShortcutPanel*>(widget));
}

void tst_Docking::withoutOverlayThereIsNoPanel()
{
    QMainWindow window;
    area().attachShortcutPanel();
    window.setCentralWidget(new QWidget);
    area().attachShortcutPanel();
    QVERIFY(!window.findChild<CShortcutPanel*>());
    Q_EMIT area().findChild<CPreferencesSettings*>()->notifyShortcutClicked();
}

void tst_Docking::onlyTheFirstMainWindowCounts()
{
    // The order of the top-level widgets is Qt's; whichever window comes first decides.
    QMainWindow bare;
    HostWindow host;
    const QWidgetList windows = QApplication::topLevelWidgets();
    const bool hostIsFirst = windows.indexOf(&host.window) < windows.indexOf(&bare);
    area().attachShortcutPanel();
    QCOMPARE(host.panel() != nullptr, hostIsFirst);
}

void tst_Docking::panelLiesOnTheOverlay()
{
    HostWindow host;
    area().attachShortcutPanel();
    QVERIFY(host.panel());
    QCOMPARE(host.panel()->parentWidget(), host.overlay);
    QVERIFY(host.overlayLayout->indexOf(host.panel()) >= 0);
    QVERIFY(!host.panel()->isVisible());
    area().attachShortcutPanel();
    QCOMPARE(host.overlay->findChildren<CShortcutPanel*>().size(), 1);
}

void tst_Docking::overlayWithAnotherLayoutKeepsIt()
{
    HostWindow host;
    delete host.overlayLayout;
    auto* const grid = new QGridLayout(host.overlay);
    area().attachShortcutPanel();
    QVERIFY(host.panel());
    QCOMPARE(host.panel()->parentWidget(), host.overlay);
    QCOMPARE(grid->count(), 0);
}

void tst_Docking::shortcutClickSlidesThePanelIn()
{
    HostWindow host;
    auto* const handler = new FakeHandler;
    area().setHandler(handler);
    area().attachShortcutPanel();
    host.window.show();
    Q_EMIT area().findChild<CPreferencesSettings*>()->notifyShortcutClicked();
    QTRY_COMPARE(handler->calls(), QStringList({QStringLiteral("notifyShortcutPanelVisible(1)")}));
    QVERIFY(host.panel()->isVisible());
}

void tst_Docking::closeShortcutPanelTellsTheHost()
{
    HostWindow host;
    auto* const handler = new FakeHandler;
    area().setHandler(handler);
    area().attachShortcutPanel();
    host.window.show();
    host.panel()->show();
    area().closeShortcutPanel();
    QVERIFY(!host.panel()->isVisible());
    QCOMPARE(handler->calls(), QStringList({QStringLiteral("notifyShortcutPanelVisible(0)")}));
    area().setHandler(nullptr);
    host.panel()->show();
    area().closeShortcutPanel();
    QVERIFY(!host.panel()->isVisible());
}

void tst_Docking::closeShortcutPanelWhenHiddenTellsNobody()
{
    HostWindow host;
    auto* const handler = new FakeHandler;
    area().setHandler(handler);
    area().closeShortcutPanel(); // there is no panel
    area().attachShortcutPanel();
    host.window.show();
    area().closeShortcutPanel();
    QVERIFY(handler->calls().isEmpty());
}

void tst_Docking::panelComesWithTheNextWindow()
{
    for (int i = 0; i < 2; ++i) {
        HostWindow host;
        area().attachShortcutPanel();
        QVERIFY(host.panel());
        area().setParent(host.window.centralWidget());
    }
    QCOMPARE(area().parentWidget(), nullptr);
    area().closeShortcutPanel();
}

// The area moves to another window before the one that has the panel goes.
void tst_Docking::panelOutlastsTheFirstOfTwoWindows()
{
    auto* const handler = new FakeHandler;
    area().setHandler(handler);
    auto first = std::make_unique<HostWindow>();
    area().attachShortcutPanel();
    HostWindow second;
    area().setParent(second.window.centralWidget());
    area().attachShortcutPanel();
    QVERIFY(first->panel());
    QVERIFY(!second.panel());
    first.reset();
    second.window.show();
    Q_EMIT area().findChild<CPreferencesSettings*>()->notifyShortcutClicked();
    QTRY_COMPARE(handler->calls(), QStringList({QStringLiteral("notifyShortcutPanelVisible(1)")}));
    QVERIFY(second.panel()->isVisible());
}

void tst_Docking::survivesItsParent_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("parent") << 0;
    QTest::newRow("grandparent") << 1;
    QTest::newRow("central widget of a main window") << 2;
    QTest::newRow("central widget replaced") << 3;
    QTest::newRow("dock widget") << 4;
    QTest::newRow("scroll area") << 5;
    QTest::newRow("stacked widget") << 6;
    QTest::newRow("deleted later") << 7;
    QTest::newRow("moved by a layout") << 8;
}

void tst_Docking::survivesItsParent()
{
    QFETCH(int, way);
    switch (way) {
    case 0: {
        QWidget parent;
        area().setParent(&parent);
        parent.show();
        break;
    }
    case 1: {
        QWidget grandparent;
        area().setParent(new QWidget(new QWidget(&grandparent)));
        break;
    }
    case 2: {
        QMainWindow window;
        window.setCentralWidget(&area());
        window.show();
        break;
    }
    case 3: {
        QMainWindow window;
        window.setCentralWidget(&area());
        window.setCentralWidget(new QWidget);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        break;
    }
    case 4: {
        QMainWindow window;
        auto* const dock = new QDockWidget(&window);
        dock->setWidget(&area());
        window.addDockWidget(Qt::LeftDockWidgetArea, dock);
        break;
    }
    case 5: {
        QScrollArea scrollArea;
        scrollArea.setWidget(&area());
        break;
    }
    case 6: {
        QStackedWidget stack;
        stack.addWidget(&area());
        break;
    }
    case 7: {
        auto* const parent = new QWidget;
        area().setParent(parent);
        parent->deleteLater();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        break;
    }
    default: {
        QWidget first;
        area().setParent(&first);
        QWidget second;
        (new QVBoxLayout(&second))->addWidget(&area());
        break;
    }
    }
    QCOMPARE(area().parentWidget(), nullptr);
    QVERIFY(!area().isVisible());
    QCOMPARE(tabBar()->count(), 3);
    area().setCurrentTab(1);
    QWidget next;
    area().setParent(&next);
    next.show();
    area().show();
    QVERIFY(area().isVisible());
}

void tst_Docking::thousandDockings()
{
    for (int i = 0; i < 1'000; ++i) {
        HostWindow host;
        area().attachShortcutPanel();
        area().setParent(host.window.centralWidget());
        if (i % 3 == 0) {
            host.window.show();
            area().show();
            host.panel()->moveIn();
            QCoreApplication::processEvents();
        }
    }
    QCOMPARE(area().parentWidget(), nullptr);
    QCOMPARE(tabBar()->count(), 3);
}

SETTINGAREA_TEST_MAIN(tst_Docking, QApplication)
#include "tst_Docking.moc"
