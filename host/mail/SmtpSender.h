#pragma once

#include "host/mail/MailAccount.h"
#include "host/mail/MailMessage.h"
#include "host/mail/MailResult.h"
#include "host/mail/SmtpTransfer.h"

#include <QCoreApplication>
#include <QString>

#include <atomic>
#include <chrono>

// Sends mails by SMTP. The server's certificate is always checked, and an account that asks for encryption is never
// served without it. Nothing of it is kept between two mails. Reentrant. [any thread]
class SmtpSender
{
    Q_DECLARE_TR_FUNCTIONS(SmtpSender)

public:
    struct Options
    {
        QString authorities; // PEM file with certificates to trust beside the system's; empty: none
        std::chrono::milliseconds timeout{30000}; // for one mail, from the look-up of the server's name to the end
    };

    explicit SmtpSender(const Options& options);

    // Sends the message and waits for the server's word on it, at most as long as the time-out (and the system's own
    // for names, which nothing can cut short). `cancelled` ends it within about a second once it is set.
    MailResult send(const MailAccount& account, const MailMessage& message, const std::atomic_bool& cancelled) const;

    // All recipients of the message failed, for this reason.
    static MailResult failure(const MailMessage& message, const QString& reason);

private:
    static QString problem(const MailAccount& account, const MailMessage& message);
    static QString problem(const SEmailRecipient& recipient);
    static QString reasonFor(CURLcode result, const MailAccount& account, const SmtpTransfer& transfer);

    const Options m_options;
};
