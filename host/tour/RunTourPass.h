#pragma once

#include "host/CommandLine.h"

class PluginLibrary;

// One pass of the tour, in a process that was started with the pass's scale. Failures go to the standard error in one
// line. Needs the QApplication. The program's exit code. [GUI thread]
int runTourPass(const CommandLine& commandLine, const PluginLibrary& plugin);
