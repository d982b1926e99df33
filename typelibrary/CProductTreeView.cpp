#include "typelibrary/CProductTreeView.h"

#include "typelibrary/CProductNameDelegate.h"
#include "typelibrary/CProductTreeDelegate.h"
#include "typelibrary/CProductTreeMenu.h"
#include "typelibrary/CProductTreeModel.h"
#include "typelibrary/ChangeOperations.h"
#include "typelibrary/ExportOperations.h"
#include "typelibrary/ImportOperations.h"
#include "typelibrary/store/CTypeLibrary.h"
#include "typelibrary/store/LibraryFolders.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QShortcut>

using NodeType = SSettings::TypeLibrary::STreeNode::NodeType;

CProductTreeView::CProductTreeView(QWidget* parent)
    : CTreeView(parent),
      m_pModel(new CProductTreeModel(this)),
      m_pOperateDelegate(new CProductTreeDelegate(this)),
      m_pEditShortcut(new QShortcut(Qt::Key_F2, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut)),
      m_pDeleteShortcut(new QShortcut(QKeySequence::Delete, this, nullptr, nullptr, Qt::WidgetShortcut))
{
    setObjectName(QStringLiteral("TypeLibrary"));
    setSelectionMode(SingleSelection);
    setSelectionBehavior(SelectRows);
    setDragDropMode(NoDragDrop);
    setEditTriggers(NoEditTriggers); // the view asks the host before it opens the editor
    setUniformRowHeights(true);
    setHeaderHidden(false);
    setItemDelegateForColumn(CProductTreeModel::NameColumn, new CProductNameDelegate(this));
    setItemDelegateForColumn(CProductTreeModel::OperateColumn, m_pOperateDelegate);

    connect(m_pOperateDelegate, &CProductTreeDelegate::notifyEditClicked, this, &CProductTreeView::editIndex);
    connect(m_pOperateDelegate, &CProductTreeDelegate::notifyDeleteClicked, this, &CProductTreeView::deleteIndex);
    connect(m_pEditShortcut, &QShortcut::activated, this, [this] { editIndex(currentIndex()); });
    connect(m_pDeleteShortcut, &QShortcut::activated, this, [this] { deleteIndex(currentIndex()); });
    connect(&m_rootWatch, &QFileSystemWatcher::directoryChanged, this, [this](const QString& path) {
        if (!QFileInfo(path).isDir())
            setRootPath(path);
        else if (!m_rootWatch.directories().contains(path))
            m_rootWatch.addPath(path); // another folder has taken its place
    });
    connectModel();
}

void CProductTreeView::connectModel()
{
    connect(m_pModel, &CProductTreeModel::rowsInserted, this, &CProductTreeView::notifyRowsChanged);
    connect(m_pModel, &CProductTreeModel::rowsRemoved, this, &CProductTreeView::notifyRowsChanged);
    // A folder that has gone when the base class is told what it had stands for the top of the disk there, which then
    // loses all its rows. Later: the base class is still at it.
    connect(
        m_pModel, &CProductTreeModel::rowsRemoved, this,
        [this] {
            if (model() && !rootIndex().isValid())
                setRootPath(m_pModel->rootPath());
        },
        Qt::QueuedConnection);
    connect(m_pModel, &CProductTreeModel::modelReset, this, &CProductTreeView::notifyRowsChanged);
    connect(m_pModel, &CProductTreeModel::directoryLoaded, this, &CProductTreeView::notifyRowsChanged);
    connect(m_pModel, &CProductTreeModel::fileRenamed, this, &rescanRenamed);
    // The base class reads only what has rows; a group that is open and empty is to be followed, too.
    connect(this, &QTreeView::expanded, m_pModel, &CProductTreeModel::fetchMore);
}

void CProductTreeView::setRootPath(const QString& path)
{
    if (!m_rootWatch.directories().isEmpty())
        m_rootWatch.removePaths(m_rootWatch.directories());
    // For a folder that is not there the model would go on showing the one before.
    if (!QFileInfo(path).isDir()) {
        setModel(nullptr);
        m_pModel->setRootPath(QString());
    } else {
        showLibrary(m_pModel->setRootPath(path));
        m_rootWatch.addPath(m_pModel->rootPath());
    }
    Q_EMIT notifyRowsChanged();
}

