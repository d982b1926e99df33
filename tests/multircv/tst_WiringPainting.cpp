#include "multircv/CabinetWiringWidget.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QImage>

#include <algorithm>
#include <cmath>

namespace {

using Ids = QList<int>;

const QColor background(12, 12, 13);
const QColor cellFill(252, 120, 0);
const QColor yellow(255, 245, 0);
const QColor endFill(219, 255, 0);

// The widget as a display of that many device pixels per pixel shows it.
QImage rendered(CabinetWiringWidget& widget, int scale)
{
    QImage image(widget.size() * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::magenta);
    widget.render(&image);
    image.setDevicePixelRatio(1);
    return image;
}

// The device pixel that contains the point, which is in pixels of the widget.
QColor colorAt(const QImage& image, int scale, const QPointF& point)
{
    return image.pixelColor(int(std::floor(point.x() * scale)), int(std::floor(point.y() * scale)));
}

// `share` of the one colour laid over the other.
QColor mixed(const QColor& over, const QColor& under, double share)
{
    const auto part = [share](int a, int b) { return int(std::lround(share * a + (1 - share) * b)); };
    return {part(over.red(), under.red()), part(over.green(), under.green()), part(over.blue(), under.blue())};
}

bool isNear(const QColor& a, const QColor& b)
{
    const int tolerance = 6;
    return std::abs(a.red() - b.red()) <= tolerance && std::abs(a.green() - b.green()) <= tolerance &&
           std::abs(a.blue() - b.blue()) <= tolerance;
}

void addScales()
{
    QTest::addColumn<int>("scale");
    QTest::newRow("scale 1") << 1;
    QTest::newRow("scale 2") << 2;
}

} // namespace

// What the wiring widget paints, pixel by pixel.
class tst_WiringPainting : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void cursorIsDrawnWithFocusOnly();
    void paintsCells_data();
    void paintsCells();
    void paintsDashes_data();
    void paintsDashes();
    void paintsLinesInSignalOrder();
    void paintsArrow_data();
    void paintsArrow();
    void paintsArrowOfEveryLine();
    void paintsEndCircle_data();
    void paintsEndCircle();
    void paintsCirclesAtBothEnds();
};

void tst_WiringPainting::cursorIsDrawnWithFocusOnly()
{
    CabinetWiringWidget widget;
    widget.setGridSize(2, 2);
    widget.setTopology(WiringGrid::RightDown);
    const QImage without = rendered(widget, 1);

    widget.show();
    widget.setFocus();
    QVERIFY(QTest::qWaitForWindowActive(&widget));
    QVERIFY(widget.hasFocus());
    const QImage first = rendered(widget, 1);
    QVERIFY(first != without);
    QCOMPARE(first.pixelColor(73, 20), background); // inside of the left edge of the first cell
    QTest::keyClick(&widget, Qt::Key_Right);
    const QImage second = rendered(widget, 1);
    QCOMPARE(second.pixelColor(73, 20), cellFill);
    QCOMPARE(second.pixelColor(160, 20), background);

    widget.clearFocus();
    QCOMPARE(rendered(widget, 1), without);
    widget.setFocus();
    QVERIFY(rendered(widget, 1) != without);
    widget.setGridSize(2, 1); // nothing to move on
    const QImage line = rendered(widget, 1);
    CabinetWiringWidget other;
    QCOMPARE(line, rendered(other, 1));
}

void tst_WiringPainting::paintsCells_data()
{
    addScales();
}

void tst_WiringPainting::paintsCells()
{
    QFETCH(int, scale);
    CabinetWiringWidget widget;
    widget.setGridSize(2, 2);
    widget.setWiring({0}); // a wired cell looks like the others
    const QImage image = rendered(widget, scale);

    // The background fills what the outlines leave.
    const QRegion cells(QRect(68 * scale, 0, 176 * scale, image.height()));
    const QRegion outside = QRegion(image.rect()) - cells;
    for (const QRect& rect : outside) {
        for (int y = rect.top(); y <= rect.bottom(); ++y) {
            for (int x = rect.left(); x <= rect.right(); ++x)
                QCOMPARE(image.pixelColor(x, y), background);
        }
    }
    for (const QPoint& corner : {QPoint(69, 0), QPoint(156, 0), QPoint(69, 87), QPoint(156, 87)}) {
        const QRect fill(corner * scale + QPoint(scale, scale), QSize(85, 85) * scale);
        QCOMPARE(image.pixelColor(fill.topLeft()), cellFill);
        QCOMPARE(image.pixelColor(fill.topRight()), cellFill);
        QCOMPARE(image.pixelColor(fill.bottomLeft()), cellFill);
        QCOMPARE(image.pixelColor(fill.bottomRight()), cellFill);
    }
    // Half a pixel of outline lies on the edge, a quarter to either side: of a device pixel that is this share.
    const double share = 0.25 * scale;
    const QColor outer = colorAt(image, scale, {69 - 0.5 / scale, 20});
    const QColor inner = colorAt(image, scale, {69 + 0.5 / scale, 20});
    QVERIFY2(isNear(outer, mixed(yellow, background, share)), qPrintable(outer.name()));
    QVERIFY2(isNear(inner, mixed(yellow, cellFill, share)), qPrintable(inner.name()));
    const QColor rightmost = colorAt(image, scale, {243 + 0.5 / scale, 20});
    QVERIFY2(isNear(rightmost, mixed(yellow, background, share)), qPrintable(rightmost.name()));
}

