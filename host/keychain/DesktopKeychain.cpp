#include "host/keychain/DesktopKeychain.h"

#ifdef ORVEL_WITH_KEYCHAIN

#include "host/Awaited.h"

#include <QLoggingCategory>
#include <QThread>

#include <qt5keychain/keychain.h>

#include <functional>

namespace {

Q_LOGGING_CATEGORY(logKeychain, "orvel.keychain", QtWarningMsg)

const QLatin1String service("orvel");
const QLatin1String key("mail-password");

struct Answer
{
    QKeychain::Error error = QKeychain::OtherError;
    QString text;
};

// Asks on a thread of its own, as the first call looks for the desktop's services and waits for the message bus.
class Keychain : public IKeychain
{
public:
    explicit Keychain(std::chrono::milliseconds timeout)
        : m_timeout(timeout),
          m_pThread(new QThread),
          m_pWorker(new QObject)
    {
        m_pThread->setObjectName(QStringLiteral("Keychain"));
        m_pWorker->moveToThread(m_pThread);
    }

    // A thread that still waits for the keychain cannot be ended.
    ~Keychain() override
    {
        if (m_bLost)
            return;
        m_pThread->quit();
        m_pThread->wait();
        delete m_pWorker;
        delete m_pThread;
    }

    std::optional<QString> read() override
    {
        const Answer answer = ask([] { return new QKeychain::ReadPasswordJob(service); });
        switch (answer.error) {
        case QKeychain::NoError:
            return answer.text;
        case QKeychain::EntryNotFound:
            return QString();
        default:
            return std::nullopt;
        }
    }

    bool write(const QString& password) override
    {
        const Answer answer = ask([password] {
            auto* const job = new QKeychain::WritePasswordJob(service);
            job->setTextData(password);
            return job;
        });
        return answer.error == QKeychain::NoError;
    }

    bool remove() override
    {
        const Answer answer = ask([] { return new QKeychain::DeletePasswordJob(service); });
        return answer.error == QKeychain::NoError || answer.error == QKeychain::EntryNotFound;
    }

    bool isBusy() const override { return m_bLost; }

private:
    // `make` is called on the thread; the job deletes itself. While events are handled another call may come.
    Answer ask(const std::function<QKeychain::Job*()>& make)
    {
        if (m_bLost || m_bAsking)
            return {};
        m_pThread->start(); // with the first call
        if (!m_pThread->isRunning())
            return {};
        const auto awaited = std::make_shared<Awaited<Answer>>();
        QMetaObject::invokeMethod(m_pWorker, [awaited, make] {
            QKeychain::Job* const job = make();
            QObject::connect(job, &QKeychain::Job::finished, job,
                             [awaited](QKeychain::Job* done) { awaited->bring(answerOf(done)); });
            job->setKey(key);
            job->start();
        });
        m_bAsking = true;
        const auto answer = awaited->wait(m_timeout);
        m_bAsking = false;
        m_bLost = !answer;
        return answer.value_or(Answer());
    }

    static Answer answerOf(QKeychain::Job* job)
    {
        if (job->error() != QKeychain::NoError && job->error() != QKeychain::EntryNotFound)
            qCInfo(logKeychain, "%ls", qUtf16Printable(job->errorString()));
        const auto* const reading = qobject_cast<QKeychain::ReadPasswordJob*>(job);
        return {job->error(), reading ? reading->textData() : QString()};
    }

    const std::chrono::milliseconds m_timeout;
    QThread* const m_pThread;
    QObject* const m_pWorker; // lives on the thread
    bool m_bAsking = false;
    bool m_bLost = false; // an answer has not come
};

} // namespace

std::unique_ptr<IKeychain> DesktopKeychain::open(std::chrono::milliseconds timeout)
{
    return std::make_unique<Keychain>(timeout);
}

#else

std::unique_ptr<IKeychain> DesktopKeychain::open(std::chrono::milliseconds /*timeout*/)
{
    return nullptr;
}

#endif
