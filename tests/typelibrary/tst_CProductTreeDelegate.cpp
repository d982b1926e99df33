#include "tests/support/StoreFixture.h"
#include "tests/support/UpperCase.h"
#include "typelibrary/CProductTreeDelegate.h"
#include "typelibrary/CProductTreeModel.h"

#include <widgetry/CToolTip.h>
#include <widgetry/CTreeView.h>

#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QStandardItemModel>
#include <QSvgRenderer>
#include <QToolTip>

namespace {

// A library in a tree, with the delegate in its last column.
class LibraryView
{
public:
    explicit LibraryView(const QString& library)
    {
        view.setModel(&model);
        view.setRootIndex(model.setRootPath(library));
        delegate = new CProductTreeDelegate(&view);
        view.setItemDelegateForColumn(CProductTreeModel::OperateColumn, delegate);
        // One ground, so that the pictures can be told from it.
        view.setStyleSheet(QStringLiteral("QTreeView, QTreeView::item { background: #102030; border: none }"));
        view.setSelectionMode(QAbstractItemView::NoSelection);
        view.setFocusPolicy(Qt::NoFocus);
        view.resize(900, 300);
        view.show();
        for (int column = 0; column < CProductTreeModel::ColumnCount; ++column)
            view.setColumnWidth(column, 250);
    }

    QModelIndex row(const QString& name) const
    {
        return model.index(model.rootPath() + QLatin1Char('/') + name)
            .siblingAtColumn(CProductTreeModel::OperateColumn);
    }
    QRect rect(const QString& name, int button) const
    {
        return CCellButtonDelegate::buttonRect(view.visualRect(row(name)), button);
    }

    QImage painted(const QString& name, int button)
    {
        QCoreApplication::processEvents();
        return view.viewport()->grab(rect(name, button)).toImage().convertToFormat(QImage::Format_RGB32);
    }
    // The picture of this file on the view's ground.
    static QImage picture(const char* file)
    {
        QImage image(16, 16, QImage::Format_RGB32);
        image.fill(QColor(0x10, 0x20, 0x30));
        QImage icon(image.size(), QImage::Format_ARGB32_Premultiplied);
        icon.fill(Qt::transparent);
        QSvgRenderer renderer(QStringLiteral(":/Image/OperateButton/") + QLatin1String(file));
        QPainter iconPainter(&icon);
        renderer.render(&iconPainter);
        iconPainter.end();
        QPainter(&image).drawImage(0, 0, icon);
        return image;
    }

    CProductTreeModel model;
    CTreeView view;
    CProductTreeDelegate* delegate;
};

} // namespace

class tst_CProductTreeDelegate : public StoreFixture
{
    Q_OBJECT

private Q_SLOTS:
    void sizeHintByColumn();
    void clicks();
    void disabled();
    void pictures();
    void toolTips();
};

void tst_CProductTreeDelegate::sizeHintByColumn()
{
    write(QStringLiteral("Cab.rcvp"), "cab");
    LibraryView shown(library->path());
    QTRY_VERIFY(shown.row(QStringLiteral("Cab.rcvp")).isValid());
    const QModelIndex row = shown.row(QStringLiteral("Cab.rcvp"));
    const QStyleOptionViewItem option;
    QCOMPARE(shown.delegate->sizeHint(option, row.siblingAtColumn(0)), QSize(511, 28));
    QCOMPARE(shown.delegate->sizeHint(option, row.siblingAtColumn(1)), QSize(200, 28));
    QCOMPARE(shown.delegate->sizeHint(option, row), QSize(287, 28));
    QStandardItemModel wider(1, 4);
    QCOMPARE(shown.delegate->sizeHint(option, wider.index(0, 3)), QSize(0, 28));
    QCOMPARE(shown.view.visualRect(row).height(), 28);
}

void tst_CProductTreeDelegate::clicks()
{
    write(QStringLiteral("A.rcvp"), "a");
    write(QStringLiteral("B.rcvp"), "b");
    LibraryView shown(library->path());
    QTRY_VERIFY(shown.row(QStringLiteral("B.rcvp")).isValid());
    QSignalSpy edits(shown.delegate, &CProductTreeDelegate::notifyEditClicked);
    QSignalSpy deletes(shown.delegate, &CProductTreeDelegate::notifyDeleteClicked);
    const QPoint corner = shown.view.visualRect(shown.row(QStringLiteral("B.rcvp"))).topLeft();
    const auto clickAt = [&](int x, int y) {
        QTest::mouseClick(shown.view.viewport(), Qt::LeftButton, {}, corner + QPoint(x, y));
    };
    clickAt(8, 6);
    QCOMPARE(edits.count(), 1);
    QCOMPARE(edits.constFirst().constFirst().toModelIndex(), shown.row(QStringLiteral("B.rcvp")));
    clickAt(23, 21);
    QCOMPARE(edits.count(), 2);
    QCOMPARE(deletes.count(), 0);
    clickAt(32, 6);
    clickAt(47, 21);
    QCOMPARE(edits.count(), 2);
    QCOMPARE(deletes.count(), 2);
    QCOMPARE(deletes.constLast().constFirst().toModelIndex(), shown.row(QStringLiteral("B.rcvp")));
    for (const QPoint& beside : {QPoint(7, 14), QPoint(16, 5), QPoint(16, 22), QPoint(24, 14), QPoint(31, 14),
                                 QPoint(40, 5), QPoint(40, 22), QPoint(48, 14)})
        clickAt(beside.x(), beside.y());
    QCOMPARE(edits.count() + deletes.count(), 4);
}

