#include "tests/cellbuttons/CellButtonTable.h"
#include "tests/support/TestObject.h"

#include <widgetry/CTreeView.h>

#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QTableView>
#include <QTemporaryDir>

namespace {

// A delegate with one button, whose picture, a square that fills it, lies in a file.
struct SvgButton
{
    SvgButton()
    {
        QFile file(path());
        if (!file.open(QIODevice::WriteOnly) ||
            file.write(R"(<svg xmlns="http://www.w3.org/2000/svg" width="16" height="16" viewBox="0 0 16 16">)"
                       R"(<rect width="16" height="16" fill="#ff0000"/></svg>)") < 0)
            qFatal("Cannot write %s", qPrintable(path()));
        file.close();
        delegate = new RecordingDelegate({QIcon(path())}, &view);
    }
    QString path() const { return folder.filePath(QStringLiteral("square.svg")); }

    QImage painted(double scale)
    {
        QImage image((QSizeF(40, 32) * scale).toSize(), QImage::Format_RGB32);
        image.setDevicePixelRatio(scale);
        image.fill(Qt::white);
        QPainter painter(&image);
        QStyleOptionViewItem option;
        option.rect = QRect(1, 2, 35, 28);
        option.state = QStyle::State_Enabled;
        QStandardItemModel model(1, 1);
        delegate->paint(&painter, option, model.index(0, 0));
        return image;
    }

    const QTemporaryDir folder;
    QTableView view;
    RecordingDelegate* delegate;
};

} // namespace

// What a cell shows: which picture of a button, and how sharp.
class tst_CellButtonPainting : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void hover_data();
    void hover();
    void hoverNeedsTheRowUnderTheMouse();
    void pressedPicture();
    void pressEndsOutside();
    void dimmedPicture();
    void nothingButButtons();
    void sharpAtEveryScale_data();
    void sharpAtEveryScale();
    void paintingOpensNoFile();
};

void tst_CellButtonPainting::hover_data()
{
    QTest::addColumn<bool>("isTree");
    QTest::newRow("tree") << true;
    QTest::newRow("table") << false;
}

void tst_CellButtonPainting::hover()
{
    QFETCH(bool, isTree);
    const CellButtonTable table(isTree ? static_cast<QAbstractItemView*>(new CTreeView) : new QTableView);
    table.show();
    QCOMPARE(table.color(1, 0), normalColor);
    table.moveMouse(table.middle(1, 0));
    QTRY_COMPARE(table.color(1, 0), hoverColor);
    QCOMPARE(table.color(1, 1), normalColor);
    QCOMPARE(table.color(2, 0), normalColor);
    table.moveMouse(table.middle(1, 1));
    QTRY_COMPARE(table.color(1, 1), hoverColor);
    QCOMPARE(table.color(1, 0), normalColor);
    // The same row, but no button.
    table.moveMouse(table.cell(1, 0).center());
    QTRY_COMPARE(table.color(1, 1), normalColor);
    table.moveMouse(table.middle(3, 0));
    QTRY_COMPARE(table.color(3, 0), hoverColor);
    QHoverEvent leave(QEvent::HoverLeave, QPointF(-1, -1), table.middle(3, 0));
    QCoreApplication::sendEvent(table.viewport(), &leave);
    QCOMPARE(table.color(3, 0), normalColor);
}

void tst_CellButtonPainting::hoverNeedsTheRowUnderTheMouse()
{
    const CellButtonTable table(new CTreeView);
    table.show();
    table.moveMouse(table.middle(1, 0));
    QTRY_COMPARE(table.color(1, 0), hoverColor);
    const auto paintedColor = [&table](QStyle::State state) {
        QImage image(table.viewport()->size(), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        QStyleOptionViewItem option;
        option.rect = table.cell(1);
        option.state = state;
        table.delegate->paint(&painter, option, table.model.index(1, 1));
        return image.pixelColor(table.middle(1, 0));
    };
    QCOMPARE(paintedColor(QStyle::State_Enabled | QStyle::State_MouseOver), hoverColor);
    QCOMPARE(paintedColor(QStyle::State_Enabled), normalColor);
}

void tst_CellButtonPainting::pressedPicture()
{
    const CellButtonTable table(new CTreeView);
    table.show();
    table.moveMouse(table.middle(1, 0));
    QTest::mousePress(table.viewport(), Qt::LeftButton, {}, table.middle(1, 0));
    QCOMPARE(table.color(1, 0), pressedColor);
    QCOMPARE(table.color(1, 1), normalColor);
    QCOMPARE(table.color(2, 0), normalColor);
    // Wherever the mouse goes meanwhile; other buttons do not light up.
    table.drag(table.middle(1, 1));
    QCOMPARE(table.color(1, 0), pressedColor);
    QCOMPARE(table.color(1, 1), normalColor);
    table.drag(table.middle(1, 0));
    QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, table.middle(1, 0));
    QCOMPARE(table.color(1, 0), hoverColor);
    QCOMPARE(table.delegate->clicks, QStringList{QStringLiteral("1: 0")});
    // A button without a picture for it.
    QTest::mousePress(table.viewport(), Qt::LeftButton, {}, table.middle(1, 1));
    QCOMPARE(table.color(1, 1), hoverColor);
    QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, table.middle(1, 1));
}

