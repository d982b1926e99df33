#include "shortcut/CShortCutTabBar.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QImage>

#include <algorithm>
#include <cmath>

class tst_CShortCutTabBar : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void sizes();
    void sizesFollowTheTexts();
    void tabsAreSwitched();
    void outline_data();
    void outline();
    void outlineLiesOverTheTabs();
    void curves_data();
    void curves();
    void noTabs();
};

namespace {

// What the line adds to a black ground: 102/255 of rgb(115,115,128).
constexpr QRgb lineOnBlack = qRgb(46, 46, 51);

// A bar of which only the outline can be seen.
struct Bar
{
    Bar()
    {
        bar.setStyleSheet(QStringLiteral("QTabBar{background:black;} QTabBar::tab{color:black;border:none;}"));
        bar.addTab(QStringLiteral("Layout"));
        bar.addTab(QStringLiteral("Soft edge"));
        bar.resize(bar.sizeHint());
    }

    QImage picture(double scale)
    {
        const QSize size(qCeil(bar.width() * scale), qCeil(bar.height() * scale));
        QImage image(size, QImage::Format_RGB32);
        image.setDevicePixelRatio(scale);
        image.fill(Qt::black);
        bar.render(&image, {}, {}, {});
        return image;
    }

    CShortCutTabBar bar;
};

// Looks at a picture of the bar in the bar's pixels.
class Picture
{
public:
    Picture(const QImage& image, double scale)
        : m_image(image),
          m_scale(scale)
    {
    }

    // Whether the line covers exactly this column of the bar's pixels, seen across the rows from `top` to `bottom`,
    // with nothing beside it for three pixels.
    QString verticalLine(int x, int top, int bottom) const
    {
        for (int row = qCeil(top * m_scale); row < qFloor((bottom + 1) * m_scale); ++row) {
            for (int column = deviceFrom(x - 3); column < deviceTo(x + 4, m_image.width()); ++column) {
                const QString fault = check(column, row, cover(column, x));
                if (!fault.isEmpty())
                    return fault;
            }
        }
        return {};
    }

    // The same for a row.
    QString horizontalLine(int y, int left, int right) const
    {
        for (int column = qCeil(left * m_scale); column < qFloor((right + 1) * m_scale); ++column) {
            for (int row = deviceFrom(y - 3); row < deviceTo(y + 4, m_image.height()); ++row) {
                const QString fault = check(column, row, cover(row, y));
                if (!fault.isEmpty())
                    return fault;
            }
        }
        return {};
    }

    // Whether nothing is drawn in the rectangle of the bar's pixels.
    QString blank(const QRect& rect) const
    {
        for (int y = qCeil(rect.top() * m_scale); y < qFloor((rect.bottom() + 1) * m_scale); ++y) {
            for (int x = qCeil(rect.left() * m_scale); x < qFloor((rect.right() + 1) * m_scale); ++x) {
                const QString fault = check(x, y, 0);
                if (!fault.isEmpty())
                    return fault;
            }
        }
        return {};
    }

private:
    int deviceFrom(int coordinate) const { return std::max(0, qCeil(coordinate * m_scale)); }
    int deviceTo(int coordinate, int end) const { return std::min(end, qFloor(coordinate * m_scale)); }

    // The part of the device's column or row that lies in the bar's.
    double cover(int device, int coordinate) const
    {
        const double from = std::max<double>(device, coordinate * m_scale);
        const double to = std::min<double>(device + 1, (coordinate + 1) * m_scale);
        return std::max(0.0, to - from);
    }

    QString check(int x, int y, double cover) const
    {
        const QRgb pixel = m_image.pixel(x, y);
        const bool whole = qFuzzyIsNull(cover) || qFuzzyCompare(cover, 1.0);
        const int tolerance = whole ? 0 : 2;
        const auto isRight = [&](int part, int full) { return std::abs(part - qRound(full * cover)) <= tolerance; };
        if (isRight(qRed(pixel), qRed(lineOnBlack)) && isRight(qGreen(pixel), qGreen(lineOnBlack)) &&
            isRight(qBlue(pixel), qBlue(lineOnBlack)))
            return {};
        return QStringLiteral("(%1, %2) is %3 where the line covers %4")
            .arg(x)
            .arg(y)
            .arg(QColor(pixel).name())
            .arg(cover);
    }

