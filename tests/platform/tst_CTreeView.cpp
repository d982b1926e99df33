#include "tests/support/TestObject.h"

#include <widgetry/CTreeView.h>

#include <QApplication>
#include <QStandardItemModel>
#include <QStyledItemDelegate>

namespace {

// Notes the rows that were last painted as being under the mouse.
class HoverDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        if (option.state & QStyle::State_MouseOver)
            hovered.append(index.row());
        QStyledItemDelegate::paint(painter, option, index);
    }

    mutable QVector<int> hovered;
};

} // namespace

class tst_CTreeView : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowUnderTheMouse();
    void keys();
};

void tst_CTreeView::rowUnderTheMouse()
{
    QStandardItemModel model(5, 1);
    HoverDelegate delegate;
    CTreeView view;
    view.setModel(&model);
    view.setItemDelegate(&delegate);
    view.resize(200, 200);
    QSignalSpy entered(&view, &QAbstractItemView::entered);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QTest::mouseMove(view.viewport(), view.visualRect(model.index(1, 0)).center());
    QTRY_VERIFY(delegate.hovered.contains(1));
    delegate.hovered.clear();
    QTest::mouseMove(view.viewport(), view.visualRect(model.index(3, 0)).center());
    QTRY_VERIFY(delegate.hovered.contains(3));
    QVERIFY(!delegate.hovered.contains(1));
    QVERIFY(entered.count() >= 1);
    QCOMPARE(entered.constLast().constFirst().value<QModelIndex>().row(), 3);
}

void tst_CTreeView::keys()
{
    QStandardItemModel model(2, 1);
    for (int row = 0; row < 2; ++row)
        model.setItem(row, new QStandardItem(QString::number(row)));
    model.item(0)->appendRow(new QStandardItem(QStringLiteral("child")));
    CTreeView view;
    view.setModel(&model);
    view.setCurrentIndex(model.index(0, 0));
    view.show();
    QTest::keyClick(&view, Qt::Key_Right);
    QVERIFY(view.isExpanded(model.index(0, 0)));
    QTest::keyClick(&view, Qt::Key_Down);
    QCOMPARE(view.currentIndex(), model.index(0, 0, model.index(0, 0)));
    QTest::keyClick(&view, Qt::Key_Left);
    QTest::keyClick(&view, Qt::Key_Left);
    QVERIFY(!view.isExpanded(model.index(0, 0)));
}

SETTINGAREA_TEST_MAIN(tst_CTreeView, QApplication)
#include "tst_CTreeView.moc"
