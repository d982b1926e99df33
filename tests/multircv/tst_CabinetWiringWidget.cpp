#include "multircv/CabinetWiringWidget.h"

#include "tests/support/PaintCounter.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalSpy>

#include <functional>

namespace {

// Points in the cells of a grid of 2 x 2.
const QPoint topLeft(80, 10);
const QPoint topRight(230, 10);
const QPoint bottomLeft(80, 160);
const QPoint bottomRight(230, 160);

using Ids = QList<int>;

} // namespace

class tst_CabinetWiringWidget : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithTwoCells();
    void sizeIsFixed();
    void setGridSizeIsSilent();
    void setTopology_data();
    void setTopology();
    void setWiring();
    void leftClicksAppend();
    void rightClicksTakeOut();
    void clickOnWiredCell();
    void clicksOutsideOfCells();
    void otherButtons();
    void fastClicks();
    void clickOnFraction();
    void noClicksOnSingleLine_data();
    void noClicksOnSingleLine();
    void everyChangeRepaints();
    void keysWire();
    void cursorStaysInTheGrid();
    void cursorStartsAnewWithTheGrid();
    void otherKeysPass();
    void noKeysOnSingleLine();
};

void tst_CabinetWiringWidget::startsWithTwoCells()
{
    CabinetWiringWidget widget;
    QCOMPARE(widget.wiring(), Ids());
    widget.setTopology(WiringGrid::LeftDown);
    QCOMPARE(widget.wiring(), (Ids{1, 0}));
}

void tst_CabinetWiringWidget::sizeIsFixed()
{
    CabinetWiringWidget widget;
    QCOMPARE(widget.size(), QSize(313, 174));
    QCOMPARE(widget.minimumSize(), QSize(313, 174));
    QCOMPARE(widget.maximumSize(), QSize(313, 174));
}

void tst_CabinetWiringWidget::setGridSizeIsSilent()
{
    CabinetWiringWidget widget;
    widget.setTopology(WiringGrid::RightDown);
    const QSignalSpy notified(&widget, &CabinetWiringWidget::notifyWiringCouldClear);
    widget.setGridSize(2, 2);
    QCOMPARE(widget.wiring(), Ids());
    widget.setTopology(WiringGrid::RightDown);
    widget.setGridSize(2, 2);
    QCOMPARE(widget.wiring(), Ids());
    QCOMPARE(notified.size(), 1);
}

void tst_CabinetWiringWidget::setTopology_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<Ids>("before");
    QTest::addColumn<Ids>("after");
    QTest::addColumn<bool>("couldClear");
    QTest::newRow("1") << 1 << Ids() << Ids{0, 2, 3, 1} << true;
    QTest::newRow("10") << 10 << Ids{0} << Ids{2, 3, 1, 0} << true;
    QTest::newRow("12") << 12 << Ids() << Ids{1, 0, 2, 3} << true;
    QTest::newRow("clear") << 0 << Ids{3, 1} << Ids() << false;
    QTest::newRow("clear again") << 0 << Ids() << Ids() << false;
    QTest::newRow("13 only notifies") << 13 << Ids{3, 1} << Ids{3, 1} << true;
    QTest::newRow("13 on an unwired grid") << 13 << Ids() << Ids() << false;
    QTest::newRow("-1") << -1 << Ids{3, 1} << Ids{3, 1} << true;
}

void tst_CabinetWiringWidget::setTopology()
{
    QFETCH(int, id);
    QFETCH(Ids, before);
    CabinetWiringWidget widget;
    widget.setGridSize(2, 2);
    widget.setWiring(before);
    QSignalSpy notified(&widget, &CabinetWiringWidget::notifyWiringCouldClear);
    widget.setTopology(id);
    QTEST(widget.wiring(), "after");
    QCOMPARE(notified.size(), 1);
    QTEST(notified.takeFirst().at(0).toBool(), "couldClear");
}

void tst_CabinetWiringWidget::setWiring()
{
    CabinetWiringWidget widget;
    widget.setGridSize(2, 2);
    QSignalSpy notified(&widget, &CabinetWiringWidget::notifyWiringCouldClear);
    const auto notification = [&notified] { return notified.size() == 1 ? notified.takeFirst() : QVariantList(); };

    widget.setWiring({});
    QCOMPARE(notification(), QVariantList{false});
    widget.setWiring({7, -1});
    QCOMPARE(widget.wiring(), Ids());
    QCOMPARE(notification(), QVariantList{false});
    widget.setWiring({3, 1, 3});
    QCOMPARE(widget.wiring(), (Ids{1, 3}));
    QCOMPARE(notification(), QVariantList{true});
    widget.setWiring({});
    QCOMPARE(widget.wiring(), (Ids{1, 3}));
    QCOMPARE(notification(), QVariantList{true});
}

