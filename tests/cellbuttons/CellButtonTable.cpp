#include "tests/cellbuttons/CellButtonTable.h"

#include <QMouseEvent>
#include <QtTest>

namespace {

QPixmap square(const QColor& color)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(color);
    return pixmap;
}

QIcon colorIcon(bool withPressed)
{
    QIcon icon(square(normalColor));
    icon.addPixmap(square(hoverColor), QIcon::Active);
    if (withPressed)
        icon.addPixmap(square(pressedColor), QIcon::Active, QIcon::On);
    return icon;
}

} // namespace

QSize RecordingDelegate::sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& /*index*/) const
{
    return {100, 28};
}

QString RecordingDelegate::toolTip(int button) const
{
    return QStringLiteral("<b>%1").arg(button);
}

void RecordingDelegate::clicked(const QModelIndex& index, int button)
{
    clicks.append(QStringLiteral("%1: %2").arg(index.row()).arg(button));
    whenClicked();
}

CellButtonTable::CellButtonTable(QAbstractItemView* itemView)
    : view(itemView),
      model(4, 2),
      delegate(new RecordingDelegate({colorIcon(true), colorIcon(false)}, itemView))
{
    for (int row = 0; row < model.rowCount(); ++row) {
        model.setItem(row, 0, new QStandardItem(QStringLiteral("name")));
        model.setItem(row, 1, new QStandardItem(QStringLiteral("never shown")));
    }
    view->setModel(&model);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setSelectionMode(QAbstractItemView::SingleSelection);
    view->setItemDelegateForColumn(1, delegate);
    view->resize(400, 300);
}

void CellButtonTable::show() const
{
    view->show();
    QVERIFY(QTest::qWaitForWindowExposed(view.get()));
}

void CellButtonTable::moveMouse(const QPoint& to) const
{
    QTest::mouseMove(viewport(), QPoint(390, 250));
    QTest::mouseMove(viewport(), to);
}

void CellButtonTable::drag(const QPoint& to) const
{
    QMouseEvent move(QEvent::MouseMove, to, viewport()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(viewport(), &move);
}

QColor CellButtonTable::colorAt(const QPoint& position) const
{
    QCoreApplication::processEvents();
    const QPixmap all = viewport()->grab();
    return all.toImage().pixelColor(position * all.devicePixelRatio());
}
