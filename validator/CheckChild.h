#pragma once

struct Options;

// Runs the one check of the options in this process. The process's exit code: 0 when the check holds, 1 when not.
int runCheck(const Options& options, int argc, char** argv);