    const QImage m_image;
    const double m_scale;
};

#define VERIFY_NO_FAULT(call)                                                                                          \
    do {                                                                                                               \
        const QString fault = call;                                                                                    \
        QVERIFY2(fault.isEmpty(), qPrintable(fault));                                                                  \
    } while (false)

} // namespace

void tst_CShortCutTabBar::sizes()
{
    Bar b;
    QCOMPARE(b.bar.objectName(), QStringLiteral("ShortCut"));
    const int layout = b.bar.fontMetrics().horizontalAdvance(QStringLiteral("Layout"));
    const int softEdge = b.bar.fontMetrics().horizontalAdvance(QStringLiteral("Soft edge"));
    QCOMPARE(b.bar.tabRect(0), QRect(0, 0, layout + 30, 37));
    QCOMPARE(b.bar.tabRect(1), QRect(layout + 30, 0, softEdge + 30, 37));
    QCOMPARE(b.bar.sizeHint(), QSize(layout + 30 + softEdge + 30 + 50, 37));
}

void tst_CShortCutTabBar::sizesFollowTheTexts()
{
    Bar b;
    b.bar.setTabText(0, QStringLiteral("A much longer text"));
    QFont font = b.bar.font();
    font.setPixelSize(20);
    b.bar.setFont(font);
    const int first = b.bar.fontMetrics().horizontalAdvance(QStringLiteral("A much longer text"));
    const int second = b.bar.fontMetrics().horizontalAdvance(QStringLiteral("Soft edge"));
    QCOMPARE(b.bar.tabRect(0).size(), QSize(first + 30, 37));
    QCOMPARE(b.bar.sizeHint(), QSize(first + second + 110, 37));
}

void tst_CShortCutTabBar::tabsAreSwitched()
{
    Bar b;
    b.bar.show();
    QTest::mouseClick(&b.bar, Qt::LeftButton, {}, b.bar.tabRect(1).center());
    QCOMPARE(b.bar.currentIndex(), 1);
    QTest::keyClick(&b.bar, Qt::Key_Left);
    QCOMPARE(b.bar.currentIndex(), 0);
}

void tst_CShortCutTabBar::outline_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<double>("scale");
    for (const double scale : {1.0, 1.5, 2.0}) {
        for (const int tab : {0, 1})
            QTest::addRow("tab %d at scale %.1f", tab, scale) << tab << scale;
    }
}

void tst_CShortCutTabBar::outline()
{
    QFETCH(int, tab);
    QFETCH(double, scale);
    Bar b;
    b.bar.setCurrentIndex(tab);
    const Picture picture(b.picture(scale), scale);
    const int width = b.bar.width() - 1;
    const int left = b.bar.tabRect(tab).left();
    const int top = b.bar.tabRect(tab).top();
    const int right = b.bar.tabRect(tab).right();
    const int bottom = b.bar.tabRect(tab).bottom();
    QCOMPARE(top, 0);
    QCOMPARE(bottom, b.bar.height() - 1);

    // The straight lines, to where the curves begin.
    VERIFY_NO_FAULT(picture.horizontalLine(bottom, 0, left - 3));
    VERIFY_NO_FAULT(picture.verticalLine(left + 2, top + 6, bottom - 6));
    VERIFY_NO_FAULT(picture.horizontalLine(top + 1, left + 7, right - 5));
    VERIFY_NO_FAULT(picture.verticalLine(right, top + 6, bottom - 6));
    VERIFY_NO_FAULT(picture.horizontalLine(bottom, right + 5, width));

    // The tab is open below and nothing is above or beside it.
    VERIFY_NO_FAULT(picture.blank(QRect(QPoint(left + 4, top + 4), QPoint(right - 2, bottom))));
    VERIFY_NO_FAULT(picture.blank(QRect(QPoint(0, 0), QPoint(width, 0))));
    VERIFY_NO_FAULT(picture.blank(QRect(QPoint(0, 0), QPoint(left - 1, bottom - 3))));
    VERIFY_NO_FAULT(picture.blank(QRect(QPoint(right + 2, 0), QPoint(width, bottom - 3))));
}

