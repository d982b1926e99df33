#include "tests/support/TestObject.h"

#include <widgetry/CScrollArea.h>

#include <QApplication>
#include <QLineEdit>
#include <QScrollBar>

class tst_CScrollArea : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void policies();
    void barsAsNeeded();
    void tabScrollsToTheFocus();
};

void tst_CScrollArea::policies()
{
    QWidget parent;
    const CScrollArea needed(&parent);
    QCOMPARE(needed.parentWidget(), &parent);
    QCOMPARE(needed.horizontalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    QCOMPARE(needed.verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    QCOMPARE(needed.frameShape(), QFrame::NoFrame);
    const CScrollArea other(nullptr, Qt::ScrollBarAlwaysOff, Qt::ScrollBarAlwaysOn);
    QCOMPARE(other.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(other.verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
}

void tst_CScrollArea::barsAsNeeded()
{
    CScrollArea area;
    auto* const content = new QWidget;
    content->setFixedSize(100, 1000);
    area.setWidget(content);
    area.resize(200, 200);
    area.show();
    QVERIFY(area.verticalScrollBar()->isVisible());
    QVERIFY(!area.horizontalScrollBar()->isVisible());
    content->setFixedSize(100, 100);
    QTRY_VERIFY(!area.verticalScrollBar()->isVisible());
}

void tst_CScrollArea::tabScrollsToTheFocus()
{
    CScrollArea area;
    auto* const content = new QWidget;
    auto* const upper = new QLineEdit(content);
    auto* const lower = new QLineEdit(content);
    content->setFixedSize(100, 1000);
    lower->move(0, 900);
    area.setWidget(content);
    area.resize(200, 200);
    area.show();
    upper->setFocus();
    QTest::keyClick(upper, Qt::Key_Tab);
    QCOMPARE(area.focusWidget(), lower);
    QVERIFY(!lower->visibleRegion().isEmpty());
}

SETTINGAREA_TEST_MAIN(tst_CScrollArea, QApplication)
#include "tst_CScrollArea.moc"
