#include "host/CLayoutCommands.h"

#include "host/CMainWindow.h"
#include "host/CPlacedTypesPanel.h"
#include "plugin/interface/SSettings.h"

#include <QAction>
#include <QEvent>
#include <QFileInfo>
#include <QItemSelectionModel>
#include <QTreeView>

namespace {

using NodeType = SSettings::TypeLibrary::STreeNode::NodeType;

// What the type library's tree says about an entry. The tree's model knows it already, while asking the settings area
// for the library would wait for a scan.
constexpr int nodeTypeRole = 260; // int: NodeType
constexpr int digestRole = 262;   // SMD5
constexpr int pathRole = 263;     // QString

// Where one model serves all libraries, what was selected in another one stays so.
bool isBelow(const QModelIndex& index, const QModelIndex& root)
{
    for (QModelIndex child = index; child.isValid(); child = child.parent()) {
        if (child.parent() == root)
            return true;
    }
    return false;
}

} // namespace

CLayoutCommands::CLayoutCommands(Project& project, CMainWindow& window, QTreeView* tree)
    : m_project(project),
      m_window(window),
      m_pPanel(window.placedTypes()),
      m_pTree(tree)
{
    connect(window.action(CMainWindow::PlaceInLayout), &QAction::triggered, this, &CLayoutCommands::place);
    connect(window.action(CMainWindow::RemoveFromLayout), &QAction::triggered, this, &CLayoutCommands::remove);
    connect(&project, &Project::notifyChanged, this, &CLayoutCommands::showProject);
    connect(m_pPanel, &CPlacedTypesPanel::notifyCurrentChanged, this, &CLayoutCommands::enableCommands);
    if (tree)
        tree->installEventFilter(this);
    m_pPanel->setTypes(project.placedTypes());
    followLibrary();
}

void CLayoutCommands::followLibrary()
{
    if (m_pTree && m_pTree->selectionModel())
        connect(m_pTree->selectionModel(), &QItemSelectionModel::selectionChanged, this, &CLayoutCommands::followTree,
                Qt::UniqueConnection);
    followTree();
}

bool CLayoutCommands::eventFilter(QObject* watched, QEvent* event)
{
    // Queued: a tree that is being destroyed is hidden too, and is no tree any more then.
    if (event->type() == QEvent::Show || event->type() == QEvent::Hide)
        QMetaObject::invokeMethod(this, &CLayoutCommands::enableCommands, Qt::QueuedConnection);
    return QObject::eventFilter(watched, event);
}

std::optional<CLayoutCommands::Type> CLayoutCommands::treeType() const
{
    // Not the current one, which a tree gets unasked when it gets the focus.
    if (!m_pTree || !m_pTree->isVisible() || !m_pTree->selectionModel())
        return std::nullopt;
    const QModelIndex index = m_pTree->selectionModel()->selectedIndexes().value(0);
    if (!isBelow(index, m_pTree->rootIndex()))
        return std::nullopt;
    const int nodeType = index.data(nodeTypeRole).toInt();
    if (nodeType != NodeType::SingleRcv && nodeType != NodeType::MultiRcv)
        return std::nullopt;
    return Type{index.data(digestRole).value<SMD5>(), QFileInfo(index.data(pathRole).toString()).completeBaseName()};
}

void CLayoutCommands::place()
{
    const auto type = treeType();
    if (type && m_project.place(type->md5, type->name))
        followTree();
}

void CLayoutCommands::remove()
{
    m_project.removeAt(m_pPanel->currentRow());
}

void CLayoutCommands::showProject()
{
    m_pPanel->setTypes(m_project.placedTypes());
    enableCommands();
}

void CLayoutCommands::followTree()
{
    const auto type = treeType();
    m_pPanel->setCurrentRow(type ? m_project.indexOf(type->md5) : -1);
    enableCommands();
}

void CLayoutCommands::enableCommands()
{
    const auto type = treeType();
    const bool isPlaceable = type && type->md5.data[0] != '\0' && !m_project.places(type->md5);
    m_window.action(CMainWindow::PlaceInLayout)->setEnabled(isPlaceable);
    m_window.action(CMainWindow::RemoveFromLayout)->setEnabled(m_pPanel->currentRow() >= 0);
}
