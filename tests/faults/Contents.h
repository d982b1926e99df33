#pragma once

#include "tests/faults/Write.h"

// Contents that can be told apart, and the steps of the tests themselves, which leave no half-written file either when
// they are killed.

// What is in a type file with payload number `number`.
QByteArray content(int number);

// Puts a file with these bytes in the place of the file.
void putFile(const WritePlace& place, const QString& path, const QByteArray& bytes);

// Removes the file or folder, if it is there.
void takeAway(const WritePlace& place, const QString& path);

// The same for some entries of the work folder.
std::function<void(const WritePlace&)> takingAway(const QStringList& names);

// Has the host write that type file.
bool writeTypeFile(const QString& path, int number);

// What is wrong with the type file if it is there.
QString problemOfTypeFile(const QString& path);
