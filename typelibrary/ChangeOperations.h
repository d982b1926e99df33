#pragma once

#include <QString>

class QModelIndex;
class QWidget;
class CProductTreeModel;
class CProductTreeView;
struct SMD5;

// Changes of what is in the library as the user meets them: the questions, the work, the rescan and the messages. Boxes
// belong to `view`, which may be destroyed while one is open. [GUI thread]

// Says that groups cannot be nested deeper.
void informTooDeep(QWidget* view);

// Whether the user may rename or alter the type with this digest; says why not. The view is there if so.
bool mayChangeType(QWidget* view, const SMD5& md5);

// Follows a new name that was written, long after the editor was opened, for an entry of `folder`.
void rescanRenamed(const QString& folder, const QString& oldName, const QString& newName);

// Deletes a type that the layout does not use, or a group whatever is in it, after the user has agreed.
void deleteEntry(CProductTreeView* view, CProductTreeModel& model, const QModelIndex& index);

// Deletes everything below the library folder but types that the layout uses. Neither the attribute cache nor the
// library's tree is told.
void deleteAll(QWidget* view, const QString& root);

// Runs the wizard for the multi-receiver type `file`; what it makes goes into the group `folder`.
void editType(QWidget* view, const QString& folder, const QString& file);

// Runs the wizard for a new type, or to edit `file`, in the group `folder`. True if it has saved a type; the view is
// there then.
bool runCabinetWizard(QWidget* view, const QString& folder, const QString& file = {});
