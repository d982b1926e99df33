#pragma once

#include <QString>

class QWidget;

// Exports as the user meets them: the dialog, the copies and the message. Boxes and dialogs belong to `view`. `root` is
// the library folder. [GUI thread]

// Exports the type file `file`, with the suffix of its kind.
void exportType(QWidget* view, const QString& root, const QString& file, bool isMultiRcv);

// Exports the content of the group `group`.
void exportGroup(QWidget* view, const QString& root, const QString& group);

// Exports the whole library, into a folder of its own.
void exportLibrary(QWidget* view, const QString& root);
