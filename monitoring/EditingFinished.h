#pragma once

#include <functional>

class QLineEdit;

// Calls `handler` when the user has finished editing, by Return or by leaving the edit. Other than
// QLineEdit::editingFinished() that holds for a text too that the edit's validator does not accept. [GUI thread]
void onEditingFinished(QLineEdit* edit, std::function<void()> handler);
