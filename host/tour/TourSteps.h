#pragma once

#include <functional>
#include <vector>

class TourStage;

// A step takes one picture, which is named after its place in the list and its own name. It finds the window as the
// first step does, but for what the steps before it have changed on the pages, and leaves it so.
struct TourStep
{
    const char* name;
    std::function<bool(TourStage&)> run;
};

// Every page and dialog that there is.
std::vector<TourStep> tourSteps();
