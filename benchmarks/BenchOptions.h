#pragma once

#include <QString>

struct BenchOptions
{
    QString files;      // folder that keeps the generated libraries between runs
    int repeat = 7;     // how often each side of a row is measured
    bool quick = false; // small libraries: the rows run, their numbers mean nothing

    // Size of a library that is to have `count` types.
    int types(int count) const { return quick ? count / 50 : count; }
};
