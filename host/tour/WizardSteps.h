#pragma once

#include "host/tour/TourSteps.h"

// The pages of the cabinet wizard, in several of its configurations.
std::vector<TourStep> wizardSteps();
