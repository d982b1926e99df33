#pragma once

#include "monitoring/CEmailWidget.h"
#include "monitoring/CPasswordLineEdit.h"
#include "tests/monitoring/Controls.h"

#include <widgetry/CSpinBox.h>
#include <widgetry/CWarningTipLineEdit.h>

#include <QCheckBox>
#include <QPointer>
#include <QPushButton>

// A record with everything that a test mail needs.
inline SEmailSettings validSettings()
{
    SEmailSettings settings;
    settings.strSenderAddress = QStringLiteral("wall@site.com");
    settings.strPassword = QStringLiteral("Secret42");
    settings.strSmtpServer = QStringLiteral("smtp.site.com");
    settings.lstRecipients = {{QStringLiteral("Ann"), QStringLiteral("ann@host.com")},
                              {QStringLiteral("Bob"), QStringLiteral("bob@host.com")},
                              {QStringLiteral("Cay"), QStringLiteral("cay@host.com")}};
    return settings;
}

// The group and its controls, as the user sees them.
struct EmailGroup
{
    EmailGroup() { group->show(); }
    explicit EmailGroup(const SEmailSettings& settings)
        : EmailGroup()
    {
        group->setSettings(settings);
    }
    ~EmailGroup() { delete group; }
    Q_DISABLE_COPY(EmailGroup)

    QCheckBox* box(const char* text) const { return withText<QCheckBox>(*group, text); }
    QCheckBox* ssl() const { return box("SSL encryption"); }
    CWarningTipLineEdit* sender() const { return named<CWarningTipLineEdit>(*group, "Email address"); }
    CPasswordLineEdit* password() const { return named<CPasswordLineEdit>(*group, "Email password"); }
    QLineEdit* server() const { return named<QLineEdit>(*group, "SMTP server"); }
    CWarningTipLineEdit* port() const { return named<CWarningTipLineEdit>(*group, "Port"); }
    CSpinBox* count() const { return group->findChild<CSpinBox*>(); }
    QTableWidget* table() const { return group->findChild<QTableWidget*>(QStringLiteral("RecevierMail")); }
    QPushButton* add() const { return withText<QPushButton>(*group, "Add email"); }
    QPushButton* test() const { return withText<QPushButton>(*group, "Send test email"); }

    QPointer<CEmailWidget> group = new CEmailWidget(QStringLiteral("Email settings"));
};

// What the edit warns of; empty when it does not.
inline QString warningOf(const CWarningTipLineEdit* edit)
{
    return edit->isWarningShown() ? edit->tipText() : QString();
}

constexpr const char* wrongSender = "Email format is incorrect, please re-enter.";
constexpr const char* wrongPort = "The SSL port number of the mailbox is invalid.";
