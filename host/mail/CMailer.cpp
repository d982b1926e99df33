#include "host/mail/CMailer.h"

#include "host/Awaited.h"

#include <QDeadlineTimer>

#include <csignal>
#include <system_error>
#include <thread>

namespace {

// What a transfer may take beyond its time-out, before it is no longer waited for: looking up a name, for instance.
constexpr std::chrono::milliseconds grace{2000};

// Writing to a connection that the server has closed must not end the process, and signals are the main thread's.
void leaveSignalsAlone()
{
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_BLOCK, &all, nullptr);
}

} // namespace

// What a worker and the one who waits for it share.
struct CMailer::Run
{
    std::atomic_bool cancelled{false};
    Awaited<MailResult> result;
};

CMailer::CMailer(const SmtpSender::Options& options, QObject* parent)
    : QObject(parent),
      m_options(options),
      m_pWorkers(std::make_shared<std::atomic_int>(0))
{
}

CMailer::~CMailer() = default;

MailResult CMailer::send(const SEmailSettings& settings, const QString& body)
{
    MailMessage message;
    message.subject = tr("Message from Orvel");
    message.body = body;
    message.recipients = settings.lstRecipients;
    if (m_bSending)
        return SmtpSender::failure(message, tr("Another mail is being sent."));

    const auto run = std::make_shared<Run>();
    ++*m_pWorkers;
    try {
        std::thread([run, workers = m_pWorkers, options = m_options, account = MailAccount::from(settings), message] {
            leaveSignalsAlone();
            run->result.bring(SmtpSender(options).send(account, message, run->cancelled));
            --*workers;
        }).detach();
    } catch (const std::system_error& failure) {
        --*m_pWorkers;
        return SmtpSender::failure(message, QString::fromLocal8Bit(failure.what()));
    }
    m_bSending = true;
    const MailResult result = waitFor(*run, message);
    m_bSending = false;
    return result;
}

MailResult CMailer::waitFor(Run& run, const MailMessage& message) const
{
    const QDeadlineTimer deadline(m_options.timeout + grace);
    const auto result = run.result.wait(m_options.timeout + grace);
    run.cancelled = true;
    if (result)
        return *result;
    return SmtpSender::failure(message, deadline.hasExpired() ? tr("The mail server did not answer in time.")
                                                              : tr("The mail was given up, since the program ends."));
}
