#pragma once

#include "plugin/interface/SEmailSettings.h"

#include <QWidget>

class CEmailTableWidget;
class QLabel;
class QPushButton;

// The list of those who get the alert mails, which the user adds to, changes and shortens. The host may destroy it
// behind every dialog that it opens. [GUI thread]
class CTargetMailboxes : public QWidget
{
    Q_OBJECT

public:
    explicit CTargetMailboxes(QWidget* parent = nullptr);

    // Tells nobody.
    void setRecipients(const QList<SEmailRecipient>& recipients);
    const QList<SEmailRecipient>& recipients() const { return m_recipients; }

Q_SIGNALS:
    // The user has added or deleted a recipient.
    void notifyRecipientsChanged();

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void layOut();
    void setTexts();
    void add();
    void edit(int row);
    void remove(int row);
    bool handleTableKey(int key);
    void describeKeys();

    QList<SEmailRecipient> m_recipients; // in the order of the rows
    QLabel* const m_pHeading;
    QPushButton* const m_pAdd;
    CEmailTableWidget* const m_pTable;
};
