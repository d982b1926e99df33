#include "typelibrary/CProductTreeDelegate.h"

#include "typelibrary/CProductTreeModel.h"

#include <QAbstractItemView>

namespace {

enum Button
{
    EditButton,
    DeleteButton,
};

constexpr int rowHeight = 28;
constexpr int nameColumnWidth = 511;
constexpr int resolutionColumnWidth = 200;
constexpr int operateColumnWidth = 287;

} // namespace

CProductTreeDelegate::CProductTreeDelegate(QAbstractItemView* view)
    : CCellButtonDelegate({operationIcon(QStringLiteral("edit")), operationIcon(QStringLiteral("delete"))}, view)
{
}

QSize CProductTreeDelegate::sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& index) const
{
    switch (index.column()) {
    case CProductTreeModel::NameColumn:
        return {nameColumnWidth, rowHeight};
    case CProductTreeModel::ResolutionColumn:
        return {resolutionColumnWidth, rowHeight};
    case CProductTreeModel::OperateColumn:
        return {operateColumnWidth, rowHeight};
    default:
        return {0, rowHeight};
    }
}

QString CProductTreeDelegate::toolTip(int button) const
{
    switch (button) {
    case EditButton:
        return tr("Rename");
    case DeleteButton:
        return tr("Delete");
    default:
        return {};
    }
}

void CProductTreeDelegate::clicked(const QModelIndex& index, int button)
{
    if (button == EditButton)
        Q_EMIT notifyEditClicked(index);
    else
        Q_EMIT notifyDeleteClicked(index);
}
