#pragma once

#include <functional>

class QLineEdit;

// Calls `handler` whenever Return is pressed in the edit or the focus leaves it, whatever the text: Qt keeps
// QLineEdit::editingFinished() back for one that the edit's validator does not accept. [GUI thread]
void onEditingFinished(QLineEdit* edit, std::function<void()> handler);