void tst_WiringPainting::paintsDashes_data()
{
    addScales();
}

// Dashes are four widths of the line long, gaps two; a width below a device pixel counts as one there.
void tst_WiringPainting::paintsDashes()
{
    QFETCH(int, scale);
    CabinetWiringWidget widget;
    widget.setGridSize(3, 3);
    widget.setWiring({0, 6}); // (97, 28) to (213, 28)
    const QImage image = rendered(widget, scale);
    // Across the middle cell, where no outline and no circle is.
    const int begin = 130 * scale;
    const int end = 184 * scale;
    QList<int> green;
    for (int x = begin; x < end; ++x)
        green.append(image.pixelColor(x, 28 * scale).green());
    const auto [least, most] = std::minmax_element(green.cbegin(), green.cend());
    const int full = mixed(yellow, cellFill, 0.25 * scale).green(); // a quarter of a pixel on either side
    QVERIFY2(std::abs(*most - full) <= 6, qPrintable(QString::number(*most)));
    const int middle = (*most + *least) / 2;
    QVERIFY2(*most - *least >= 10 * scale, qPrintable(QString::number(*least)));
    int dashes = 0;
    for (int i = 1; i < green.size(); ++i)
        dashes += green.at(i - 1) < middle && green.at(i) >= middle;
    QCOMPARE(dashes, green.size() / 6);

    // And nothing a pixel beside the line.
    for (int x = begin; x < end; ++x) {
        QCOMPARE(image.pixelColor(x, 27 * scale - 1), cellFill);
        QCOMPARE(image.pixelColor(x, 29 * scale), cellFill);
    }
}

void tst_WiringPainting::paintsLinesInSignalOrder()
{
    CabinetWiringWidget widget;
    widget.setGridSize(2, 2);
    const QImage unwired = rendered(widget, 2);
    const auto isLine = [&widget, &unwired](const QRect& area) {
        const QImage image = rendered(widget, 2);
        const QRect pixels(area.topLeft() * 2, area.size() * 2);
        return image.copy(pixels) != unwired.copy(pixels);
    };
    // Strips across the four sides of the square of centres, and its middle.
    const QRect top(130, 38, 20, 10);
    const QRect bottom(130, 125, 20, 10);
    const QRect leftSide(107, 60, 10, 20);
    const QRect rightSide(194, 60, 10, 20);
    const QRect middle(150, 81, 12, 12);
    const auto lines = [&] {
        return QList<bool>{isLine(top), isLine(rightSide), isLine(bottom), isLine(leftSide), isLine(middle)};
    };
    widget.setWiring({0, 2, 3, 1});
    QCOMPARE(lines(), (QList<bool>{true, true, true, false, false}));
    widget.setWiring({0, 1, 3, 2});
    QCOMPARE(lines(), (QList<bool>{false, true, true, true, false}));
    widget.setWiring({0, 3, 2, 1}); // both diagonals and the right side
    QCOMPARE(lines(), (QList<bool>{false, true, false, false, true}));
    QTest::mouseClick(&widget, Qt::RightButton, {}, {230, 160}); // a gap: 0, 2, 1
    QCOMPARE(lines(), (QList<bool>{true, false, false, false, true}));
    widget.setTopology(WiringGrid::Clear);
    QCOMPARE(rendered(widget, 2), unwired);
}

void tst_WiringPainting::paintsArrow_data()
{
    QTest::addColumn<Ids>("wiring");
    QTest::addColumn<QPointF>("direction");
    QTest::addColumn<int>("scale");
    const double half = std::sqrt(0.5);
    for (const int scale : {1, 2, 8}) {
        QTest::addRow("right, scale %d", scale) << Ids{1, 7} << QPointF(1, 0) << scale;
        QTest::addRow("left, scale %d", scale) << Ids{7, 1} << QPointF(-1, 0) << scale;
        QTest::addRow("down, scale %d", scale) << Ids{3, 5} << QPointF(0, 1) << scale;
        QTest::addRow("up, scale %d", scale) << Ids{5, 3} << QPointF(0, -1) << scale;
        if (scale > 1) {
            QTest::addRow("right and down, scale %d", scale) << Ids{0, 8} << QPointF(half, half) << scale;
            QTest::addRow("left and up, scale %d", scale) << Ids{8, 0} << QPointF(-half, -half) << scale;
        }
    }
}

