#include "multircv/WiringGrid.h"

#include "tests/support/TestObject.h"

#include <QCoreApplication>

#include <algorithm>
#include <limits>
#include <numeric>

namespace {

const QSize area(313, 174);

WiringGrid makeGrid(int columns, int rows)
{
    WiringGrid grid;
    grid.setGridSize(columns, rows, area);
    return grid;
}

QVector<QRect> boxes(const WiringGrid& grid)
{
    QVector<QRect> all;
    for (const WiringGrid::Cell& cell : grid.cells())
        all.append(cell.box);
    return all;
}

QVector<int> signalNumbers(const WiringGrid& grid)
{
    QVector<int> all;
    for (const WiringGrid::Cell& cell : grid.cells())
        all.append(cell.signal);
    return all;
}

// A walk over the grid: where it starts, which way it goes first, and which way it steps when it meets the edge.
struct Walk
{
    QPoint corner; // 0 is left or top, 1 is right or bottom
    QPoint along;
    QPoint onward;
};

const QPoint left(-1, 0);
const QPoint right(1, 0);
const QPoint up(0, -1);
const QPoint down(0, 1);

const Walk walks[] = {
    {},                    // clear
    {{0, 0}, right, down}, // right-down
    {{1, 0}, left, down},  // left-down
    {{0, 0}, down, right}, // down-right
    {{0, 1}, up, right},   // up-right
    {{0, 0}, right, down}, // the same and the others, with direction
    {{1, 0}, left, down},
    {{1, 1}, left, up},
    {{0, 1}, right, up},
    {{0, 0}, down, right},
    {{1, 0}, down, left},
    {{1, 1}, up, left},
    {{0, 1}, up, right},
};

// The signal numbers in the order of the cells.
QVector<int> numbersOfWalk(const Walk& walk, int columns, int rows)
{
    const QRect room(0, 0, columns, rows);
    QVector<int> numbers(columns * rows, -1);
    QPoint place(walk.corner.x() * (columns - 1), walk.corner.y() * (rows - 1));
    QPoint along = walk.along;
    for (int number = 0; room.contains(place); ++number) {
        numbers[place.y() * columns + place.x()] = number;
        if (room.contains(place + along)) {
            place += along;
        } else {
            place += walk.onward;
            along = -along;
        }
    }
    return numbers;
}

} // namespace

class tst_WiringGrid : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void layout_data();
    void layout();
    void idsRunDownTheColumns();
    void noCells_data();
    void noCells();
    void newSizeUnwires();
    void topology_data();
    void topology();
    void topologyExamples();
    void unknownTopology_data();
    void unknownTopology();
    void setWiring();
    void setWiringKeepsAbsentCells();
    void setWiringWithStrangeIds();
    void equalNumbersStayInCellOrder();
    void wireAndUnwire();
    void path();
    void cellAt();
    void cellAtGap();
    void cellAtOverlap();
    void hasChoice();
};

void tst_WiringGrid::layout_data()
{
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("side");
    QTest::addColumn<QVector<QPoint>>("corners");
    using Corners = QVector<QPoint>;
    QTest::newRow("1 x 1") << 1 << 1 << 174 << Corners{{69, 0}};
    QTest::newRow("2 x 1") << 2 << 1 << 156 << Corners{{0, 8}, {156, 8}};
    QTest::newRow("1 x 2") << 1 << 2 << 87 << Corners{{113, 0}, {113, 87}};
    QTest::newRow("2 x 2") << 2 << 2 << 87 << Corners{{69, 0}, {156, 0}, {69, 87}, {156, 87}};
    QTest::newRow("3 x 1") << 3 << 1 << 104 << Corners{{0, 34}, {104, 34}, {208, 34}};
    QTest::newRow("1 x 3") << 1 << 3 << 58 << Corners{{127, 0}, {127, 58}, {127, 116}};
    QTest::newRow("4 x 1") << 4 << 1 << 78 << Corners{{0, 47}, {78, 47}, {156, 47}, {234, 47}};
    QTest::newRow("1 x 4") << 1 << 4 << 43 << Corners{{134, 0}, {134, 43}, {134, 87}, {134, 130}};
    QTest::newRow("3 x 3") << 3 << 3 << 58 << Corners{{69, 0},   {127, 0},  {185, 0},   {69, 58},  {127, 58},
                                                      {185, 58}, {69, 116}, {127, 116}, {185, 116}};
    QTest::newRow("3 x 2, higher than the area")
        << 3 << 2 << 104 << Corners{{0, -17}, {104, -17}, {208, -17}, {0, 87}, {104, 87}, {208, 87}};
    Corners tower;
    // In double precision the eighth would begin at 57.
    for (const int top : {0, 8, 16, 24, 33, 41, 49, 58, 66, 74, 82, 91, 99, 107, 116, 124, 132, 140, 149, 157, 165})
        tower.append({152, top});
    QTest::newRow("1 x 21, single precision") << 1 << 21 << 8 << tower;
}

