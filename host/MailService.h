#pragma once

#include "host/mail/CMailer.h"

class CStatusBar;

// Sends the mails that the settings area asks for, and says in the status bar why one did not go out: the settings area
// tells its user only for whom. [GUI thread]
class MailService
{
public:
    // `status` outlives the service.
    MailService(const SmtpSender::Options& options, CStatusBar* status);

    // As ISettingInterfaceHandler::SendEmail.
    bool send(QList<int>& failedPositions, const SEmailSettings& settings, const QString& body);

    // As CMailer::isBusy().
    bool isBusy() const { return m_mailer.isBusy(); }

private:
    CMailer m_mailer;
    CStatusBar* const m_pStatus;
};
