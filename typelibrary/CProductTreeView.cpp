#include "typelibrary/CProductTreeView.h"

#include "typelibrary/CProductTreeModel.h"

#include <QHeaderView>

namespace {

constexpr int nameColumnWidth = 511;
constexpr int resolutionColumnWidth = 200;

} // namespace

CProductTreeView::CProductTreeView(QWidget* parent)
    : CTreeView(parent),
      m_pModel(new CProductTreeModel(this))
{
    setObjectName(QStringLiteral("TypeLibrary"));
    setSelectionMode(SingleSelection);
    setSelectionBehavior(SelectRows);
    setDragDropMode(NoDragDrop);
    setUniformRowHeights(true);
    setHeaderHidden(false);
    setEditable(true);
    for (const auto signal : {&CProductTreeModel::rowsInserted, &CProductTreeModel::rowsRemoved})
        connect(m_pModel, signal, this, &CProductTreeView::notifyRowsChanged);
    connect(m_pModel, &CProductTreeModel::modelReset, this, &CProductTreeView::notifyRowsChanged);
    connect(m_pModel, &CProductTreeModel::directoryLoaded, this, &CProductTreeView::notifyRowsChanged);
}

void CProductTreeView::setRootPath(const QString& path)
{
    // For a folder that is not there the model would go on showing the one before.
    if (!QFileInfo(path).isDir()) {
        setModel(nullptr);
        m_pModel->setRootPath(QString());
        return;
    }
    const QModelIndex root = m_pModel->setRootPath(path);
    if (!model()) {
        setModel(m_pModel);
        setColumnHidden(CProductTreeModel::OperateColumn, true);
        header()->resizeSection(CProductTreeModel::NameColumn, nameColumnWidth);
        header()->resizeSection(CProductTreeModel::ResolutionColumn, resolutionColumnWidth);
    }
    setRootIndex(root);
}

void CProductTreeView::setEditable(bool editable)
{
    setEditTriggers(editable ? EditKeyPressed : NoEditTriggers);
}

bool CProductTreeView::hasRows() const
{
    return model() && m_pModel->rowCount(rootIndex()) > 0;
}

QModelIndex CProductTreeView::targetDirectory() const
{
    const QModelIndex current = currentIndex().siblingAtColumn(CProductTreeModel::NameColumn);
    if (!current.isValid())
        return rootIndex();
    return m_pModel->isDir(current) ? current : current.parent();
}

void CProductTreeView::newTypeFolder() {}
void CProductTreeView::importAsFolder() {}
void CProductTreeView::importCabinetFiles() {}
void CProductTreeView::clear() {}
void CProductTreeView::editIndex(const QModelIndex& /*index*/) {}
void CProductTreeView::deleteIndex(const QModelIndex& /*index*/) {}
void CProductTreeView::editMultiRcvType() {}
void CProductTreeView::exportCurrent() {}
void CProductTreeView::exportByGroup() {}
void CProductTreeView::exportAll() {}