void tst_WiringGrid::layout()
{
    QFETCH(int, columns);
    QFETCH(int, rows);
    QFETCH(int, side);
    QFETCH(QVector<QPoint>, corners);
    const WiringGrid grid = makeGrid(columns, rows);
    QVector<QRect> expected;
    for (const QPoint& corner : corners)
        expected.append({corner, corner + QPoint(side - 1, side - 1)}); // inclusive corners
    QCOMPARE(boxes(grid), expected);
    QCOMPARE(signalNumbers(grid), QVector<int>(columns * rows, -1));
    QCOMPARE(grid.columns(), columns);
    QCOMPARE(grid.rows(), rows);
}

void tst_WiringGrid::idsRunDownTheColumns()
{
    const WiringGrid grid = makeGrid(3, 2);
    QVector<int> ids;
    for (const WiringGrid::Cell& cell : grid.cells())
        ids.append(cell.id);
    QCOMPARE(ids, (QVector<int>{0, 2, 4, 1, 3, 5})); // row by row
}

void tst_WiringGrid::noCells_data()
{
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("rows");
    QTest::newRow("nothing") << 0 << 0;
    QTest::newRow("no rows") << 2 << 0;
    QTest::newRow("no columns") << 0 << 2;
    QTest::newRow("negative rows") << 2 << -1;
    QTest::newRow("negative columns") << -1 << 2;
    QTest::newRow("both negative") << -1 << -1;
}

void tst_WiringGrid::noCells()
{
    QFETCH(int, columns);
    QFETCH(int, rows);
    WiringGrid grid = makeGrid(2, 2);
    grid.setGridSize(columns, rows, area);
    for (int id = 0; id < WiringGrid::TopologyCount; ++id)
        grid.setTopology(id);
    grid.setWiring({0, 1});
    QCOMPARE(grid.cells().size(), 0);
    QCOMPARE(grid.wiring(), QList<int>());
    QCOMPARE(grid.path(), QVector<QPoint>());
    QCOMPARE(grid.cellAt({100, 50}), -1);
    QVERIFY(!grid.hasWiredCell());
    QVERIFY(!grid.hasChoice());
}

void tst_WiringGrid::newSizeUnwires()
{
    WiringGrid grid = makeGrid(2, 2);
    grid.setTopology(WiringGrid::RightDown);
    grid.setGridSize(2, 2, area);
    QCOMPARE(signalNumbers(grid), QVector<int>(4, -1));
}

void tst_WiringGrid::topology_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("rows");
    for (int id = 0; id <= 12; ++id) {
        for (int columns = 1; columns <= 4; ++columns) {
            for (int rows = 1; rows <= 4; ++rows)
                QTest::addRow("%d on %d x %d", id, columns, rows) << id << columns << rows;
        }
    }
}

void tst_WiringGrid::topology()
{
    QFETCH(int, id);
    QFETCH(int, columns);
    QFETCH(int, rows);
    QVector<int> expected(columns * rows, -1);
    if (id != 0) {
        expected = numbersOfWalk(walks[id], columns, rows);
        // The walk of the test has been everywhere.
        QVector<int> sorted = expected;
        std::sort(sorted.begin(), sorted.end());
        QVector<int> all(columns * rows);
        std::iota(all.begin(), all.end(), 0);
        QCOMPARE(sorted, all);
    }
    WiringGrid grid = makeGrid(columns, rows);
    grid.setTopology(id);
    QCOMPARE(signalNumbers(grid), expected);

    // Whatever the cells were numbered before.
    QList<int> ids;
    for (int cell = columns * rows - 1; cell >= 0; --cell)
        ids.append(cell);
    grid.setWiring(ids);
    grid.setTopology(id);
    QCOMPARE(signalNumbers(grid), expected);
}

