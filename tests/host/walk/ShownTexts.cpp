#include "tests/host/walk/ShownTexts.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QSpinBox>
#include <QTabBar>
#include <QTextEdit>

namespace {

class Collector
{
public:
    explicit Collector(ShownTexts& texts)
        : m_texts(texts)
    {
    }

    void collect(const QWidget* widget)
    {
        m_place = placeOf(widget);
        collectOwn(widget);
        const QObjectList& children = widget->children();
        for (const QObject* const child : children) {
            const auto* const part = qobject_cast<const QWidget*>(child);
            if (part && !part->isWindow() && part->isVisible())
                collect(part);
        }
    }

private:
    void add(const QString& what, const QString& text)
    {
        if (!text.isEmpty())
            m_texts[m_place + QLatin1Char(' ') + what] = text;
    }

    void collectOwn(const QWidget* widget)
    {
        if (widget->isWindow())
            add(QStringLiteral("title"), widget->windowTitle());
        add(QStringLiteral("tooltip"), widget->toolTip());
        add(QStringLiteral("status tip"), widget->statusTip());
        add(QStringLiteral("accessible name"), widget->accessibleName());
        add(QStringLiteral("accessible description"), widget->accessibleDescription());
        if (const auto* const label = qobject_cast<const QLabel*>(widget))
            add(QStringLiteral("text"), label->text());
        else if (const auto* const button = qobject_cast<const QAbstractButton*>(widget))
            add(QStringLiteral("text"), button->text());
        else if (const auto* const group = qobject_cast<const QGroupBox*>(widget))
            add(QStringLiteral("text"), group->title());
        else if (const auto* const edit = qobject_cast<const QLineEdit*>(widget))
            addEdit(edit);
        else if (const auto* const text = qobject_cast<const QTextEdit*>(widget))
            add(QStringLiteral("text"), text->toPlainText());
        else if (const auto* const bar = qobject_cast<const QProgressBar*>(widget))
            add(QStringLiteral("text"), bar->format());
        else if (const auto* const box = qobject_cast<const QComboBox*>(widget))
            addEntries(box);
        else if (const auto* const tabs = qobject_cast<const QTabBar*>(widget))
            addTabs(tabs);
        else if (const auto* const header = qobject_cast<const QHeaderView*>(widget))
            addSections(header);
        else if (const auto* const view = qobject_cast<const QAbstractItemView*>(widget))
            addCells(view);
        else if (qobject_cast<const QMenu*>(widget) || qobject_cast<const QMenuBar*>(widget))
            addActions(widget);
    }

    void addEdit(const QLineEdit* edit)
    {
        add(QStringLiteral("text"), edit->displayText());
        add(QStringLiteral("placeholder"), edit->placeholderText());
    }

    void addEntries(const QComboBox* box)
    {
        for (int i = 0; i < box->count(); ++i)
            add(QStringLiteral("entry %1").arg(i), box->itemText(i));
    }

    void addTabs(const QTabBar* tabs)
    {
        for (int i = 0; i < tabs->count(); ++i) {
            add(QStringLiteral("tab %1").arg(i), tabs->tabText(i));
            add(QStringLiteral("tooltip of tab %1").arg(i), tabs->tabToolTip(i));
        }
    }

    void addSections(const QHeaderView* header)
    {
        for (int i = 0; header->model() && i < header->count(); ++i) {
            for (const auto role : {Qt::DisplayRole, Qt::ToolTipRole})
                add(QStringLiteral("section %1, role %2").arg(i).arg(role),
                    header->model()->headerData(i, header->orientation(), role).toString());
        }
    }

    // The first column holds names, whose order is the locale's.
    void addCells(const QAbstractItemView* view)
    {
        const QAbstractItemModel* const model = view->model();
        const QModelIndex root = view->rootIndex();
        for (int row = 0; model && row < model->rowCount(root); ++row) {
            const QString name = model->index(row, 0, root).data().toString();
            for (int column = 0; column < model->columnCount(root); ++column) {
                for (const auto role : {Qt::DisplayRole, Qt::ToolTipRole, Qt::AccessibleTextRole})
                    add(QStringLiteral("cell %1 of %2, role %3").arg(column).arg(name).arg(role),
                        model->index(row, column, root).data(role).toString());
            }
        }
    }

    void addActions(const QWidget* widget)
    {
        const QList<QAction*> actions = widget->actions();
        for (int i = 0; i < actions.size(); ++i) {
            add(QStringLiteral("action %1").arg(i), actions.at(i)->text());
            add(QStringLiteral("tooltip of action %1").arg(i), actions.at(i)->toolTip());
            add(QStringLiteral("status tip of action %1").arg(i), actions.at(i)->statusTip());
        }
    }

    ShownTexts& m_texts;
    QString m_place;
};

} // namespace

QString placeOf(const QWidget* widget)
{
    const QLatin1String name(widget->metaObject()->className());
    const QWidget* const parent = widget->isWindow() ? nullptr : widget->parentWidget();
    if (!parent)
        return name;
    int number = 0;
    for (const QObject* const sibling : parent->children()) {
        if (sibling == widget)
            break;
        number += name == QLatin1String(sibling->metaObject()->className()) ? 1 : 0;
    }
    return QStringLiteral("%1/%2%3").arg(placeOf(parent), name).arg(number);
}

ShownTexts shownTexts()
{
    ShownTexts texts;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (const QWidget* const window : windows) {
        if (window->isVisible())
            Collector(texts).collect(window);
    }
    return texts;
}
