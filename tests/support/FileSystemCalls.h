#pragma once

#include <QStringList>

// Counts what the current thread asks of the file system by a path. A test that links FileSystemCalls.cpp puts its own
// functions before those of the C library, for itself and for all libraries it uses, Qt among them.
class FileSystemCalls
{
public:
    FileSystemCalls(); // begins to listen
    ~FileSystemCalls();
    Q_DISABLE_COPY(FileSystemCalls)

    // The calls on this thread since the construction, as "function(path)".
    QStringList take();
};
