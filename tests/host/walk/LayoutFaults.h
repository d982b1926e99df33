#pragma once

#include <QStringList>

// What is wrong with the texts in the visible windows, a line each: texts that are cut off, parts that reach out of
// what holds them, and parts that lie over each other.
QStringList layoutFaults();
