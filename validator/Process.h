#pragma once

#include <QString>
#include <QStringList>

class Trace;

// How a child process ended, and what it wrote.
struct ProcessEnd
{
    bool isClean = false; // with code 0
    QString manner;       // in words: the code, the signal, or that it had to be ended
    QByteArray output;
    QByteArray errors;
};

// Runs this program again with the arguments and waits for its end. A child that gives no sign of life in the trace for
// `patience` seconds is ended. Needs a SIGCHLD that is not ignored, or the system does not tell how the child ended; it
// is not clean then.
ProcessEnd runProcess(const QStringList& arguments, const Trace& trace, int patience);