void tst_CellButtonPainting::pressEndsOutside()
{
    const CellButtonTable table(new CTreeView);
    table.show();
    for (const QPoint& place : {table.cell(1, 0).center(), table.middle(2, 0), QPoint(200, 290), QPoint(-20, -20)}) {
        QTest::mousePress(table.viewport(), Qt::LeftButton, {}, table.middle(1, 0));
        QCOMPARE(table.color(1, 0), pressedColor);
        QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, place);
        QCOMPARE(table.color(1, 0), normalColor);
    }
}

void tst_CellButtonPainting::dimmedPicture()
{
    const CellButtonTable table(new CTreeView);
    table.view->setStyleSheet(QStringLiteral("QTreeView { background: black }"));
    table.show();
    table.moveMouse(table.middle(1, 0));
    QTRY_COMPARE(table.color(1, 0), hoverColor);
    // 40 % of the normal picture, and no hover.
    const auto isDimmed = [&table](int button) {
        const QColor color = table.color(1, button);
        return qAbs(color.red() - 80) <= 1 && color.green() == 0 && color.blue() == 0;
    };
    table.delegate->setEnabled(false);
    QVERIFY(isDimmed(0) && isDimmed(1));
    table.delegate->setEnabled(true);
    QCOMPARE(table.color(1, 0), hoverColor);
    table.view->setEnabled(false);
    QVERIFY(isDimmed(0) && isDimmed(1));
}

void tst_CellButtonPainting::nothingButButtons()
{
    const CellButtonTable table(new CTreeView);
    table.show();
    const auto cellWith = [&table](const QString& text) {
        table.model.item(1, 1)->setText(text);
        return table.viewport()->grab(table.cell(1)).toImage();
    };
    QCOMPARE(cellWith(QStringLiteral("never shown")), cellWith(QString()));
}

void tst_CellButtonPainting::sharpAtEveryScale_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<QRect>("square"); // in device pixels, of a button at 9, 8 that fills its picture
    QTest::newRow("100 %") << 1.0 << QRect(9, 8, 16, 16);
    QTest::newRow("110 %") << 1.1 << QRect(10, 9, 18, 18);
    QTest::newRow("125 %") << 1.25 << QRect(11, 10, 20, 20);
    QTest::newRow("150 %") << 1.5 << QRect(14, 12, 24, 24);
    QTest::newRow("175 %") << 1.75 << QRect(16, 14, 28, 28);
    QTest::newRow("200 %") << 2.0 << QRect(18, 16, 32, 32);
}

void tst_CellButtonPainting::sharpAtEveryScale()
{
    QFETCH(double, scale);
    QFETCH(QRect, square);
    SvgButton button;
    const QImage image = button.painted(scale);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor expected = square.contains(x, y) ? QColor(Qt::red) : QColor(Qt::white);
            if (image.pixelColor(x, y) != expected)
                QFAIL(qPrintable(QStringLiteral("%1, %2 is %3").arg(x).arg(y).arg(image.pixelColor(x, y).name())));
        }
    }
}

void tst_CellButtonPainting::paintingOpensNoFile()
{
    SvgButton button;
    const QImage first = button.painted(1);
    QCOMPARE(first.pixelColor(9, 8), QColor(Qt::red));
    QVERIFY(QFile::remove(button.path()));
    QCOMPARE(button.painted(1), first);
}

SETTINGAREA_TEST_MAIN(tst_CellButtonPainting, QApplication)

#include "tst_CellButtonPainting.moc"
