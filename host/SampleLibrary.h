#pragma once

#include <QString>

// The user's type library on the first run. [GUI thread]
namespace SampleLibrary {

// Makes the folder `library` with a copy of the types in the folder `samples`, unless it exists; without samples (an
// empty path) the folder stays empty. A copy that is cut off leaves no folder, so that the next run makes it whole;
// what a killed run has left beside it is removed. False when the folder could not be made.
bool create(const QString& library, const QString& samples);

} // namespace SampleLibrary
