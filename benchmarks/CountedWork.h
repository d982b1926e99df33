#pragma once

#include <QString>

// Pieces of work whose instructions callgrind counts, each in a process of its own. The counts depend on the processor,
// the compiler and Qt, not on what else the machine does. [GUI thread]

// Does the work of that name once, on a library that is generated in the folder `files` when it is not there. Only
// what belongs to the work is instrumented: the process is to be run with --instr-atstart=no.
void runCountedWork(const QString& name, const QString& files);
