#pragma once

#include <QtGlobal>

// Marks the current thread as scanning, for its lifetime. Qt destroys its global objects when the process ends, among
// them the codec for file names, and a scan that goes on meanwhile crashes. So each scanning thread stands still at
// its next checkpoint once the process has begun to end, and the process waits for that, but not for longer than a
// moment: a slow disk or host query must not keep it from ending.
// Objects of one thread may be nested.
class ScanThread
{
public:
    // To be called before the first scanning thread is started: one that is under way when the process begins to end
    // would come too late. [any thread]
    static void prepare();

    ScanThread();
    ~ScanThread();
    Q_DISABLE_COPY(ScanThread)

    // To be called between two files and two folders. Does not return when the process is ending, unless it is the
    // current thread that ends it.
    static void checkpoint();

    // Whether scans have been told to stand still.
    static bool processEnds();
};
