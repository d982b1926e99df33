#include "tests/cellbuttons/CellButtonTable.h"
#include "tests/support/TestObject.h"

#include <widgetry/CToolTip.h>
#include <widgetry/CTreeView.h>

#include <QApplication>
#include <QHelpEvent>
#include <QTableView>
#include <QToolTip>

// Where the buttons are, and what the mouse does with them.
class tst_CCellButtonDelegate : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void rects();
    void hitBox_data();
    void hitBox();
    void clickNeedsPressAndReleaseInside();
    void otherMouseButtons();
    void pressMakesTheRowCurrent();
    void pressAndDragSelectsNothing();
    void quickClicksAllCount();
    void disabled();
    void cellNarrowerThanItsButtons();
    void toolTips();
    void viewDestroyedByClick();
    void rowRemovedWhilePressed();
    void viewWithoutModel();
};

void tst_CCellButtonDelegate::rects()
{
    QCOMPARE(CCellButtonDelegate::buttonRect(QRect(100, 56, 287, 28), 0), QRect(108, 62, 16, 16));
    QCOMPARE(CCellButtonDelegate::buttonRect(QRect(100, 56, 287, 28), 1), QRect(132, 62, 16, 16));
    QCOMPARE(CCellButtonDelegate::buttonRect(QRect(0, 0, 10, 10), 2), QRect(56, 6, 16, 16));
}

void tst_CCellButtonDelegate::hitBox_data()
{
    QTest::addColumn<QPoint>("position"); // from the cell's corner
    QTest::addColumn<QStringList>("clicks");
    const auto hits = [](int button) { return QStringList{QStringLiteral("1: %1").arg(button)}; };
    QTest::newRow("first, top left") << QPoint(8, 6) << hits(0);
    QTest::newRow("first, bottom right") << QPoint(23, 21) << hits(0);
    QTest::newRow("left of the first") << QPoint(7, 6) << QStringList();
    QTest::newRow("above the first") << QPoint(8, 5) << QStringList();
    QTest::newRow("right of the first") << QPoint(24, 21) << QStringList();
    QTest::newRow("below the first") << QPoint(23, 22) << QStringList();
    QTest::newRow("left of the second") << QPoint(31, 6) << QStringList();
    QTest::newRow("second, top left") << QPoint(32, 6) << hits(1);
    QTest::newRow("second, bottom right") << QPoint(47, 21) << hits(1);
    QTest::newRow("right of the second") << QPoint(48, 21) << QStringList();
}

void tst_CCellButtonDelegate::hitBox()
{
    QFETCH(QPoint, position);
    QFETCH(QStringList, clicks);
    const CellButtonTable table(new QTableView);
    table.show();
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.cell(1).topLeft() + position);
    QCOMPARE(table.delegate->clicks, clicks);
}

void tst_CCellButtonDelegate::clickNeedsPressAndReleaseInside()
{
    const CellButtonTable table(new CTreeView);
    table.show();
    const auto pressAndRelease = [&table](const QPoint& from, const QPoint& to) {
        QTest::mousePress(table.viewport(), Qt::LeftButton, {}, from);
        QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, to);
    };
    pressAndRelease(table.middle(1, 0), table.middle(1, 1));                          // another button
    pressAndRelease(table.middle(1, 0), table.middle(2, 0));                          // the same one of another row
    pressAndRelease(table.middle(1, 0), table.cell(1, 0).center());                   // another column
    pressAndRelease(table.middle(1, 0), QPoint(200, 290));                            // below all rows
    pressAndRelease(table.middle(1, 0), QPoint(-20, -20));                            // outside the view
    pressAndRelease(table.middle(1, 0), table.button(1, 0).topLeft() - QPoint(1, 0)); // beside it
    pressAndRelease(table.cell(1, 0).center(), table.middle(1, 0));                   // pressed elsewhere
    pressAndRelease(QPoint(200, 290), table.middle(1, 0));
    QCOMPARE(table.delegate->clicks, QStringList());
    pressAndRelease(table.button(1, 0).topLeft(), table.button(1, 0).bottomRight());
    QCOMPARE(table.delegate->clicks, QStringList{QStringLiteral("1: 0")});
}

