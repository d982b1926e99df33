#pragma once

#include <QString>

// Changes of single files in the type library. Whatever they touch is dropped from the attribute cache. False when the
// copy could not be made; all files are then as they were. [GUI thread]

// Copies `source` byte for byte to `target`, which must not exist.
bool copyIntoLibrary(const QString& source, const QString& target);

// Deletes `old` and puts a copy of `source` at `target`, which may be `old` and else must not exist.
bool replaceInLibrary(const QString& source, const QString& old, const QString& target);

// Whether both paths lead to one existing file, be it by way of links.
bool isSameFile(const QString& a, const QString& b);
