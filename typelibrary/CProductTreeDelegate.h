#pragma once

#include "cellbuttons/CCellButtonDelegate.h"

// The operations column of the type library's tree: the buttons "Rename" and "Delete" of every row. [GUI thread]
class CProductTreeDelegate : public CCellButtonDelegate
{
    Q_OBJECT

public:
    explicit CProductTreeDelegate(QAbstractItemView* view); // owned by the view

    // 28 pixels high and as wide as the index's column wants to be, whatever is in it.
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

Q_SIGNALS:
    // Sent from within the release of the mouse; the receiver may run a dialog.
    void notifyEditClicked(const QModelIndex& index);
    void notifyDeleteClicked(const QModelIndex& index);

protected:
    QString toolTip(int button) const override;
    void clicked(const QModelIndex& index, int button) override;
};