// All lines here have their middle in the middle of the grid.
void tst_WiringPainting::paintsArrow()
{
    QFETCH(Ids, wiring);
    QFETCH(QPointF, direction);
    QFETCH(int, scale);
    CabinetWiringWidget widget;
    widget.setGridSize(3, 3);
    widget.setWiring(wiring);
    const QPointF tip(155, 86);
    const QPointF aside(-direction.y(), direction.x());
    const auto color = [&](double behind, double beside) {
        return colorAt(rendered(widget, scale), scale, tip - behind * direction + beside * aside);
    };
    QVERIFY(color(7, 3) != yellow); // no arrow as long as it is not asked for
    widget.setShowDirection(true);

    // Half a pixel on, as long as a device pixel is a large part of the triangle.
    const double slack = scale == 8 ? 0.25 : 1.5;
    for (const int side : {-1, 1}) {
        QCOMPARE(color(8 - slack, side * (6.5 - 2.5 * slack)), yellow);
        QCOMPARE(color(4, side * (3.25 - 1.5 * slack)), yellow);
        QCOMPARE(color(1.5 * slack + 0.5, 0), yellow);
        QCOMPARE(color(8 + slack, side * 3), cellFill);       // behind the base
        QCOMPARE(color(7.5, side * (6.5 + slack)), cellFill); // beside the base
        QCOMPARE(color(4, side * (3.25 + 1.5 * slack)), cellFill);
        QCOMPARE(color(-slack, side * (0.5 + slack)), cellFill); // before the tip, beside the line
        QCOMPARE(color(-4, side * 3), cellFill);
    }
    widget.setShowDirection(false);
    QVERIFY(color(7, 3) != yellow);
}

void tst_WiringPainting::paintsArrowOfEveryLine()
{
    CabinetWiringWidget widget;
    widget.setGridSize(2, 2);
    widget.setTopology(WiringGrid::RightDownDirection);
    widget.setShowDirection(true);
    const QImage image = rendered(widget, 1);
    // Behind the tips of the arrows at the top, the right and the bottom.
    QCOMPARE(image.pixelColor(149, 46), yellow);
    QCOMPARE(image.pixelColor(202, 80), yellow);
    QCOMPARE(image.pixelColor(161, 133), yellow);
    QCOMPARE(image.pixelColor(115, 80), cellFill); // no line at the left
}

void tst_WiringPainting::paintsEndCircle_data()
{
    QTest::addColumn<QSize>("grid");
    QTest::addColumn<QPoint>("centre");
    QTest::addColumn<int>("scale");
    for (const int scale : {1, 2}) {
        QTest::addRow("first of 2 x 2, scale %d", scale) << QSize(2, 2) << QPoint(112, 43) << scale;
        QTest::addRow("1 x 1, scale %d", scale) << QSize(1, 1) << QPoint(155, 86) << scale;
    }
}

void tst_WiringPainting::paintsEndCircle()
{
    QFETCH(QSize, grid);
    QFETCH(QPoint, centre);
    QFETCH(int, scale);
    CabinetWiringWidget widget;
    widget.setGridSize(grid.width(), grid.height());
    const QImage before = rendered(widget, scale);
    widget.setWiring({0});
    widget.setShowDirection(true); // there is no line
    const QImage image = rendered(widget, scale);
    QRect changed;
    double coverage = 0; // device pixels
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) == before.pixel(x, y))
                continue;
            changed |= QRect(x, y, 1, 1);
            coverage += (image.pixelColor(x, y).green() - 120) / (255.0 - 120);
        }
    }
    QCOMPARE(changed, QRect((centre - QPoint(4, 4)) * scale, QSize(8, 8) * scale));
    QCOMPARE(image.pixelColor(centre * scale), endFill);
    // The circle's area: without an outline, and drawn once, as its edge would be harder else.
    const double areaOfCircle = 3.14159265 * 16 * scale * scale;
    QVERIFY2(std::abs(coverage - areaOfCircle) < 0.03 * areaOfCircle, qPrintable(QString::number(coverage)));
}

void tst_WiringPainting::paintsCirclesAtBothEnds()
{
    CabinetWiringWidget widget;
    widget.setGridSize(3, 3);
    widget.setWiring({0, 3, 4, 1});
    const auto circles = [&widget] {
        const QImage image = rendered(widget, 1);
        Ids ids;
        for (int id = 0; id < 9; ++id) {
            const QPoint centre(97 + id / 3 * 58, 28 + id % 3 * 58);
            // Both left out by the line and the arrow, which the circle lies over.
            if (image.pixelColor(centre) == endFill && image.pixelColor(centre + QPoint(-2, 1)) == endFill &&
                image.pixelColor(centre + QPoint(1, -3)) == endFill)
                ids.append(id);
        }
        return ids;
    };
    QCOMPARE(circles(), (Ids{0, 1}));
    widget.setWiring({1, 4, 3, 0});
    QCOMPARE(circles(), (Ids{0, 1}));
    widget.setTopology(WiringGrid::DownLeftDirection);
    QCOMPARE(circles(), (Ids{2, 6}));
    widget.setTopology(WiringGrid::Clear);
    QCOMPARE(circles(), Ids());
}

SETTINGAREA_TEST_MAIN(tst_WiringPainting, QApplication)
#include "tst_WiringPainting.moc"
