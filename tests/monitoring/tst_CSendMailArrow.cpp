#include "monitoring/CSendMailArrow.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QPainter>

class tst_CSendMailArrow : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void hasOneSize();
    void threeStrips_data();
    void threeStrips();
};

void tst_CSendMailArrow::hasOneSize()
{
    QWidget window;
    auto* const layout = new QHBoxLayout(&window);
    auto* const arrow = new CSendMailArrow(&window);
    layout->addWidget(arrow);
    QCOMPARE(arrow->sizeHint(), QSize(65, 50));
    QCOMPARE(arrow->sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed));
    window.resize(500, 400);
    window.show();
    QCOMPARE(arrow->size(), QSize(65, 50));
}

void tst_CSendMailArrow::threeStrips_data()
{
    QTest::addColumn<int>("scale");
    QTest::newRow("1") << 1;
    QTest::newRow("2") << 2;
    QTest::newRow("3") << 3;
}

// Each strip has something from the left edge to the right one; nothing is between them.
void tst_CSendMailArrow::threeStrips()
{
    QFETCH(int, scale);
    CSendMailArrow arrow;
    arrow.resize(arrow.sizeHint());
    QImage picture(arrow.size() * scale, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    arrow.render(&picture, {}, {}, QWidget::DrawChildren);

    QVector<bool> isPainted;
    for (int y = 0; y < picture.height(); ++y) {
        int first = -1;
        int last = -1;
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixelColor(x, y).alpha() > 0) {
                first = first < 0 ? x : first;
                last = x;
            }
        }
        isPainted.append(last >= 0);
        const int row = y / scale;
        const bool isMiddle = row == 7 || row == 27 || row == 47;
        if (isMiddle && y % scale == scale / 2) {
            QCOMPARE(first, 0);
            QVERIFY(last >= picture.width() - scale - 1);
        }
    }
    for (int y = 0; y < picture.height(); ++y) {
        const int row = y / scale;
        const bool isStrip = (row >= 5 && row < 10) || (row >= 25 && row < 30) || row >= 45;
        QVERIFY2(isStrip || !isPainted.at(y), qPrintable(QString::number(y)));
    }
}

SETTINGAREA_TEST_MAIN(tst_CSendMailArrow, QApplication)

#include "tst_CSendMailArrow.moc"
