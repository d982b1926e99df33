#pragma once

#include <QString>
#include <QStringList>

class QWidget;

// The modal boxes and file dialogs of what the user does. The parent may be destroyed while one is open, which counts
// as No or as a cancelled choice: after a Yes or a choice it is still there, after inform() it may not be. [GUI thread]

// Tells the user something.
void inform(QWidget* parent, const QString& text);

// Whether the user answers Yes.
bool ask(QWidget* parent, const QString& text);

// Path of the folder that the user chooses, beginning in `start` (empty: where Qt begins); empty if none.
QString chooseFolder(QWidget* parent, const QString& title, const QString& start);

// Path of the existing file that the user chooses, beginning in `start`; empty if none.
QString chooseFile(QWidget* parent, const QString& title, const QString& start, const QString& filter);

// Paths of the existing files that the user chooses, in their order; empty if none.
QStringList chooseFiles(QWidget* parent, const QString& title, const QString& start, const QString& filter);

// Path of the file that the user wants written, with the suffix if it was given without one; `proposal` is a path, too.
// The dialog itself warns of files that exist. Empty if none.
QString chooseTarget(QWidget* parent, const QString& title, const QString& proposal, const QString& filter,
                     const QString& suffix);
