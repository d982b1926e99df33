#pragma once

#include <QReadWriteLock>

#if defined(__SANITIZE_THREAD__)
#define STORE_TSAN 1
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define STORE_TSAN 1
#endif
#endif

#if defined(STORE_TSAN)
extern "C" void __tsan_acquire(void* address); // NOLINT(bugprone-reserved-identifier)
extern "C" void __tsan_release(void* address); // NOLINT(bugprone-reserved-identifier)
#endif

// QReadLocker and QWriteLocker that the thread sanitizer understands: the distribution's Qt is not instrumented, so
// without a word from us it takes what the lock guards for a race.
template<void (QReadWriteLock::*lockFunction)()>
class StoreLocker
{
public:
    explicit StoreLocker(QReadWriteLock& lock)
        : m_lock(lock)
    {
        (m_lock.*lockFunction)();
#if defined(STORE_TSAN)
        __tsan_acquire(&m_lock);
#endif
    }

    ~StoreLocker()
    {
#if defined(STORE_TSAN)
        __tsan_release(&m_lock);
#endif
        m_lock.unlock();
    }

    Q_DISABLE_COPY(StoreLocker)

private:
    QReadWriteLock& m_lock;
};

using StoreReadLocker = StoreLocker<&QReadWriteLock::lockForRead>;
using StoreWriteLocker = StoreLocker<&QReadWriteLock::lockForWrite>;
