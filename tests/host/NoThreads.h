#pragma once

#include <QtGlobal>

#include <pthread.h>

// While it lives, no thread can be started, as on a system that has too many: each would need a stack that fits
// nowhere. Threads of QThread are not concerned.
class NoThreads
{
public:
    NoThreads()
    {
        pthread_getattr_default_np(&m_before);
        pthread_attr_t attributes;
        pthread_attr_init(&attributes);
        pthread_attr_setstacksize(&attributes, std::size_t{1} << 47);
        if (pthread_setattr_default_np(&attributes) != 0)
            qFatal("The size of stacks cannot be set");
        pthread_attr_destroy(&attributes);
    }
    ~NoThreads()
    {
        pthread_setattr_default_np(&m_before);
        pthread_attr_destroy(&m_before);
    }
    Q_DISABLE_COPY(NoThreads)

private:
    pthread_attr_t m_before{};
};
