#include "shortcut/ShortcutActions.h"

#include <QCoreApplication>

const QVector<ShortcutAction>& ShortcutActions::layout()
{
    static const QVector<ShortcutAction> actions{
        {0, 0, 0, QT_TRANSLATE_NOOP("CShortcutPanel", "Select all cabinets")},
        {1, 1, 0, QT_TRANSLATE_NOOP("CShortcutPanel", "Copy")},
        {2, 2, 0, QT_TRANSLATE_NOOP("CShortcutPanel", "Paste")},
        {3, 3, 0, QT_TRANSLATE_NOOP("CShortcutPanel", "Cut")},
        {4, 4, 0, QT_TRANSLATE_NOOP("CShortcutPanel", "Delete cabinet")},
        {5, 0, 1, QT_TRANSLATE_NOOP("CShortcutPanel", "Move cabinet(↑)")},
        {6, 1, 1, QT_TRANSLATE_NOOP("CShortcutPanel", "Move cabinet(↓)")},
        {7, 2, 1, QT_TRANSLATE_NOOP("CShortcutPanel", "Move cabinet(←)")},
        {8, 3, 1, QT_TRANSLATE_NOOP("CShortcutPanel", "Move cabinet(→)")},
        {9, 4, 1, QT_TRANSLATE_NOOP("CShortcutPanel", "Exit add cabinet")},
    };
    return actions;
}

// The indices are the host's and not in the order of the cells: the brightness closes both columns.
const QVector<ShortcutAction>& ShortcutActions::softEdge()
{
    static const QVector<ShortcutAction> actions{
        {0, 0, 0, QT_TRANSLATE_NOOP("CShortcutPanel", "Adjust coef(+1%)")},
        {1, 1, 0, QT_TRANSLATE_NOOP("CShortcutPanel", "Adjust coef(-1%)")},
        {2, 2, 0, QT_TRANSLATE_NOOP("CShortcutPanel", "Adjust coef(+0.4%)")},
        {3, 3, 0, QT_TRANSLATE_NOOP("CShortcutPanel", "Adjust coef(-0.4%)")},
        {8, 4, 0, QT_TRANSLATE_NOOP("CShortcutPanel", "Brightness(+)")},
        {4, 0, 1, QT_TRANSLATE_NOOP("CShortcutPanel", "Switch seam(↑)")},
        {5, 1, 1, QT_TRANSLATE_NOOP("CShortcutPanel", "Switch seam(↓)")},
        {6, 2, 1, QT_TRANSLATE_NOOP("CShortcutPanel", "Switch seam(←)")},
        {7, 3, 1, QT_TRANSLATE_NOOP("CShortcutPanel", "Switch seam(→)")},
        {9, 4, 1, QT_TRANSLATE_NOOP("CShortcutPanel", "Brightness(-)")},
    };
    return actions;
}
