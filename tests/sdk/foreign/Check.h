#pragma once

// Says on the standard error what is wrong, and counts it. [GUI thread]
void check(bool isRight, const char* what);
#define CHECK(condition) check(condition, #condition)

// How much was wrong so far.
int faults();
