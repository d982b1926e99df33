#include "host/keychain/DesktopKeychain.h"

#ifdef ORVEL_WITH_KEYCHAIN

#include <QEventLoop>
#include <QLoggingCategory>
#include <QTimer>

#include <qt5keychain/keychain.h>

namespace {

Q_LOGGING_CATEGORY(logKeychain, "orvel.keychain", QtWarningMsg)

const QLatin1String service("orvel");
const QLatin1String key("mail-password");

class Keychain : public IKeychain
{
public:
    explicit Keychain(std::chrono::milliseconds timeout)
        : m_timeout(timeout)
    {
    }

    std::optional<QString> read() override
    {
        auto* const job = new QKeychain::ReadPasswordJob(service);
        QString password;
        switch (run(job, [&] { password = job->textData(); })) {
        case QKeychain::NoError:
            return password;
        case QKeychain::EntryNotFound:
            return QString();
        default:
            return std::nullopt;
        }
    }

    bool write(const QString& password) override
    {
        auto* const job = new QKeychain::WritePasswordJob(service);
        job->setTextData(password);
        return run(job, [] {}) == QKeychain::NoError;
    }

    bool remove() override
    {
        const QKeychain::Error error = run(new QKeychain::DeletePasswordJob(service), [] {});
        return error == QKeychain::NoError || error == QKeychain::EntryNotFound;
    }

private:
    // Runs the job, which deletes itself, and calls `take` while it is still there. A job cannot be cancelled, and the
    // next one would wait for it.
    template<typename Take>
    QKeychain::Error run(QKeychain::Job* job, Take take)
    {
        QEventLoop loop;
        QKeychain::Error error = QKeychain::OtherError;
        bool isDone = false;
        QObject::connect(job, &QKeychain::Job::finished, &loop, [&] {
            isDone = true;
            error = job->error();
            if (error != QKeychain::NoError && error != QKeychain::EntryNotFound)
                qCInfo(logKeychain, "%ls", qUtf16Printable(job->errorString()));
            take();
            loop.quit();
        });
        if (m_bLost) {
            delete job;
            return error;
        }
        QTimer::singleShot(m_timeout, &loop, &QEventLoop::quit);
        job->setKey(key);
        job->start();
        if (!isDone)
            loop.exec(QEventLoop::ExcludeUserInputEvents);
        m_bLost = !isDone;
        return error;
    }

    const std::chrono::milliseconds m_timeout;
    bool m_bLost = false; // a job has not come back
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