void tst_CProductTreeDelegate::disabled()
{
    write(QStringLiteral("A.rcvp"), "a");
    LibraryView shown(library->path());
    QTRY_VERIFY(shown.row(QStringLiteral("A.rcvp")).isValid());
    QSignalSpy edits(shown.delegate, &CProductTreeDelegate::notifyEditClicked);
    QSignalSpy deletes(shown.delegate, &CProductTreeDelegate::notifyDeleteClicked);
    const auto clickBoth = [&shown] {
        for (const int button : {0, 1})
            QTest::mouseClick(shown.view.viewport(), Qt::LeftButton, {},
                              shown.rect(QStringLiteral("A.rcvp"), button).center());
    };
    shown.delegate->setEnabled(false);
    clickBoth();
    QCOMPARE(edits.count() + deletes.count(), 0);
    shown.delegate->setEnabled(true);
    clickBoth();
    QCOMPARE(edits.count(), 1);
    QCOMPARE(deletes.count(), 1);
}

void tst_CProductTreeDelegate::pictures()
{
    const QString name = QStringLiteral("A.rcvp");
    write(name, "a");
    LibraryView shown(library->path());
    QTRY_VERIFY(shown.row(name).isValid());
    QWidget* const viewport = shown.view.viewport();
    const auto moveMouse = [viewport](const QPoint& to) {
        QTest::mouseMove(viewport, QPoint(890, 250));
        QTest::mouseMove(viewport, to);
    };
    const char* const files[][3] = {{"edit_normal.svg", "edit_hover.svg", "edit_pressed.svg"},
                                    {"delete_normal.svg", "delete_hover.svg", "delete_pressed.svg"}};
    for (const int button : {0, 1}) {
        const QImage normal = LibraryView::picture(files[button][0]);
        const QImage hover = LibraryView::picture(files[button][1]);
        const QImage pressed = LibraryView::picture(files[button][2]);
        QVERIFY(normal != hover && hover != pressed && pressed != normal);
        moveMouse(QPoint(10, 10));
        QCOMPARE(shown.painted(name, button), normal);
        moveMouse(shown.rect(name, button).center());
        QCOMPARE(shown.painted(name, button), hover);
        QCOMPARE(shown.painted(name, 1 - button), LibraryView::picture(files[1 - button][0]));
        QTest::mousePress(viewport, Qt::LeftButton, {}, shown.rect(name, button).center());
        QCOMPARE(shown.painted(name, button), pressed);
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, shown.rect(name, button).center());
        QCOMPARE(shown.painted(name, button), hover);
    }
}

void tst_CProductTreeDelegate::toolTips()
{
    const QString name = QStringLiteral("A.rcvp");
    write(name, "a");
    LibraryView shown(library->path());
    QTRY_VERIFY(shown.row(name).isValid());
    const auto toolTipOf = [&](int button) {
        QToolTip::hideText();
        const QPoint position = shown.rect(name, button).center();
        QHelpEvent event(QEvent::ToolTip, position, shown.view.viewport()->mapToGlobal(position));
        QCoreApplication::sendEvent(shown.view.viewport(), &event);
        return QToolTip::text();
    };
    QCOMPARE(toolTipOf(0), CToolTip::fromPlainText(QStringLiteral("Rename")));
    QCOMPARE(toolTipOf(1), CToolTip::fromPlainText(QStringLiteral("Delete")));
    const UpperCase otherLanguage;
    QCOMPARE(toolTipOf(0), CToolTip::fromPlainText(QStringLiteral("RENAME")));
    QCOMPARE(toolTipOf(1), CToolTip::fromPlainText(QStringLiteral("DELETE")));
    QToolTip::hideText();
}

SETTINGAREA_TEST_MAIN(tst_CProductTreeDelegate, QApplication)

#include "tst_CProductTreeDelegate.moc"
