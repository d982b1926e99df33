#include "tests/platform/WidgetFixture.h"
#include "tests/support/TestObject.h"

#include <widgetry/CScrollBar.h>

#include <QApplication>
#include <QTableWidget>

#include <memory>

namespace {

// A table as the recipients' table is: its own vertical bar is off and another one stands in for it.
struct Table
{
    explicit Table(int rows, Qt::ScrollBarPolicy policy = Qt::ScrollBarAsNeeded)
        : table(rows, 2)
    {
        table.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        table.setFixedSize(402, 173);
        bar->hide();
        bar->ConnectWithOtheBar(table.verticalScrollBar(), policy);
        bar->ConnectWithParent(&table);
        table.show();
        QCoreApplication::processEvents();
    }

    QTableWidget table;
    CScrollBar* bar = new CScrollBar(Qt::Vertical, &table);
};

} // namespace

class tst_CScrollBar : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void mirrorsTheOtherBar();
    void otherBarFollows();
    void rangeMovesPastTheValue();
    void visibility_data();
    void visibility();
    void staysHiddenWhenTheParentIsShown();
    void followsTheTable();
    void mouseAndWheelScrollTheTable();
    void staysAtTheEdge();
    void parentHasTheLastWord();
    void styleSheetSetsTheWidth();
    void connectedAnew();
    void otherBarDestroyed();
};

void tst_CScrollBar::mirrorsTheOtherBar()
{
    QScrollBar other;
    other.setRange(10, 200);
    other.setSingleStep(3);
    other.setPageStep(40);
    other.setValue(50);
    CScrollBar bar(Qt::Vertical);
    bar.ConnectWithOtheBar(&other, Qt::ScrollBarAlwaysOff);
    QCOMPARE(bar.minimum(), 10);
    QCOMPARE(bar.maximum(), 200);
    QCOMPARE(bar.singleStep(), 3);
    QCOMPARE(bar.pageStep(), 40);
    QCOMPARE(bar.value(), 50);
    other.setValue(60);
    QCOMPARE(bar.value(), 60);
    other.setRange(0, 55);
    QCOMPARE(bar.maximum(), 55);
    QCOMPARE(bar.value(), 55);
    // As item views do it: the page step last.
    other.setRange(0, 100);
    other.setPageStep(20);
    QTRY_COMPARE(bar.pageStep(), 20);
}

void tst_CScrollBar::otherBarFollows()
{
    QScrollBar other;
    CScrollBar bar(Qt::Vertical);
    bar.ConnectWithOtheBar(&other, Qt::ScrollBarAlwaysOff);
    bar.setRange(5, 300);
    bar.setSingleStep(7);
    bar.setPageStep(70);
    bar.setValue(123);
    QCOMPARE(other.minimum(), 5);
    QCOMPARE(other.maximum(), 300);
    QCOMPARE(other.singleStep(), 7);
    QCOMPARE(other.pageStep(), 70);
    QCOMPARE(other.value(), 123);
}

void tst_CScrollBar::rangeMovesPastTheValue()
{
    QScrollBar other;
    other.setRange(0, 10);
    other.setValue(5);
    CScrollBar bar(Qt::Vertical);
    bar.ConnectWithOtheBar(&other, Qt::ScrollBarAlwaysOff);
    QSignalSpy values(&other, &QScrollBar::valueChanged);
    other.setRange(20, 30);
    QCOMPARE(other.value(), 20);
    QCOMPARE(bar.value(), 20);
    QCOMPARE(values.count(), 1);
    other.setValue(25);
    other.setRange(0, 30); // the value is no longer at the end that it was pushed to
    QCOMPARE(other.value(), 25);
    QCOMPARE(bar.value(), 25);
}

void tst_CScrollBar::visibility_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<Qt::ScrollBarPolicy>("policy");
    QTest::addColumn<bool>("visible");
    QTest::newRow("needed") << 50 << Qt::ScrollBarAsNeeded << true;
    QTest::newRow("not needed") << 2 << Qt::ScrollBarAsNeeded << false;
    QTest::newRow("always off") << 50 << Qt::ScrollBarAlwaysOff << false;
    QTest::newRow("always on") << 2 << Qt::ScrollBarAlwaysOn << true;
}

void tst_CScrollBar::visibility()
{
    QFETCH(int, rows);
    QFETCH(Qt::ScrollBarPolicy, policy);
    QFETCH(bool, visible);
    const Table t(rows, policy);
    QCOMPARE(t.bar->isVisible(), visible);
}

void tst_CScrollBar::staysHiddenWhenTheParentIsShown()
{
    QWidget parent;
    QScrollBar other;
    other.setRange(0, 0);
    auto* const bar = new CScrollBar(Qt::Vertical, &parent);
    bar->ConnectWithParent(&parent);
    bar->ConnectWithOtheBar(&other, Qt::ScrollBarAsNeeded);
    parent.show();
    QVERIFY(!bar->isVisible());
    other.setRange(0, 1);
    QVERIFY(bar->isVisible());
}

