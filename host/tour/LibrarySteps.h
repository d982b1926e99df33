#pragma once

#include "host/tour/TourSteps.h"

// The type library's menus, questions and messages. The last step deletes the library but for the types in the layout.
std::vector<TourStep> librarySteps();
