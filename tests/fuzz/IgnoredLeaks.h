#pragma once

#include <sanitizer/lsan_interface.h>

// While it lives, nothing that is allocated counts as a leak. Qt's JSON reader (5.15.8) loses the first of two objects
// or arrays that have the same key.
using IgnoredLeaks = __lsan::ScopedDisabler;