void CProductTreeView::showLibrary(const QModelIndex& root)
{
    if (!model()) {
        setModel(m_pModel);
        for (int column = 0; column < CProductTreeModel::ColumnCount; ++column)
            header()->resizeSection(column, m_pOperateDelegate->sizeHint({}, root.siblingAtColumn(column)).width());
    }
    if (rootIndex() != root)
        setCurrentIndex({});
    setRootIndex(root);
}

void CProductTreeView::setEditable(bool editable)
{
    m_bEditable = editable;
    m_pOperateDelegate->setEnabled(editable);
    m_pEditShortcut->setEnabled(editable);
    m_pDeleteShortcut->setEnabled(editable);
    if (editable)
        return;
    // What was begun when it was allowed is not to be finished either.
    if (m_pMenu)
        m_pMenu->close();
    if (QWidget* const editor = model() ? indexWidget(currentIndex()) : nullptr)
        closeEditor(editor, QAbstractItemDelegate::RevertModelCache);
}

bool CProductTreeView::hasRows() const
{
    return model() && m_pModel->rowCount(rootIndex()) > 0;
}

QModelIndex CProductTreeView::targetDirectory() const
{
    const QModelIndex current = entryOf(currentIndex());
    if (!current.isValid())
        return model() ? rootIndex() : QModelIndex();
    return m_pModel->isDir(current) ? current : current.parent();
}

QModelIndex CProductTreeView::entryOf(const QModelIndex& index) const
{
    const QModelIndex entry = index.siblingAtColumn(CProductTreeModel::NameColumn);
    for (QModelIndex above = entry.parent(); model() && above.isValid(); above = above.parent()) {
        if (above == rootIndex())
            return entry;
    }
    return {};
}

QString CProductTreeView::pathOf(const QModelIndex& index) const
{
    return index.isValid() ? m_pModel->filePath(index) : QString();
}

QString CProductTreeView::libraryFolder() const
{
    return model() ? pathOf(rootIndex()) : QString();
}

void CProductTreeView::mousePressEvent(QMouseEvent* event)
{
    if (!indexAt(event->pos()).isValid()) {
        clearSelection();
        setCurrentIndex({});
    }
    CTreeView::mousePressEvent(event);
}

void CProductTreeView::contextMenuEvent(QContextMenuEvent* event)
{
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QPersistentModelIndex entry = entryOf(byKey ? currentIndex() : indexAt(event->pos()));
    if (!m_bEditable || !entry.isValid())
        return;
    setCurrentIndex(entry); // writes the name that is being edited elsewhere, which may end in a message
    if (!entry.isValid())
        return;
    scrollTo(entry);

    m_pMenu = new CProductTreeMenu(NodeType(entry.data(CProductTreeModel::NodeTypeRole).toInt()), this);
    connect(m_pMenu, &QMenu::aboutToHide, m_pMenu, &QObject::deleteLater);
    connect(m_pMenu, &CProductTreeMenu::notifyChosen, m_pMenu, &QWidget::close);
    // Queued: the operation runs dialogs, and by then the menu is done.
    connect(
        m_pMenu, &CProductTreeMenu::notifyChosen, this, [this, entry](int chosen) { run(chosen, entry); },
        Qt::QueuedConnection);
    m_pMenu->popup(byKey ? viewport()->mapToGlobal(visualRect(entry).bottomLeft()) : event->globalPos());
}

