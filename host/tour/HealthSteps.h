#pragma once

#include "host/tour/TourSteps.h"

// The Health settings page with its dialogs and boxes.
std::vector<TourStep> healthSteps();