void tst_CScrollBar::followsTheTable()
{
    Table t(3);
    QVERIFY(!t.bar->isVisible());
    t.table.setRowCount(60);
    QTRY_VERIFY(t.bar->isVisible());
    QCOMPARE(t.bar->maximum(), t.table.verticalScrollBar()->maximum());
    QTRY_COMPARE(t.bar->pageStep(), t.table.verticalScrollBar()->pageStep()); // comes with the next event
    t.table.scrollToBottom();
    QCOMPARE(t.bar->value(), t.bar->maximum());
    t.table.setRowCount(1);
    QTRY_VERIFY(!t.bar->isVisible());
}

void tst_CScrollBar::mouseAndWheelScrollTheTable()
{
    const Table t(60);
    // Below the slider: one page down.
    QTest::mouseClick(t.bar, Qt::LeftButton, Qt::NoModifier, {t.bar->width() / 2, t.bar->height() * 3 / 4});
    QCOMPARE(t.table.verticalScrollBar()->value(), t.table.verticalScrollBar()->pageStep());
    QCOMPARE(t.table.rowAt(0), t.table.verticalScrollBar()->pageStep());
    QVERIFY(sendWheel(t.bar, 120));
    QVERIFY(t.table.verticalScrollBar()->value() < t.table.verticalScrollBar()->pageStep());
    QCOMPARE(t.bar->value(), t.table.verticalScrollBar()->value());
}

void tst_CScrollBar::staysAtTheEdge()
{
    QWidget parent;
    parent.resize(200, 100);
    auto* const vertical = new CScrollBar(Qt::Vertical);
    auto* const horizontal = new CScrollBar(Qt::Horizontal);
    const int thickness = vertical->sizeHint().width();
    vertical->ConnectWithParent(&parent);
    horizontal->ConnectWithParent(&parent);
    QCOMPARE(vertical->parentWidget(), &parent);
    parent.show();
    QCOMPARE(vertical->geometry(), QRect(200 - thickness, 0, thickness, 100));
    QCOMPARE(horizontal->geometry(), QRect(0, 100 - thickness, 200, thickness));
    parent.resize(300, 50);
    QCOMPARE(vertical->geometry(), QRect(300 - thickness, 0, thickness, 50));
    QCOMPARE(horizontal->geometry(), QRect(0, 50 - thickness, 300, thickness));
}

void tst_CScrollBar::parentHasTheLastWord()
{
    class Parent : public QWidget
    {
    public:
        CScrollBar* bar = new CScrollBar(Qt::Vertical, this);

    protected:
        void resizeEvent(QResizeEvent* /*event*/) override
        {
            bar->setGeometry(width() - bar->width() - 2, 25, bar->width(), height() - 27);
        }
    };
    Parent parent;
    parent.bar->ConnectWithParent(&parent);
    const int thickness = parent.bar->width();
    parent.resize(402, 173);
    parent.show();
    QCOMPARE(parent.bar->geometry(), QRect(402 - thickness - 2, 25, thickness, 146));
}

void tst_CScrollBar::styleSheetSetsTheWidth()
{
    QWidget parent;
    parent.resize(200, 100);
    auto* const bar = new CScrollBar(Qt::Vertical, &parent);
    bar->ConnectWithParent(&parent);
    parent.setStyleSheet(QStringLiteral("CScrollBar:vertical{width:6px;}"));
    parent.show();
    QCOMPARE(bar->geometry(), QRect(194, 0, 6, 100));
    parent.setStyleSheet(QStringLiteral("CScrollBar:vertical{width:9px;}"));
    QCOMPARE(bar->geometry(), QRect(191, 0, 9, 100));
}

void tst_CScrollBar::connectedAnew()
{
    QScrollBar first;
    QScrollBar second;
    CScrollBar bar(Qt::Vertical);
    bar.ConnectWithOtheBar(&first, Qt::ScrollBarAlwaysOff);
    bar.ConnectWithOtheBar(&second, Qt::ScrollBarAlwaysOff);
    first.setRange(0, 77);
    first.setValue(70);
    QCOMPARE(bar.maximum(), second.maximum());
    bar.setValue(11);
    QCOMPARE(second.value(), 11);
    QCOMPARE(first.value(), 70);
    bar.ConnectWithOtheBar(nullptr, Qt::ScrollBarAsNeeded);
    bar.setValue(12);
    QCOMPARE(second.value(), 11);
}

void tst_CScrollBar::otherBarDestroyed()
{
    QWidget parent;
    auto other = std::make_unique<QScrollBar>();
    auto* const bar = new CScrollBar(Qt::Vertical, &parent);
    bar->ConnectWithOtheBar(other.get(), Qt::ScrollBarAsNeeded);
    parent.show();
    QVERIFY(bar->isVisible());
    other.reset();
    QVERIFY(!bar->isVisible());
    bar->setRange(0, 5);
    bar->setValue(3);
    QCoreApplication::processEvents();
    QCOMPARE(bar->value(), 3);
}

SETTINGAREA_TEST_MAIN(tst_CScrollBar, QApplication)
#include "tst_CScrollBar.moc"
