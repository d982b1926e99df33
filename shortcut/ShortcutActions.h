#pragma once

#include <QVector>

// A row of the shortcut panel.
struct ShortcutAction
{
    int index; // key of the action in the page's map of shortcuts
    int row;   // of the page's grid
    int column;
    const char* name; // to be translated in the context "CShortcutPanel"
};

// The actions of the pages, in the order of their cells, one column after the other.
namespace ShortcutActions {

const QVector<ShortcutAction>& layout();
const QVector<ShortcutAction>& softEdge();

} // namespace ShortcutActions
