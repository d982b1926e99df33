#pragma once

#include "tests/faults/Write.h"

// What happens to a write, a given number of times with another moment or place each.
struct Fault
{
    const char* name;

    // Gives what was wrong afterwards, or nothing. `folder` is empty, and used anew each time.
    QString (*befall)(const Write& write, const QString& folder, int runs);

    // Whether it can happen to the write at all.
    bool (*concerns)(const Write& write);

    // Whether the test needs mounts of its own for it.
    bool needsMounts;
};

QList<Fault> allFaults();
