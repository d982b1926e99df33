#pragma once

#include <QString>

#include <map>

class QWidget;

// What can be read in the visible windows at this moment: every text, tooltip, title and accessible name, by where it
// stands. Two runs of the program that have come to the same point have the same places.
using ShownTexts = std::map<QString, QString>;

ShownTexts shownTexts();

// Where the widget stands: its class and number among its siblings of that class, below where its parent stands.
QString placeOf(const QWidget* widget);