void tst_CCellButtonDelegate::otherMouseButtons()
{
    const CellButtonTable table(new CTreeView);
    table.show();
    QTest::mouseClick(table.viewport(), Qt::RightButton, {}, table.middle(1, 0));
    QTest::mouseClick(table.viewport(), Qt::MiddleButton, {}, table.middle(1, 1));
    QCOMPARE(table.delegate->clicks, QStringList());
    // A right button that comes in between, and brings a menu up, ends the press.
    QTest::mousePress(table.viewport(), Qt::LeftButton, {}, table.middle(1, 0));
    QTest::mousePress(table.viewport(), Qt::RightButton, {}, table.middle(1, 0));
    QCOMPARE(table.color(1, 0), normalColor);
    QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, table.middle(1, 0));
    QCOMPARE(table.delegate->clicks, QStringList());
    // The release of a right button does not.
    QTest::mousePress(table.viewport(), Qt::LeftButton, {}, table.middle(1, 0));
    QTest::mouseRelease(table.viewport(), Qt::RightButton, {}, table.middle(1, 0));
    QCOMPARE(table.delegate->clicks, QStringList());
    QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, table.middle(1, 0));
    QCOMPARE(table.delegate->clicks, QStringList{QStringLiteral("1: 0")});
}

void tst_CCellButtonDelegate::pressMakesTheRowCurrent()
{
    const CellButtonTable table(new CTreeView);
    table.show();
    QTest::mousePress(table.viewport(), Qt::LeftButton, {}, table.middle(2, 0));
    QCOMPARE(table.currentRow(), 2);
    QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, table.middle(2, 0));
    QCOMPARE(table.view->selectionModel()->selectedRows().size(), 1);
    // The view has not kept the press: the next one works as ever.
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.cell(0, 0).center());
    QCOMPARE(table.currentRow(), 0);
    QCOMPARE(table.delegate->clicks, QStringList{QStringLiteral("2: 0")});
}

void tst_CCellButtonDelegate::pressAndDragSelectsNothing()
{
    const CellButtonTable table(new CTreeView);
    table.show();
    QTest::mousePress(table.viewport(), Qt::LeftButton, {}, table.middle(0, 0));
    table.drag(table.cell(1, 0).center());
    table.drag(table.cell(2, 0).center());
    QCOMPARE(table.currentRow(), 0);
    QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, table.cell(2, 0).center());
    QCOMPARE(table.currentRow(), 0);
    // A drag that did not begin on a button does.
    QTest::mousePress(table.viewport(), Qt::LeftButton, {}, table.cell(0, 0).center());
    table.drag(table.cell(2, 0).center());
    QCOMPARE(table.currentRow(), 2);
    QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, table.cell(2, 0).center());
}

// What comes soon after a click arrives as a double click. It neither gets lost nor opens the row.
void tst_CCellButtonDelegate::quickClicksAllCount()
{
    for (QAbstractItemView* view :
         {static_cast<QAbstractItemView*>(new CTreeView), static_cast<QAbstractItemView*>(new QTableView)}) {
        CellButtonTable table(view);
        table.model.item(1)->appendRow(new QStandardItem(QStringLiteral("child")));
        table.show();
        table.moveMouse(table.middle(1, 0));
        const QSignalSpy doubleClicked(view, &QAbstractItemView::doubleClicked);
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.middle(1, 0));
        QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, table.middle(1, 0));
        QCOMPARE(table.color(1, 0), pressedColor);
        QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, table.middle(1, 0));
        QCOMPARE(table.delegate->clicks, QStringList({QStringLiteral("1: 0"), QStringLiteral("1: 0")}));
        QCOMPARE(table.color(1, 0), hoverColor);
        QCOMPARE(doubleClicked.count(), 0);
        if (const auto* const opened = qobject_cast<QTreeView*>(view))
            QVERIFY(!opened->isExpanded(table.model.index(1, 0)));
        // Beside the buttons it is the view's.
        const QPoint beside = table.button(1, 1).topRight() + QPoint(4, 0);
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, beside);
        QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, beside);
        QCOMPARE(doubleClicked.count(), 1);
    }
}

void tst_CCellButtonDelegate::disabled()
{
    const CellButtonTable table(new CTreeView);
    table.show();
    QVERIFY(table.delegate->isEnabled());
    table.delegate->setEnabled(false);
    QVERIFY(!table.delegate->isEnabled());
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.middle(1, 0));
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.middle(1, 1));
    QCOMPARE(table.delegate->clicks, QStringList());
    QCOMPARE(table.currentRow(), 1); // a cell like any other

    table.delegate->setEnabled(true);
    QTest::mousePress(table.viewport(), Qt::LeftButton, {}, table.middle(1, 0));
    table.delegate->setEnabled(false);
    table.delegate->setEnabled(true);
    QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, table.middle(1, 0));
    QCOMPARE(table.delegate->clicks, QStringList());
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.middle(1, 1));
    QCOMPARE(table.delegate->clicks, QStringList{QStringLiteral("1: 1")});
}

