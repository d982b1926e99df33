#pragma once

#include "benchmarks/Measurement.h"

#include <QTimer>

#include <chrono>

// How long the event loop of the current thread keeps what comes in waiting: the time between two ticks of a timer of
// one millisecond, in seconds. Measures from its making on.
class StallMeter
{
public:
    StallMeter();

    // The times up to now.
    const Samples& stop();

private:
    void tick();

    QTimer m_timer;
    std::chrono::steady_clock::time_point m_last;
    Samples m_gaps;
};
