#pragma once

#include "cellbuttons/CCellButtonDelegate.h"

// The operations column of the table of mail recipients: the buttons "Edit" and "Delete" of every row. [GUI thread]
class CButtonItemDelegate : public CCellButtonDelegate
{
    Q_OBJECT

public:
    enum Button
    {
        EditButton,
        DeleteButton,
    };

    explicit CButtonItemDelegate(QAbstractItemView* view); // owned by the view

Q_SIGNALS:
    // The button numbered `nBtnIndex` was clicked. Sent from within the release of the mouse; the receiver may run a
    // dialog.
    void notifyBtnClicked(QModelIndex modelIndex, int nBtnIndex);

protected:
    QString toolTip(int button) const override;
    void clicked(const QModelIndex& index, int button) override;
};
