#pragma once

#include "plugin/interface/SEmailSettings.h"

#include <widgetry/CCustomGroupBox.h>

#include <QMap>

class CPasswordLineEdit;
class CSpinBox;
class CTargetMailboxes;
class CWarningTipLineEdit;
class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

// The group "Email settings" of the Health settings page: when alerts are mailed, from which account and to whom. It
// also sends a test mail through the host, with what it shows. The host may destroy it behind every dialog that it
// opens, and behind the sending. [GUI thread]
class CEmailWidget : public CCustomGroupBox
{
    Q_OBJECT

public:
    explicit CEmailWidget(const QString& title, QWidget* parent = nullptr);

    void setSettings(const SEmailSettings& settings);

    // What the controls show, whether it is valid or not.
    const SEmailSettings& settings();

protected:
    void changeEvent(QEvent* event) override;

private:
    enum Control
    {
        Notification,
        RecoveryNotice,
        Ssl,
        SendIfLabel,
        DetectedLabel,
        SenderLabel,
        AddressLabel,
        PasswordLabel,
        ServerLabel,
        PortLabel,
    };

    void createControls();
    void createAccountControls();
    void layOut();
    QLayout* layOutAccount();
    void connectControls();
    void setTexts();

    void checkSender();
    void checkPort();
    bool isValid(bool showTips);
    void updateTestButton();

    void runTest();
    void sendTestMail();
    void report(const QList<SEmailRecipient>& recipients, bool isSent);

    SEmailSettings m_settings;     // as last set or collected
    QList<int> m_failedRecipients; // positions that the last test mail did not reach
    bool m_bTesting = false;
    bool m_bCanTest = false; // as last checked

    QMap<int, QCheckBox*> m_checkBoxes; // by Control
    QMap<int, QLabel*> m_labels;        // by Control
    CSpinBox* m_pAlertCount = nullptr;
    CWarningTipLineEdit* m_pSender = nullptr;
    CPasswordLineEdit* m_pPassword = nullptr;
    QLineEdit* m_pServer = nullptr;
    CWarningTipLineEdit* m_pPort = nullptr;
    CTargetMailboxes* m_pTargets = nullptr;
    QPushButton* m_pTest = nullptr;
};
