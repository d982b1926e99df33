#include "typelibrary/CProductTreeModel.h"

#include "typelibrary/CProductFileIconProvider.h"
#include "typelibrary/store/LibraryFolders.h"
#include "typelibrary/store/TypeFileAttributes.h"
#include "typelibrary/store/TypeFolders.h"

#include <widgetry/CMessageBox.h>

#include <QDir>

namespace {

using NodeType = SSettings::TypeLibrary::STreeNode::NodeType;

// Names that would move the entry elsewhere or leave it without one. Renaming to such a name fails like renaming to a
// name that is taken.
bool isUsableName(const QString& name)
{
    return !name.isEmpty() && name != QLatin1String(".") && name != QLatin1String("..") &&
           !name.contains(QLatin1Char('/')) && !name.contains(QChar::Null);
}

void informNameTaken(bool isGroup)
{
    CMessageBox::information(nullptr,
                             isGroup ? CProductTreeModel::tr("There is already a type group with the same name.")
                                     : CProductTreeModel::tr("There is already a type with the same name."),
                             QStringLiteral("Orvel"), CMessageBox::Ok, CMessageBox::Ok);
}

} // namespace

CProductTreeModel::CProductTreeModel(QObject* parent)
    : QFileSystemModel(parent),
      m_pIconProvider(new CProductFileIconProvider)
{
    setIconProvider(m_pIconProvider.get());
    setNameFilters(typeFileFilters());
    setNameFilterDisables(false);
    connect(this, &QFileSystemModel::directoryLoaded, this, [this](const QString& folder) { m_loaded.insert(folder); });
    forgetExpandersOn(&QFileSystemModel::layoutChanged);
    forgetExpandersOn(&QFileSystemModel::modelReset);
    forgetExpandersOn(&QFileSystemModel::rowsInserted);
    forgetExpandersOn(&QFileSystemModel::rowsRemoved);
}

CProductTreeModel::~CProductTreeModel() = default;

template<typename Signal>
void CProductTreeModel::forgetExpandersOn(Signal signal)
{
    connect(this, signal, this, [this] { m_expandable.clear(); });
}

int CProductTreeModel::columnCount(const QModelIndex& /*parent*/) const
{
    return ColumnCount;
}

bool CProductTreeModel::hasChildren(const QModelIndex& parent) const
{
    if (parent.column() > 0)
        return false;
    return !parent.isValid() || (isDir(parent) && isExpandable(filePath(parent)));
}

bool CProductTreeModel::isExpandable(const QString& folder) const
{
    // The plug-in's own changes are known before the watcher tells the model about them.
    const std::uint64_t removals = TypeFileInfoCache::instance().removals();
    if (m_removals != removals)
        m_expandable.clear();
    m_removals = removals;

    auto known = m_expandable.find(folder);
    if (known == m_expandable.end())
        known = m_expandable.insert(folder, !isFreeOfTypes(folder));
    return *known;
}

QVariant CProductTreeModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.model() != this)
        return {};

    switch (role) {
    case Qt::DisplayRole:
        if (index.column() == ResolutionColumn && !isDir(index)) {
            const QSize resolution = typeInfo(index, TypeFileInfo::Resolution).resolution;
            return QStringLiteral("%1x%2").arg(resolution.width()).arg(resolution.height());
        }
        break;
    case Qt::EditRole:
        if (index.column() == NameColumn && !isDir(index))
            return index.data(FileNameRole);
        break;
    case Qt::DecorationRole:
        // The base class goes on showing the icon that it got first, when there may have been no host to ask.
        if (index.column() == NameColumn)
            return m_pIconProvider->iconOf(nodeType(index));
        break;
    case Qt::TextAlignmentRole:
        return int(Qt::AlignLeft | Qt::AlignVCenter);
    case FileNameRole:
        return QFileInfo(filePath(index)).completeBaseName();
    case NodeTypeRole:
        return int(nodeType(index));
    case ResolutionRole:
        return typeInfo(index, TypeFileInfo::Resolution).resolution;
    case Md5Role:
        return isDir(index) ? QVariant() : QVariant::fromValue(typeInfo(index, TypeFileInfo::Digest).md5);
    case PathRole:
        return filePath(index);
    default:
        break;
    }
    return QFileSystemModel::data(index, role);
}