// Does what was chosen for the entry, unless that has vanished meanwhile: then another one is current.
void CProductTreeView::run(int chosen, const QPersistentModelIndex& index)
{
    if (!m_bEditable || !entryOf(index).isValid())
        return;
    setCurrentIndex(index);
    if (chosen == CProductTreeMenu::ImportAsFolder || chosen == CProductTreeMenu::ImportCabinetFiles)
        CTypeLibrary::instance().updateLibrary(); // the searches for duplicates see the folder as it is now

    static const QMap<int, void (CProductTreeView::*)()> operations = {
        {CProductTreeMenu::NewTypeFolder, &CProductTreeView::newTypeFolder},
        {CProductTreeMenu::ImportAsFolder, &CProductTreeView::importAsFolder},
        {CProductTreeMenu::ImportCabinetFiles, &CProductTreeView::importCabinetFiles},
        {CProductTreeMenu::Edit, &CProductTreeView::editMultiRcvType},
        {CProductTreeMenu::ExportByGroup, &CProductTreeView::exportByGroup},
        {CProductTreeMenu::ExportCurrent, &CProductTreeView::exportCurrent},
        {CProductTreeMenu::ExportAll, &CProductTreeView::exportAll},
    };
    if (chosen == CProductTreeMenu::Rename)
        editIndex(index);
    else if (chosen == CProductTreeMenu::Delete)
        deleteIndex(index);
    else if (const auto operation = operations.value(chosen))
        (this->*operation)();
}

void CProductTreeView::newTypeFolder()
{
    const QModelIndex target = targetDirectory();
    const QString folder = pathOf(target);
    if (folder.isEmpty())
        return;
    if (groupLevel(folder, libraryFolder()) >= deepestGroupLevel) {
        informTooDeep(this);
        return;
    }
    const QModelIndex created = m_pModel->mkdir(target, freeName(folder, tr("New type folder")));
    if (!created.isValid())
        return;
    expandFolder(folder);
    setCurrentIndex(created);
}

void CProductTreeView::importAsFolder()
{
    const QString target = pathOf(targetDirectory());
    if (target.isEmpty())
        return;
    ::importAsFolder(this, libraryFolder(), target, m_lastFolder, [this, target](const QStringList& folders) {
        expandFolder(target);
        for (const QString& folder : folders)
            expandFolder(folder);
    });
}

void CProductTreeView::importCabinetFiles()
{
    const QString target = pathOf(targetDirectory());
    if (!target.isEmpty())
        ::importCabinetFiles(this, target, m_lastFolder);
}

void CProductTreeView::expandFolder(const QString& path)
{
    const QModelIndex folder = entryOf(m_pModel->index(path));
    if (folder.isValid())
        expand(folder);
}

void CProductTreeView::clear()
{
    deleteAll(this, libraryFolder());
}

void CProductTreeView::editIndex(const QModelIndex& index)
{
    const QPersistentModelIndex entry = entryOf(index);
    if (!entry.isValid() ||
        (!m_pModel->isDir(entry) && !mayChangeType(this, entry.data(CProductTreeModel::Md5Role).value<SMD5>())))
        return;
    setCurrentIndex(entry);
    if (entry.isValid() && !indexWidget(entry))
        edit(entry);
}

void CProductTreeView::deleteIndex(const QModelIndex& index)
{
    const QModelIndex entry = entryOf(index);
    if (entry.isValid())
        deleteEntry(this, *m_pModel, entry);
}

void CProductTreeView::editMultiRcvType()
{
    const QModelIndex entry = entryOf(currentIndex());
    if (entry.isValid() && !m_pModel->isDir(entry))
        editType(this, pathOf(targetDirectory()), pathOf(entry));
}

void CProductTreeView::exportCurrent()
{
    const QModelIndex entry = entryOf(currentIndex());
    if (entry.isValid() && !m_pModel->isDir(entry))
        exportType(this, libraryFolder(), pathOf(entry),
                   entry.data(CProductTreeModel::NodeTypeRole).toInt() == NodeType::MultiRcv);
}

void CProductTreeView::exportByGroup()
{
    const QModelIndex entry = entryOf(currentIndex());
    if (entry.isValid() && m_pModel->isDir(entry))
        exportGroup(this, libraryFolder(), pathOf(entry));
}

void CProductTreeView::exportAll()
{
    const QString root = libraryFolder();
    if (!root.isEmpty())
        exportLibrary(this, root);
}
