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