bool CProductTreeModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid() || index.column() != NameColumn || role != Qt::EditRole ||
        !flags(index).testFlag(Qt::ItemIsEditable))
        return false;

    const bool isGroup = isDir(index);
    const QString oldName = index.data(Qt::DisplayRole).toString();
    const QString editedName = value.toString();
    const QString newName = isGroup ? editedName : QStringLiteral("%1.%2").arg(editedName, QFileInfo(oldName).suffix());
    if (newName == oldName)
        return true;

    // The base class answers a failure with a message box of its own, so it only gets names that work.
    QDir parentFolder(filePath(index.parent()));
    if (isUsableName(editedName) && parentFolder.rename(oldName, newName)) {
        parentFolder.rename(newName, oldName);
        return isGroup ? renameFolder(index, newName) : QFileSystemModel::setData(index, newName, Qt::EditRole);
    }
    // Later: an editor that writes its name into the model cannot be destroyed meanwhile, as it may be behind a box.
    QMetaObject::invokeMethod(
        this, [isGroup] { informNameTaken(isGroup); }, Qt::QueuedConnection);
    return false;
}

// The base class would go on watching the folder, and those below it, under their old paths, and no longer follow the
// disk there.
bool CProductTreeModel::renameFolder(const QModelIndex& folder, const QString& name)
{
    QModelIndexList loaded;
    for (QModelIndexList folders{folder}; !folders.isEmpty();) {
        const QModelIndex parent = folders.takeLast();
        if (!m_loaded.remove(filePath(parent)))
            continue;
        loaded.append(parent);
        for (int row = 0; row < rowCount(parent); ++row) {
            const QModelIndex child = index(row, NameColumn, parent);
            if (isDir(child))
                folders.append(child);
        }
    }
    if (loaded.isEmpty())
        return QFileSystemModel::setData(folder, name, Qt::EditRole);

    // A folder that ceases to be the root is let go, and fetchMore() reads and watches it again.
    const QString root = rootPath();
    for (const QModelIndex& parent : qAsConst(loaded))
        setRootPath(filePath(parent));
    setRootPath(QString());
    const bool isRenamed = QFileSystemModel::setData(folder, name, Qt::EditRole);
    setRootPath(root);
    for (const QModelIndex& parent : qAsConst(loaded))
        fetchMore(parent);
    return isRenamed;
}

QVariant CProductTreeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role == Qt::DisplayRole) {
        switch (section) {
        case NameColumn:
            return tr("Type");
        case ResolutionColumn:
            return tr("Resolution");
        case OperateColumn:
            return tr("Operate");
        default:
            break;
        }
    }
    return QFileSystemModel::headerData(section, orientation, role);
}

bool CProductTreeModel::canFetchMore(const QModelIndex& parent) const
{
    return hasChildren(parent);
}

Qt::ItemFlags CProductTreeModel::flags(const QModelIndex& index) const
{
    // Not the base class's: types are neither dragged nor dropped.
    Qt::ItemFlags flags = QAbstractItemModel::flags(index); // NOLINT(bugprone-parent-virtual-call)
    if (index.isValid() && index.column() == NameColumn)
        flags |= Qt::ItemIsEditable;
    return flags;
}

NodeType CProductTreeModel::nodeType(const QModelIndex& index) const
{
    return isDir(index) ? NodeType::Group : typeInfo(index, TypeFileInfo::Type).nodeType;
}

TypeFileInfo CProductTreeModel::typeInfo(const QModelIndex& index, TypeFileInfo::Attribute attribute) const
{
    // That the file exists the model knows itself: painting a row must not look at the disk again.
    const QString path = filePath(index);
    return !isDir(index) && hasTypeSuffix(QFileInfo(path)) ? typeFileInfo(path, attribute) : TypeFileInfo{};
}
