#pragma once

#include "host/tour/TourSteps.h"

// The shortcut panel, with both its pages.
std::vector<TourStep> shortcutSteps();
