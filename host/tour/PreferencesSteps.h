#pragma once

#include "host/tour/TourSteps.h"

// The Preferences page and the question that it asks.
std::vector<TourStep> preferencesSteps();
