#pragma once

#include <functional>

class QString;
class QWidget;

// Lets what was changed be laid out, and paints the window. [GUI thread]
void paintNow(QWidget* window);

// Bytes of the process in memory, with what the heap keeps for later.
double residentSize();

// Opens a window with the pages and prints as numbers: the seconds since `begun`, in nanoseconds of the steady clock as
// text, until the window was painted; the same for each tab after the first; the process's memory then. [GUI thread]
void printStart(QWidget* pages, const std::function<void(int)>& showTab, const QString& begun);
