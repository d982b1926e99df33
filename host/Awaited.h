#pragma once

#include <QEventLoop>
#include <QTimer>

#include <chrono>
#include <mutex>
#include <optional>
#include <utility>

// What a thread is to bring to the one that waits for it. Both share it, so that either may be gone first.
template<typename Result>
class Awaited
{
public:
    // Ends the waiting. Called once. [any thread]
    void bring(Result result)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_result = std::move(result);
        if (m_pLoop)
            QMetaObject::invokeMethod(m_pLoop, &QEventLoop::quit, Qt::QueuedConnection);
    }

    // Waits at most so long, or until the program is to end, and handles events meanwhile, except what the user does.
    // Nothing when the result has not come by then. [the thread that waits]
    std::optional<Result> wait(std::chrono::milliseconds most)
    {
        QEventLoop loop;
        QTimer::singleShot(most, Qt::PreciseTimer, &loop, &QEventLoop::quit);
        if (begin(&loop))
            loop.exec(QEventLoop::ExcludeUserInputEvents);
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_pLoop = nullptr;
        return m_result;
    }

private:
    // False when there is nothing to wait for.
    bool begin(QEventLoop* loop)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_pLoop = loop;
        return !m_result;
    }

    std::mutex m_mutex; // guards the rest
    QEventLoop* m_pLoop = nullptr;
    std::optional<Result> m_result;
};
