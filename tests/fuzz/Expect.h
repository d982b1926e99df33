#pragma once

#include <cstdio>
#include <cstdlib>

// Ends the program, which libFuzzer takes for a finding, unless the condition holds.
inline void expect(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}
#define EXPECT(condition) expect(condition, #condition)
