#pragma once

struct Options;

// Runs the checks of the options' level, each in a child, and prints a line for each. The program's exit code.
int runChecks(const Options& options);
