#include "Check.h"

#include <cstdio>

namespace {

int wrong = 0;

}

void check(bool isRight, const char* what)
{
    if (isRight)
        return;
    ++wrong;
    std::fprintf(stderr, "wrong: %s\n", what);
}

int faults()
{
    return wrong;
}
