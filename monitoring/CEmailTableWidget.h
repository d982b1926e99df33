#pragma once

#include "plugin/interface/SEmailSettings.h"

#include <QTableWidget>

class CButtonItemDelegate;
class CScrollBar;

// The recipients of the alert mails, a row each, with buttons to edit and delete them. It shows what it is told to and
// changes nothing itself. [GUI thread]
class CEmailTableWidget : public QTableWidget
{
    Q_OBJECT

public:
    enum Column
    {
        NameColumn,
        AddressColumn,
        OperationColumn,
        ColumnCount,
    };

    explicit CEmailTableWidget(QWidget* parent = nullptr);

    void setRecipients(const QList<SEmailRecipient>& recipients);
    void appendRecipient(const SEmailRecipient& recipient);
    void setRecipient(int row, const SEmailRecipient& recipient);

    // Of the operations column.
    CButtonItemDelegate* buttons() const { return m_pButtons; }

    // Lays the scroll bar over the right edge, below the header.
    void AdjustScrollBarGeometry();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void updateGeometries() override;

private:
    void setTexts();

    CButtonItemDelegate* const m_pButtons;
    CScrollBar* const m_pScrollBar;
};