void tst_CabinetWiringWidget::leftClicksAppend()
{
    CabinetWiringWidget widget;
    widget.setGridSize(2, 2);
    QSignalSpy notified(&widget, &CabinetWiringWidget::notifyWiringCouldClear);
    QTest::mouseClick(&widget, Qt::LeftButton, {}, bottomRight);
    QCOMPARE(widget.wiring(), Ids{3});
    QTest::mouseClick(&widget, Qt::LeftButton, {}, topLeft);
    QTest::mouseClick(&widget, Qt::LeftButton, {}, topRight);
    QTest::mouseClick(&widget, Qt::LeftButton, {}, bottomLeft);
    QCOMPARE(widget.wiring(), (Ids{3, 0, 2, 1}));
    QCOMPARE(notified.size(), 4);
    for (const QVariantList& notification : notified)
        QCOMPARE(notification, QVariantList{true});
}

void tst_CabinetWiringWidget::rightClicksTakeOut()
{
    CabinetWiringWidget widget;
    widget.setGridSize(2, 2);
    widget.setWiring({3, 0, 2, 1});
    QSignalSpy notified(&widget, &CabinetWiringWidget::notifyWiringCouldClear);

    // The last cell gets its number back.
    QTest::mouseClick(&widget, Qt::RightButton, {}, bottomLeft);
    QCOMPARE(widget.wiring(), (Ids{3, 0, 2}));
    QTest::mouseClick(&widget, Qt::LeftButton, {}, bottomLeft);
    QCOMPARE(widget.wiring(), (Ids{3, 0, 2, 1}));
    widget.setWiring({3}); // keeps the others: 1 still has number 3
    QCOMPARE(widget.wiring(), (Ids{3, 0, 2, 1}));

    // A cell in the middle leaves a gap, and comes last when it is wired again.
    QTest::mouseClick(&widget, Qt::RightButton, {}, topLeft);
    QCOMPARE(widget.wiring(), (Ids{3, 2, 1}));
    QTest::mouseClick(&widget, Qt::LeftButton, {}, topLeft);
    QCOMPARE(widget.wiring(), (Ids{3, 2, 1, 0}));

    notified.clear();
    for (const QPoint& point : {topLeft, topRight, bottomLeft, bottomRight})
        QTest::mouseClick(&widget, Qt::RightButton, {}, point);
    QCOMPARE(widget.wiring(), Ids());
    QList<bool> couldClear;
    for (const QVariantList& notification : notified)
        couldClear.append(notification.at(0).toBool());
    QCOMPARE(couldClear, (QList<bool>{true, true, true, false}));
}

void tst_CabinetWiringWidget::clickOnWiredCell()
{
    CabinetWiringWidget widget;
    widget.setGridSize(2, 2);
    widget.setWiring({3, 0});
    const QSignalSpy notified(&widget, &CabinetWiringWidget::notifyWiringCouldClear);
    QTest::mouseClick(&widget, Qt::LeftButton, {}, bottomRight);
    QTest::mouseClick(&widget, Qt::RightButton, {}, topRight); // unwired
    QCOMPARE(widget.wiring(), (Ids{3, 0}));
    QCOMPARE(notified.size(), 0);
}

void tst_CabinetWiringWidget::clicksOutsideOfCells()
{
    CabinetWiringWidget widget;
    const QSignalSpy notified(&widget, &CabinetWiringWidget::notifyWiringCouldClear);
    widget.setGridSize(2, 2);
    QTest::mouseClick(&widget, Qt::LeftButton, {}, {68, 20});
    QTest::mouseClick(&widget, Qt::LeftButton, {}, {243, 20});
    widget.setGridSize(5, 2);
    QTest::mouseClick(&widget, Qt::LeftButton, {}, {124, 30}); // between two columns
    QTest::mouseClick(&widget, Qt::LeftButton, {}, {20, 23});
    QCOMPARE(notified.size(), 0);
    QTest::mouseClick(&widget, Qt::LeftButton, {}, {125, 30});
    QTest::mouseClick(&widget, Qt::LeftButton, {}, {123, 30});
    QCOMPARE(widget.wiring(), (Ids{4, 2}));
}

