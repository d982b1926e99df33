#pragma once

#include "shortcut/CShortcutLabel.h"
#include "shortcut/CShortcutPanel.h"

#include <QGridLayout>
#include <QLabel>
#include <QStackedLayout>
#include <QStringList>

// What the user sees of the shortcut panel.

inline QStackedLayout* pagesOf(const CShortcutPanel& panel)
{
    return panel.findChild<QStackedLayout*>();
}

inline QGridLayout* gridOf(const CShortcutPanel& panel, int page)
{
    return pagesOf(panel)->widget(page)->findChild<QGridLayout*>();
}

// The row as "Copy: Ctrl C", from left to right.
inline QString textOf(const CShortcutLabel& row)
{
    QString name;
    QString caps;
    const QLayout* const layout = row.layout();
    for (int i = 0; i < layout->count(); ++i) {
        const auto* const label = qobject_cast<const QLabel*>(layout->itemAt(i)->widget());
        if (!label)
            continue;
        if (label->objectName() == QLatin1String("Shortcut"))
            caps += QLatin1Char(' ') + label->text();
        else
            name += label->text();
    }
    return name + QLatin1Char(':') + caps;
}

// The rows of a page, column by column.
inline QStringList rowsOf(const CShortcutPanel& panel, int page)
{
    QStringList rows;
    QGridLayout* const grid = gridOf(panel, page);
    for (int column = 0; column < grid->columnCount(); ++column) {
        for (int row = 0; row < grid->rowCount(); ++row) {
            QLayoutItem* const item = grid->itemAtPosition(row, column);
            rows.append(item ? textOf(*qobject_cast<CShortcutLabel*>(item->widget())) : QStringLiteral("(none)"));
        }
    }
    return rows;
}
