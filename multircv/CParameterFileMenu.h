#pragma once

#include "plugin/interface/SSettings.h"

#include <QIcon>
#include <QMenu>

#include <vector>

// The menu that parameter files are chosen from: "Browse...", and the library's single-receiver types in submenus as
// the library's groups have them. Submenus are filled when they are about to show, and a folder of very many types is
// divided, so that no menu takes long to open. What was chosen is told by triggered(). [GUI thread]
class CParameterFileMenu : public QMenu
{
    Q_OBJECT

public:
    using STreeNode = SSettings::TypeLibrary::STreeNode;

    explicit CParameterFileMenu(std::vector<STreeNode> tree, QWidget* parent = nullptr);

    QAction* browseAction() const { return m_pBrowse; }

    // Path of the type that the action stands for.
    static QString pathOf(const QAction* action);

protected:
    void changeEvent(QEvent* event) override;

private:
    using Types = std::vector<const STreeNode*>;

    void setTexts();
    void addEntries(QMenu* menu, const std::vector<STreeNode>& nodes);
    void addTypes(QMenu* menu, const Types& types);
    template<typename Fill>
    QMenu* addLazyMenu(QMenu* menu, const QString& text, Fill fill);

    const std::vector<STreeNode> m_tree; // which the functions that fill submenus point into
    const QIcon m_typeIcon;
    QAction* m_pBrowse;
};