void tst_CabinetWiringWidget::otherButtons()
{
    CabinetWiringWidget widget;
    widget.setGridSize(2, 2);
    widget.setWiring({3});
    const QSignalSpy notified(&widget, &CabinetWiringWidget::notifyWiringCouldClear);
    for (const Qt::MouseButton button : {Qt::MiddleButton, Qt::BackButton}) {
        for (const QPoint& point : {topLeft, bottomRight})
            QTest::mouseClick(&widget, button, {}, point);
    }
    QCOMPARE(widget.wiring(), Ids{3});
    QCOMPARE(notified.size(), 0);
}

// The second press of two in a row is one like any other.
void tst_CabinetWiringWidget::fastClicks()
{
    CabinetWiringWidget widget;
    widget.setGridSize(2, 2);
    QTest::mouseClick(&widget, Qt::LeftButton, {}, topLeft);
    QTest::mouseDClick(&widget, Qt::LeftButton, {}, topRight);
    QCOMPARE(widget.wiring(), (Ids{0, 2}));
    QMouseEvent second(QEvent::MouseButtonDblClick, bottomLeft, Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&widget, &second);
    QCOMPARE(widget.wiring(), (Ids{0, 2, 1}));
}

void tst_CabinetWiringWidget::clickOnFraction()
{
    CabinetWiringWidget widget;
    widget.setGridSize(2, 2);
    const auto press = [&widget](const QPointF& point) {
        QMouseEvent event(QEvent::MouseButtonPress, point, Qt::LeftButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&widget, &event);
    };
    press({68.4, 10});
    QCOMPARE(widget.wiring(), Ids());
    press({68.6, 10});
    QCOMPARE(widget.wiring(), Ids{0});
    press({100, 86.6}); // rounds to the first pixel of the lower row
    QCOMPARE(widget.wiring(), (Ids{0, 1}));
}

void tst_CabinetWiringWidget::noClicksOnSingleLine_data()
{
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("rows");
    for (const auto& [columns, rows] : {std::pair(1, 1), {2, 1}, {1, 2}, {4, 1}, {1, 4}})
        QTest::addRow("%d x %d", columns, rows) << columns << rows;
}

void tst_CabinetWiringWidget::noClicksOnSingleLine()
{
    QFETCH(int, columns);
    QFETCH(int, rows);
    CabinetWiringWidget widget;
    widget.setGridSize(columns, rows);
    const QSignalSpy notified(&widget, &CabinetWiringWidget::notifyWiringCouldClear);
    for (int x = 5; x < widget.width(); x += 20) {
        for (int y = 5; y < widget.height(); y += 20)
            QTest::mouseClick(&widget, Qt::LeftButton, {}, {x, y});
    }
    QCOMPARE(widget.wiring(), Ids());
    QCOMPARE(notified.size(), 0);
    widget.setWiring({0});
    QTest::mouseClick(&widget, Qt::RightButton, {}, widget.rect().center());
    QTest::mouseClick(&widget, Qt::RightButton, {}, {140, 60});
    QCOMPARE(widget.wiring(), Ids{0});
    QCOMPARE(notified.size(), 1);
}

void tst_CabinetWiringWidget::everyChangeRepaints()
{
    CabinetWiringWidget widget;
    widget.setGridSize(2, 2);
    PaintCounter counter;
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    QCoreApplication::processEvents();
    widget.installEventFilter(&counter);
    const std::function<void()> changes[] = {
        [&] { widget.setTopology(1); },
        [&] { widget.setWiring({0}); },
        [&] { widget.setShowDirection(true); },
        [&] { QTest::mouseClick(&widget, Qt::RightButton, {}, topLeft); },
        [&] { QTest::mouseClick(&widget, Qt::LeftButton, {}, topLeft); },
        [&] { widget.setTopology(13); },
        [&] { widget.setGridSize(3, 2); },
        [&] { QTest::keyClick(&widget, Qt::Key_Right); },
    };
    for (const auto& change : changes) {
        counter.paints = 0;
        change();
        QTRY_COMPARE(counter.paints, 1);
    }
}

