#include "benchmarks/StallMeter.h"

StallMeter::StallMeter()
    : m_last(std::chrono::steady_clock::now())
{
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(1);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { tick(); });
    m_timer.start();
}

const Samples& StallMeter::stop()
{
    m_timer.stop();
    tick();
    return m_gaps;
}

void StallMeter::tick()
{
    const auto now = std::chrono::steady_clock::now();
    m_gaps.add(std::chrono::duration<double>(now - m_last).count());
    m_last = now;
}