// What is cut off is neither painted nor clicked: a neighbour's cell begins there.
void tst_CCellButtonDelegate::cellNarrowerThanItsButtons()
{
    auto* const view = new QTableView;
    const CellButtonTable table(view);
    view->setColumnWidth(1, 40);
    table.show();
    const QPoint corner = table.button(1, 1).topLeft();
    const int end = table.cell(1).right();
    QVERIFY(end < table.button(1, 1).right());
    QCOMPARE(table.colorAt({end - 1, corner.y() + 8}), normalColor);
    QVERIFY(table.colorAt({end + 2, corner.y() + 8}) != normalColor);
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, QPoint(end + 1, corner.y()));
    QCOMPARE(table.delegate->clicks, QStringList());
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, QPoint(end, corner.y()));
    QCOMPARE(table.delegate->clicks, QStringList{QStringLiteral("1: 1")});
}

void tst_CCellButtonDelegate::toolTips()
{
    const CellButtonTable table(new CTreeView);
    table.show();
    const auto ask = [&table](const QPoint& position, QEvent::Type type = QEvent::ToolTip) {
        QToolTip::hideText();
        QHelpEvent event(type, position, table.viewport()->mapToGlobal(position));
        QStyleOptionViewItem option;
        option.rect = table.cell(1);
        return table.delegate->helpEvent(&event, table.view.get(), option, table.model.index(1, 1));
    };
    QVERIFY(ask(table.middle(1, 0)));
    QCOMPARE(QToolTip::text(), CToolTip::fromPlainText(QStringLiteral("<b>0")));
    QVERIFY(ask(table.middle(1, 1)));
    QCOMPARE(QToolTip::text(), CToolTip::fromPlainText(QStringLiteral("<b>1")));
    QVERIFY(!ask(table.middle(1, 0), QEvent::WhatsThis));

    // Between the buttons the model's own tooltip is shown, as in any cell.
    QVERIFY(!ask(table.cell(1).topLeft()));
    table.model.item(1, 1)->setToolTip(QStringLiteral("from the model"));
    QVERIFY(ask(table.cell(1).topLeft()));
    QCOMPARE(QToolTip::text(), QStringLiteral("from the model"));

    // It goes when the mouse leaves the button.
    QVERIFY(ask(table.middle(1, 0)));
    QTest::mouseMove(table.viewport(), table.button(1, 0).bottomRight());
    QVERIFY(QToolTip::isVisible());
    QTest::mouseMove(table.viewport(), table.button(1, 0).bottomRight() + QPoint(2, 0));
    QTRY_VERIFY(!QToolTip::isVisible());
}

void tst_CCellButtonDelegate::viewDestroyedByClick()
{
    for (QAbstractItemView* view :
         {static_cast<QAbstractItemView*>(new CTreeView), static_cast<QAbstractItemView*>(new QTableView)}) {
        CellButtonTable table(view);
        table.show();
        QString clicked;
        table.delegate->whenClicked = [&table, &clicked] {
            clicked = table.delegate->clicks.constFirst();
            table.view.reset();
        };
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.middle(1, 0));
        QCOMPARE(clicked, QStringLiteral("1: 0"));
        QCOMPARE(table.view.get(), nullptr);
    }
}

void tst_CCellButtonDelegate::rowRemovedWhilePressed()
{
    CellButtonTable table(new CTreeView);
    table.show();
    const QPoint place = table.middle(1, 0);
    QTest::mousePress(table.viewport(), Qt::LeftButton, {}, place);
    table.model.removeRow(1);
    QCOMPARE(table.color(1, 0), normalColor); // the row that has moved up
    QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(table.delegate->clicks, QStringList());
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(table.delegate->clicks, QStringList{QStringLiteral("1: 0")});
}

void tst_CCellButtonDelegate::viewWithoutModel()
{
    const CellButtonTable table(new CTreeView);
    table.show();
    const QPoint place = table.middle(0, 0);
    table.view->setModel(nullptr);
    table.moveMouse(place);
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(table.delegate->clicks, QStringList());
}

SETTINGAREA_TEST_MAIN(tst_CCellButtonDelegate, QApplication)

#include "tst_CCellButtonDelegate.moc"