void tst_CShortCutTabBar::outlineLiesOverTheTabs()
{
    Bar b;
    b.bar.setStyleSheet(QStringLiteral("QTabBar::tab{background:rgb(0,0,200);color:rgb(0,200,0);border:none;}"));
    const QImage image = b.picture(1);
    const QRect tab = b.bar.tabRect(0);
    const auto colorAt = [&image](int x, int y) { return QColor(image.pixel(x, y)); };
    QCOMPARE(colorAt(tab.left() + 6, 10), QColor(0, 0, 200));
    QCOMPARE(colorAt(b.bar.tabRect(1).left() + 6, 10), QColor(0, 0, 200));
    // Two fifths of the line over the tab.
    QCOMPARE(colorAt(tab.left() + 2, 18), QColor(46, 46, 171));
    QCOMPARE(colorAt(tab.center().x(), 1), QColor(46, 46, 171));
    bool hasText = false;
    for (int x = tab.left() + 10; x < tab.right() - 10; ++x)
        hasText = hasText || colorAt(x, tab.center().y()).green() > 100;
    QVERIFY(hasText);
}

void tst_CShortCutTabBar::curves_data()
{
    QTest::addColumn<int>("tab");
    QTest::newRow("first") << 0;
    QTest::newRow("second") << 1;
}

// Flares at the bottom and rounded corners at the top, each followed in a picture of eight times the size.
void tst_CShortCutTabBar::curves()
{
    QFETCH(int, tab);
    constexpr double scale = 8;
    Bar b;
    b.bar.setCurrentIndex(tab);
    const QImage image = b.picture(scale);
    const QRect rect = b.bar.tabRect(tab);
    const double l = rect.left();
    const double t = rect.top();
    const double r = rect.right();
    const double e = rect.bottom();
    // The start, which is the first control point too, the second control point, and the end.
    const QVector<QPointF> curves[] = {
        {{l - 1, e}, {l + 2, e}, {l + 2, e - 3}},
        {{l + 2, t + 4}, {l + 2, t + 1}, {l + 5, t + 1}},
        {{r - 3, t + 1}, {r, t + 1}, {r, t + 4}},
        {{r, e - 3}, {r, e}, {r + 3, e}},
    };
    const auto colorAt = [&](const QPointF& point) {
        const QPointF device = (point + QPointF(0.5, 0.5)) * scale;
        const QPoint pixel(qFloor(device.x()), qFloor(device.y()));
        return image.rect().contains(pixel) ? image.pixel(pixel) : qRgb(1, 2, 3);
    };
    for (const QVector<QPointF>& c : curves) {
        const auto at = [&c](double p) {
            const double q = 1 - p;
            return c[0] * (q * q * q + 3 * p * q * q) + c[1] * (3 * p * p * q) + c[2] * (p * p * p);
        };
        for (const double p : {0.2, 0.35, 0.5, 0.65, 0.8}) {
            const QPointF point = at(p);
            if (point.x() < 0)
                continue; // left of the bar
            QCOMPARE(QColor(colorAt(point)), QColor(lineOnBlack));
            const QPointF along = at(p + 0.01) - at(p - 0.01);
            const QPointF aside = QPointF(-along.y(), along.x()) / std::hypot(along.x(), along.y()) * 0.8;
            for (const QPointF& beside : {point + aside, point - aside}) {
                const QRgb color = colorAt(beside);
                QVERIFY(color == qRgb(0, 0, 0) || color == qRgb(1, 2, 3));
            }
        }
    }
}

void tst_CShortCutTabBar::noTabs()
{
    CShortCutTabBar bar;
    QCOMPARE(bar.sizeHint().width(), 50);
    bar.setStyleSheet(QStringLiteral("QTabBar{background:black;}"));
    bar.resize(100, 37);
    QImage image(bar.size(), QImage::Format_RGB32);
    bar.render(&image, {}, {}, {});
    VERIFY_NO_FAULT(Picture(image, 1).blank(bar.rect()));
}

SETTINGAREA_TEST_MAIN(tst_CShortCutTabBar, QApplication)
#include "tst_CShortCutTabBar.moc"
