#pragma once

#include "host/CommandLine.h"

// The tour: one process for each language and scale, since Qt reads the scale when it starts. Prints where the pictures
// are, or the first failure. Needs no display: without a platform chosen by QT_QPA_PLATFORM the passes draw offscreen,
// so that the pictures are the same everywhere. The program's exit code. [GUI thread]
int runTour(const CommandLine& commandLine);
