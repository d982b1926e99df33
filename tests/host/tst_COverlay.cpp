#include "host/COverlay.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QPushButton>
#include <QSignalSpy>
#include <QVBoxLayout>

class tst_COverlay : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void itIsWhatThePlugInLooksFor();
    void itCoversItsParent();
    void withoutAPanelEverythingBeneathTakesTheMouse();
    void besideAPanelThePageTakesTheMouse();
    void theMouseAreaFollowsAMovingPanel();
    void aPanelThatIsDestroyedIsForgotten();

private:
    QWidget* at(int x, int y) const { return m_pGround->childAt(x, y); }
    void addPanel();

    std::unique_ptr<QWidget> m_pGround; // 400 x 300, the page covers it
    QPushButton* m_pPage = nullptr;
    COverlay* m_pOverlay = nullptr;
    QPushButton* m_pPanel = nullptr; // at the bottom edge, 100 high
};

void tst_COverlay::init()
{
    TestObject::init();
    m_pGround = std::make_unique<QWidget>();
    m_pGround->resize(400, 300);
    m_pOverlay = new COverlay(m_pGround.get());
    m_pPage = new QPushButton(m_pGround.get());
    m_pPage->setGeometry(m_pGround->rect());
    m_pPage->lower();
    m_pGround->show();
}

void tst_COverlay::addPanel()
{
    m_pPanel = new QPushButton(m_pOverlay);
    m_pPanel->setFixedHeight(100);
    m_pPanel->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_pPanel->hide();
    m_pOverlay->layout()->addWidget(m_pPanel);
}

void tst_COverlay::itIsWhatThePlugInLooksFor()
{
    QCOMPARE(m_pOverlay->objectName(), QStringLiteral("OverLay"));
    QVERIFY(qobject_cast<QVBoxLayout*>(m_pOverlay->layout()));
}

void tst_COverlay::itCoversItsParent()
{
    QCOMPARE(m_pOverlay->geometry(), QRect(0, 0, 400, 300));
    m_pGround->resize(500, 350);
    QCOMPARE(m_pOverlay->geometry(), QRect(0, 0, 500, 350));
}

void tst_COverlay::withoutAPanelEverythingBeneathTakesTheMouse()
{
    QCOMPARE(at(200, 20), m_pPage);
    addPanel(); // still out
    QCOMPARE(at(200, 250), m_pPage);
    QSignalSpy clicked(m_pPage, &QPushButton::clicked);
    QTest::mouseClick(m_pGround->windowHandle(), Qt::LeftButton, {}, {200, 250});
    QCOMPARE(clicked.size(), 1);
}

void tst_COverlay::besideAPanelThePageTakesTheMouse()
{
    addPanel();
    m_pPanel->show();
    QTRY_COMPARE(m_pPanel->geometry(), QRect(0, 200, 400, 100));
    QCOMPARE(at(200, 199), m_pPage);
    QCOMPARE(at(200, 200), m_pPanel);
    QSignalSpy page(m_pPage, &QPushButton::clicked);
    QSignalSpy panel(m_pPanel, &QPushButton::clicked);
    QTest::mouseClick(m_pGround->windowHandle(), Qt::LeftButton, {}, {200, 100});
    QTest::mouseClick(m_pGround->windowHandle(), Qt::LeftButton, {}, {200, 250});
    QCOMPARE(page.size(), 1);
    QCOMPARE(panel.size(), 1);
    m_pPanel->hide();
    QCOMPARE(at(200, 250), m_pPage);
}

void tst_COverlay::theMouseAreaFollowsAMovingPanel()
{
    addPanel();
    m_pPanel->show();
    QTRY_COMPARE(m_pPanel->y(), 200);
    m_pPanel->move(0, 260);
    QCOMPARE(at(200, 250), m_pPage);
    QCOMPARE(at(200, 270), m_pPanel);
}

void tst_COverlay::aPanelThatIsDestroyedIsForgotten()
{
    addPanel();
    m_pPanel->show();
    QTRY_COMPARE(m_pPanel->y(), 200);
    delete m_pPanel;
    QCOMPARE(at(200, 250), m_pPage);
}

SETTINGAREA_TEST_MAIN(tst_COverlay, QApplication)
#include "tst_COverlay.moc"
