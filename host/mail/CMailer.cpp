#include "host/mail/CMailer.h"

#include <QEventLoop>
#include <QTimer>

#include <csignal>
#include <mutex>
#include <optional>
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
    // The worker is done.
    void finish(const MailResult& mailResult)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        result = mailResult;
        if (loop)
            QMetaObject::invokeMethod(loop, &QEventLoop::quit, Qt::QueuedConnection);
    }

    // Someone waits for the worker; false when there is nothing to wait for.
    bool begin(QEventLoop* waiting)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        loop = waiting;
        return !result;
    }

    // Nobody waits any longer; what the worker has done so far.
    std::optional<MailResult> end()
    {
        cancelled = true;
        const std::lock_guard<std::mutex> lock(mutex);
        loop = nullptr;
        return result;
    }

    std::atomic_bool cancelled{false};
    std::mutex mutex; // guards the rest
    QEventLoop* loop = nullptr;
    std::optional<MailResult> result;
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
            run->finish(SmtpSender(options).send(account, message, run->cancelled));
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
    QEventLoop loop; // also left when the program is to end
    bool isLate = false;
    QTimer deadline;
    connect(&deadline, &QTimer::timeout, &loop, [&] {
        isLate = true;
        loop.quit();
    });
    deadline.start(m_options.timeout + grace);
    if (run.begin(&loop))
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (const auto result = run.end())
        return *result;
    return SmtpSender::failure(message, isLate ? tr("The mail server did not answer in time.")
                                               : tr("The mail was given up, since the program ends."));
}