void tst_CabinetWiringWidget::keysWire()
{
    CabinetWiringWidget widget;
    widget.setGridSize(2, 2);
    QSignalSpy notified(&widget, &CabinetWiringWidget::notifyWiringCouldClear);
    QTest::keyClick(&widget, Qt::Key_Space);
    QCOMPARE(widget.wiring(), Ids{0});
    QTest::keyClick(&widget, Qt::Key_Right);
    QTest::keyClick(&widget, Qt::Key_Return);
    QCOMPARE(widget.wiring(), (Ids{0, 2}));
    QTest::keyClick(&widget, Qt::Key_Down);
    QTest::keyClick(&widget, Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(widget.wiring(), (Ids{0, 2, 3}));
    QTest::keyClick(&widget, Qt::Key_Left);
    QTest::keyClick(&widget, Qt::Key_Space);
    QCOMPARE(widget.wiring(), (Ids{0, 2, 3, 1}));
    QCOMPARE(notified.size(), 4);

    QTest::keyClick(&widget, Qt::Key_Space); // wired already
    QCOMPARE(notified.size(), 4);
    QTest::keyClick(&widget, Qt::Key_Delete);
    QCOMPARE(widget.wiring(), (Ids{0, 2, 3}));
    QTest::keyClick(&widget, Qt::Key_Up);
    QTest::keyClick(&widget, Qt::Key_Backspace);
    QCOMPARE(widget.wiring(), (Ids{2, 3}));
    QTest::keyClick(&widget, Qt::Key_Delete); // unwired already
    QCOMPARE(notified.size(), 6);
    QCOMPARE(notified.last(), QVariantList{true});
}

void tst_CabinetWiringWidget::cursorStaysInTheGrid()
{
    CabinetWiringWidget widget;
    widget.setGridSize(2, 2);
    const auto wireAfter = [&widget](Qt::Key key) {
        widget.setTopology(WiringGrid::Clear);
        for (int i = 0; i < 3; ++i)
            QTest::keyClick(&widget, key);
        QTest::keyClick(&widget, Qt::Key_Space);
        return widget.wiring();
    };
    QCOMPARE(wireAfter(Qt::Key_Left), Ids{0});
    QCOMPARE(wireAfter(Qt::Key_Up), Ids{0});
    QCOMPARE(wireAfter(Qt::Key_Right), Ids{2});
    QCOMPARE(wireAfter(Qt::Key_Down), Ids{3});
    QCOMPARE(wireAfter(Qt::Key_Left), Ids{1});
}

void tst_CabinetWiringWidget::cursorStartsAnewWithTheGrid()
{
    CabinetWiringWidget widget;
    widget.setGridSize(3, 3);
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Down, Qt::Key_Down, Qt::Key_Space})
        QTest::keyClick(&widget, key);
    QCOMPARE(widget.wiring(), Ids{8});
    widget.setGridSize(2, 2);
    QTest::keyClick(&widget, Qt::Key_Space);
    QCOMPARE(widget.wiring(), Ids{0});
}

// Escape and the dialog's other keys are not swallowed.
void tst_CabinetWiringWidget::otherKeysPass()
{
    CabinetWiringWidget widget;
    widget.setGridSize(2, 2);
    const auto isAccepted = [&widget](int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QCoreApplication::sendEvent(&widget, &event);
        return event.isAccepted();
    };
    QVERIFY(!isAccepted(Qt::Key_Escape));
    QVERIFY(!isAccepted(Qt::Key_A));
    QVERIFY(!isAccepted(Qt::Key_Return, Qt::ControlModifier));
    QVERIFY(!isAccepted(Qt::Key_Left, Qt::AltModifier));
    QCOMPARE(widget.wiring(), Ids());
    for (const int key : {Qt::Key_Return, Qt::Key_Return, Qt::Key_Delete, Qt::Key_Delete, Qt::Key_Left})
        QVERIFY(isAccepted(key));
}

void tst_CabinetWiringWidget::noKeysOnSingleLine()
{
    CabinetWiringWidget widget;
    for (const auto& [columns, rows] : {std::pair(1, 1), {2, 1}, {1, 2}, {0, 0}}) {
        widget.setGridSize(columns, rows);
        QCOMPARE(widget.focusPolicy(), Qt::NoFocus);
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &event);
        QVERIFY(!event.isAccepted());
        QTest::keyClick(&widget, Qt::Key_Space);
        QCOMPARE(widget.wiring(), Ids());
    }
    widget.setGridSize(2, 2);
    QCOMPARE(widget.focusPolicy(), Qt::TabFocus);
}

SETTINGAREA_TEST_MAIN(tst_CabinetWiringWidget, QApplication)
#include "tst_CabinetWiringWidget.moc"
