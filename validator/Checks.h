#pragma once

#include "validator/Options.h"

#include <vector>

class Report;

// One thing that must hold of a plug-in. `run` is called in a process of its own with a QApplication and no plug-in
// loaded; what it leaves behind ends with that process.
struct Check
{
    int level; // of strictness, from which on it is made
    const char* name;
    void (*run)(const Options& options, Report& report);
};

// All checks, in the order in which they are made.
const std::vector<Check>& checks();

// By subject; each list stands in the file of that name.
std::vector<Check> loadChecks();
std::vector<Check> operationChecks();
std::vector<Check> handlerChecks();
std::vector<Check> dockingChecks();
std::vector<Check> threadChecks();
std::vector<Check> costChecks();
std::vector<Check> randomUse();
