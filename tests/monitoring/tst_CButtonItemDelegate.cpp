#include "monitoring/CButtonItemDelegate.h"
#include "monitoring/CEmailTableWidget.h"
#include "tests/support/TestObject.h"
#include "tests/support/UpperCase.h"

#include <widgetry/CToolTip.h>

#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QSignalSpy>
#include <QSvgRenderer>
#include <QToolTip>

namespace {

// A table of three recipients.
struct Table
{
    Table()
    {
        table.setRecipients({{QStringLiteral("Ann"), QStringLiteral("ann@host.com")},
                             {QStringLiteral("Bob"), QStringLiteral("bob@host.com")},
                             {QStringLiteral("Cay"), QStringLiteral("cay@host.com")}});
        table.show();
    }

    QRect button(int row, int number) const
    {
        const QRect cell = table.visualRect(table.model()->index(row, CEmailTableWidget::OperationColumn));
        return CButtonItemDelegate::buttonRect(cell, number);
    }
    void click(const QPoint& position) { QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, position); }
    QImage painted(int row, int number)
    {
        const QRect rect = button(row, number);
        QImage image(rect.size(), QImage::Format_RGB32);
        table.viewport()->render(&image, {}, rect);
        return image;
    }
    // An icon on the ground of the row.
    QImage icon(int row, const char* file) const
    {
        QImage image(16, 16, QImage::Format_RGB32);
        image.fill(table.palette().color(row % 2 == 0 ? QPalette::Base : QPalette::AlternateBase));
        QSvgRenderer renderer(QStringLiteral(":/Image/OperateButton/") + QLatin1String(file));
        QImage picture(16, 16, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        QPainter picturePainter(&picture);
        renderer.render(&picturePainter);
        picturePainter.end();
        QPainter(&image).drawImage(0, 0, picture);
        return image;
    }
    QString toolTipAt(const QPoint& position)
    {
        QToolTip::showText(position, QStringLiteral("nothing"), table.viewport());
        QHelpEvent event(QEvent::ToolTip, position, table.viewport()->mapToGlobal(position));
        QCoreApplication::sendEvent(table.viewport(), &event);
        return QToolTip::text();
    }

    CEmailTableWidget table;
};

} // namespace

class tst_CButtonItemDelegate : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void clicks();
    void onlyInItsColumn();
    void pictures();
    void toolTips();
};

void tst_CButtonItemDelegate::clicks()
{
    Table shown;
    QSignalSpy clicks(shown.table.buttons(), &CButtonItemDelegate::notifyBtnClicked);
    for (const int row : {2, 0}) {
        for (const int number : {0, 1}) {
            for (const QPoint& position :
                 {shown.button(row, number).topLeft(), shown.button(row, number).bottomRight()}) {
                clicks.clear();
                shown.click(position);
                QCOMPARE(clicks.count(), 1);
                QCOMPARE(clicks.at(0).at(0).toModelIndex(), shown.table.model()->index(row, 2));
                QCOMPARE(clicks.at(0).at(1).toInt(), number);
            }
        }
    }
    clicks.clear();
    shown.click(shown.button(1, 0).topLeft() - QPoint(1, 0));
    shown.click(shown.button(1, 0).bottomRight() + QPoint(1, 0));
    shown.click(shown.button(1, 1).bottomRight() + QPoint(0, 1));
    QTest::mousePress(shown.table.viewport(), Qt::LeftButton, {}, shown.button(1, 0).center());
    QTest::mouseRelease(shown.table.viewport(), Qt::LeftButton, {}, shown.button(1, 1).center());
    QCOMPARE(clicks.count(), 0);
}

void tst_CButtonItemDelegate::onlyInItsColumn()
{
    Table shown;
    QSignalSpy clicks(shown.table.buttons(), &CButtonItemDelegate::notifyBtnClicked);
    for (const int column : {0, 1}) {
        QVERIFY(shown.table.itemDelegate(shown.table.model()->index(0, column)) != shown.table.buttons());
        const QRect cell = shown.table.visualRect(shown.table.model()->index(0, column));
        shown.click(CButtonItemDelegate::buttonRect(cell, 0).center());
    }
    QCOMPARE(clicks.count(), 0);
    QCOMPARE(shown.table.itemDelegateForColumn(2), shown.table.buttons());
}

void tst_CButtonItemDelegate::pictures()
{
    Table shown;
    const auto moveMouse = [&shown](const QPoint& to) {
        QTest::mouseMove(shown.table.viewport(), QPoint(200, 140));
        QTest::mouseMove(shown.table.viewport(), to);
    };
    const char* const files[][2] = {{"edit_normal.svg", "edit_hover.svg"}, {"delete_normal.svg", "delete_hover.svg"}};
    for (const int number : {0, 1}) {
        moveMouse(QPoint(10, 10));
        QCOMPARE(shown.painted(1, number), shown.icon(1, files[number][0]));
        QCOMPARE(shown.painted(2, number), shown.icon(2, files[number][0]));
        moveMouse(shown.button(1, number).center());
        QCOMPARE(shown.painted(1, number), shown.icon(1, files[number][1]));
        QCOMPARE(shown.painted(1, 1 - number), shown.icon(1, files[1 - number][0]));
        QCOMPARE(shown.painted(2, number), shown.icon(2, files[number][0]));
    }
}

void tst_CButtonItemDelegate::toolTips()
{
    Table shown;
    QCOMPARE(shown.toolTipAt(shown.button(1, 0).center()), CToolTip::fromPlainText(QStringLiteral("Edit")));
    QCOMPARE(shown.toolTipAt(shown.button(1, 1).center()), CToolTip::fromPlainText(QStringLiteral("Delete")));
    QCOMPARE(shown.toolTipAt(shown.button(1, 1).bottomRight() + QPoint(1, 0)), QStringLiteral("nothing"));
    const UpperCase language;
    QCOMPARE(shown.toolTipAt(shown.button(1, 0).center()), CToolTip::fromPlainText(QStringLiteral("EDIT")));
    QCOMPARE(shown.toolTipAt(shown.button(1, 1).center()), CToolTip::fromPlainText(QStringLiteral("DELETE")));
    QToolTip::hideText();
}

SETTINGAREA_TEST_MAIN(tst_CButtonItemDelegate, QApplication)

#include "tst_CButtonItemDelegate.moc"
