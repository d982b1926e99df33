#pragma once

#include "plugin/interface/SEmailSettings.h"

#include <widgetry/CDialog.h>

class CWarningTipLineEdit;
class QLabel;
class QLineEdit;

// Asks for the name and the address of a recipient, whose address no other entry of the list may have. [GUI thread]
class CEmailEditDlg : public CDialog
{
    Q_OBJECT

public:
    // For a new recipient, or for the one at the position `index` of the list. The list is looked at while the dialog
    // is open, and never changed.
    CEmailEditDlg(const QList<SEmailRecipient>* recipients, QWidget* parent);
    CEmailEditDlg(const QList<SEmailRecipient>* recipients, int index, QWidget* parent);

    // What the user entered, once the dialog is accepted.
    SEmailRecipient recipient() const { return m_recipient; }

    void accept() override;

protected:
    void createWidgets() override;
    void layoutWidgets() override;
    void connectSignals() override;
    void changeEvent(QEvent* event) override;

private:
    enum Problem
    {
        NoProblem,
        WrongFormat,
        Taken,
    };

    Problem problem() const; // of the address
    void checkAddress();
    void warn(Problem problem);
    void setTexts();

    const QList<SEmailRecipient>* const m_pRecipients;
    const int m_nIndex; // -1: a new recipient
    SEmailRecipient m_recipient;

    QLabel* m_pNameLabel = nullptr;
    QLabel* m_pAddressLabel = nullptr;
    QLineEdit* m_pName = nullptr;
    CWarningTipLineEdit* m_pAddress = nullptr;
};
