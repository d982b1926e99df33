#pragma once

#include <QStringList>

// The names as a list for a message, separated as the language does it. A long list is cut after as many names as a
// message can show at a glance, and ends in the number of the others.
QString joinedNames(const QStringList& names);
