#include "tests/support/AreaFixture.h"

#include <QApplication>

// A process of its own: the area is constructed once.
class tst_FirstDocking : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void overlayThatIsThereAlreadyGetsThePanel();
};

void tst_FirstDocking::overlayThatIsThereAlreadyGetsThePanel()
{
    const HostWindow host;
    QVERIFY(!host.panel());
    CSettingArea::instance();
    QVERIFY(host.panel());
    QCOMPARE(host.panel()->parentWidget(), host.overlay);
    QVERIFY(host.overlayLayout->indexOf(host.panel()) >= 0);
    QVERIFY(!CSettingArea::instance().parentWidget());
}

SETTINGAREA_TEST_MAIN(tst_FirstDocking, QApplication)
#include "tst_FirstDocking.moc"
