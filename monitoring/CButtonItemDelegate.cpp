#include "monitoring/CButtonItemDelegate.h"

#include <QAbstractItemView>

CButtonItemDelegate::CButtonItemDelegate(QAbstractItemView* view)
    : CCellButtonDelegate({operationIcon(QStringLiteral("edit")), operationIcon(QStringLiteral("delete"))}, view)
{
}

QString CButtonItemDelegate::toolTip(int button) const
{
    return button == EditButton ? tr("Edit") : tr("Delete");
}

void CButtonItemDelegate::clicked(const QModelIndex& index, int button)
{
    Q_EMIT notifyBtnClicked(index, button);
}
