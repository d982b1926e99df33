#pragma once

#include "tests/faults/Write.h"

// What happens to a write, each a given number of times with another moment or place of the fault. Gives what was wrong
// afterwards, or nothing. A write that is not cut off is reported as done and has put everything in place; one that is
// cut off is reported as failed and has left whole files only. `folder` is empty, and used anew each time.
namespace FaultRuns {

// No byte of a file beyond a limit can be written. The limits lie all over the content.
QString fileSizeLimit(const Write& write, const QString& folder, int runs);

// The disk is full, with room for a part of the content.
QString fullDisk(const Write& write, const QString& folder, int runs);

QString readOnlyDisk(const Write& write, const QString& folder, int runs);

// The folder is gone before the write begins.
QString vanishedFolder(const Write& write, const QString& folder, int runs);

// The folder goes, by another name, at some moment of the write.
QString vanishingFolder(const Write& write, const QString& folder, int runs);

// The process is killed at some moment. `torn` counts the times that it has left temporary files.
QString kill(const Write& write, const QString& folder, int runs, int& torn);

// Limits and kills where the system cannot give a name to a file that has none: each file has a temporary one from the
// beginning then.
QString namedTemporaries(const Write& write, const QString& folder, int runs, int& torn);

} // namespace FaultRuns
