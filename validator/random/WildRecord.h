#pragma once

#include "plugin/interface/SSettings.h"
#include "validator/Random.h"

// A record as a host might push it: mostly sound, with values out of every range, numbers that are none and texts of
// any length among them.
SSettings wildRecord(Random& random);
