#pragma once

#include "host/mail/SmtpSender.h"

#include <QObject>

#include <memory>

// Sends mails from a worker thread while the GUI thread's events go on, except for what the user does. The worker is
// detached and owns what it uses: a process that ends while isBusy() must leave it alone. [GUI thread]
class CMailer : public QObject
{
    Q_OBJECT

public:
    explicit CMailer(const SmtpSender::Options& options, QObject* parent = nullptr);
    ~CMailer() override;

    // As ISettingInterfaceHandler::SendEmail. Returns a little after the time-out at the latest, and at once when the
    // program is to end or when a mail is under way already.
    MailResult send(const SEmailSettings& settings, const QString& body);

    // Whether a worker is still at it: also after a send() that did not wait for it.
    bool isBusy() const { return *m_pWorkers > 0; }

private:
    struct Run;

    MailResult waitFor(Run& run, const MailMessage& message) const;

    const SmtpSender::Options m_options;
    const std::shared_ptr<std::atomic_int> m_pWorkers; // shared with the workers
    bool m_bSending = false;
};