void tst_WiringGrid::topologyExamples()
{
    WiringGrid grid = makeGrid(2, 2);
    // Top left, top right, bottom left, bottom right.
    grid.setTopology(1);
    QCOMPARE(signalNumbers(grid), (QVector<int>{0, 1, 3, 2}));
    QCOMPARE(grid.wiring(), (QList<int>{0, 2, 3, 1}));
    grid.setTopology(10);
    QCOMPARE(signalNumbers(grid), (QVector<int>{3, 0, 2, 1}));
    QCOMPARE(grid.wiring(), (QList<int>{2, 3, 1, 0}));
    // Third lines run like first ones.
    grid.setGridSize(3, 3, area);
    grid.setTopology(7);
    QCOMPARE(signalNumbers(grid), (QVector<int>{8, 7, 6, 3, 4, 5, 2, 1, 0}));
    QCOMPARE(int{WiringGrid::TopologyCount}, 13);
}

void tst_WiringGrid::unknownTopology_data()
{
    QTest::addColumn<int>("id");
    for (const int id : {-1, 13, 14, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        QTest::addRow("%d", id) << id;
}

void tst_WiringGrid::unknownTopology()
{
    QFETCH(int, id);
    WiringGrid grid = makeGrid(2, 2);
    grid.setWiring({3, 1});
    grid.setTopology(id);
    QCOMPARE(grid.wiring(), (QList<int>{3, 1}));
}

void tst_WiringGrid::setWiring()
{
    WiringGrid grid = makeGrid(2, 2);
    grid.setWiring({2, 3, 1, 0});
    QCOMPARE(signalNumbers(grid), (QVector<int>{3, 0, 2, 1}));
    QCOMPARE(grid.wiring(), (QList<int>{2, 3, 1, 0}));
    QVERIFY(grid.hasWiredCell());
}

void tst_WiringGrid::setWiringKeepsAbsentCells()
{
    WiringGrid grid = makeGrid(2, 2);
    grid.setWiring({2, 3, 1, 0});
    grid.setWiring({});
    QCOMPARE(grid.wiring(), (QList<int>{2, 3, 1, 0}));
    grid.setTopology(WiringGrid::Clear);
    grid.setWiring({3});
    QCOMPARE(signalNumbers(grid), (QVector<int>{-1, -1, -1, 0}));
    QCOMPARE(grid.wiring(), QList<int>{3});
}

void tst_WiringGrid::setWiringWithStrangeIds()
{
    WiringGrid grid = makeGrid(2, 2);
    grid.setWiring({0, 1, 0, 2}); // the later place of 0 wins
    QCOMPARE(signalNumbers(grid), (QVector<int>{2, 3, 1, -1}));
    QCOMPARE(grid.wiring(), (QList<int>{1, 0, 2}));
    grid.setTopology(WiringGrid::Clear);
    grid.setWiring({-1, 4, 255, std::numeric_limits<int>::max(), 1});
    QCOMPARE(signalNumbers(grid), (QVector<int>{-1, -1, 4, -1}));
    QCOMPARE(grid.wiring(), QList<int>{1});
}

// Two calls can give two cells one number.
void tst_WiringGrid::equalNumbersStayInCellOrder()
{
    WiringGrid grid = makeGrid(2, 2);
    grid.setWiring({3});
    grid.setWiring({2});
    grid.setWiring({1});
    QCOMPARE(signalNumbers(grid), (QVector<int>{-1, 0, 0, 0}));
    QCOMPARE(grid.wiring(), (QList<int>{2, 1, 3}));
}

void tst_WiringGrid::wireAndUnwire()
{
    WiringGrid grid = makeGrid(2, 2);
    QVERIFY(!grid.unwire(0));
    for (const int cell : {3, 0, 1, 2})
        QVERIFY(grid.wire(cell));
    QCOMPARE(signalNumbers(grid), (QVector<int>{1, 2, 3, 0}));
    QVERIFY(!grid.wire(3));
    QCOMPARE(signalNumbers(grid), (QVector<int>{1, 2, 3, 0}));

    // The last one gets its number back, one in the middle leaves a gap.
    QVERIFY(grid.unwire(2));
    QVERIFY(grid.wire(2));
    QCOMPARE(signalNumbers(grid), (QVector<int>{1, 2, 3, 0}));
    QVERIFY(grid.unwire(1));
    QCOMPARE(signalNumbers(grid), (QVector<int>{1, -1, 3, 0}));
    QCOMPARE(grid.wiring(), (QList<int>{3, 0, 1}));
    QVERIFY(grid.wire(1));
    QCOMPARE(signalNumbers(grid), (QVector<int>{1, 4, 3, 0}));
    QCOMPARE(grid.wiring(), (QList<int>{3, 0, 1, 2}));

    for (const int cell : {0, 1, 2, 3})
        QVERIFY(grid.unwire(cell));
    QVERIFY(!grid.hasWiredCell());
    QVERIFY(grid.wire(1));
    QCOMPARE(signalNumbers(grid), (QVector<int>{-1, 0, -1, -1}));
}

void tst_WiringGrid::path()
{
    WiringGrid grid = makeGrid(2, 2);
    QCOMPARE(grid.path(), QVector<QPoint>());
    grid.setWiring({3, 0, 2});
    QCOMPARE(grid.path(), (QVector<QPoint>{{199, 130}, {112, 43}, {199, 43}}));
    grid.setGridSize(3, 2, area); // the centre of -17 and 86, halved towards zero
    grid.setWiring({0});
    QCOMPARE(grid.path(), (QVector<QPoint>{{51, 34}}));
}

void tst_WiringGrid::cellAt()
{
    const WiringGrid grid = makeGrid(2, 2);
    QCOMPARE(grid.cellAt({69, 0}), 0);
    QCOMPARE(grid.cellAt({155, 86}), 0);
    QCOMPARE(grid.cellAt({156, 86}), 1);
    QCOMPARE(grid.cellAt({242, 0}), 1);
    QCOMPARE(grid.cellAt({155, 87}), 2);
    QCOMPARE(grid.cellAt({242, 173}), 3);
    for (const QPoint& outside : {QPoint(68, 0), QPoint(243, 0), QPoint(69, -1), QPoint(69, 174), QPoint(-5, -5)})
        QCOMPARE(grid.cellAt(outside), -1);
}

// Cells are as wide as the whole pixels of a column: every now and then a pixel is left over.
void tst_WiringGrid::cellAtGap()
{
    const WiringGrid grid = makeGrid(5, 2);
    QCOMPARE(grid.cellAt({123, 30}), 1);
    QCOMPARE(grid.cellAt({124, 30}), -1);
    QCOMPARE(grid.cellAt({125, 30}), 2);
    QCOMPARE(grid.cellAt({312, 30}), -1);
}

// A row that begins less than a pixel above the area begins at its edge, and so reaches into the next one.
void tst_WiringGrid::cellAtOverlap()
{
    const WiringGrid grid = makeGrid(25, 14);
    QCOMPARE(grid.cells().at(0).box, QRect(0, 0, 12, 12));
    QCOMPARE(grid.cells().at(25).box, QRect(0, 11, 12, 12));
    QCOMPARE(grid.cellAt({0, 11}), 0);
    QCOMPARE(grid.cellAt({0, 12}), 25);
}

void tst_WiringGrid::hasChoice()
{
    for (int columns = 1; columns <= 4; ++columns) {
        for (int rows = 1; rows <= 4; ++rows)
            QCOMPARE(makeGrid(columns, rows).hasChoice(), columns >= 2 && rows >= 2);
    }
}

SETTINGAREA_TEST_MAIN(tst_WiringGrid, QCoreApplication)
#include "tst_WiringGrid.moc"
