#include "typelibrary/CProductTreeModel.h"

#include "typelibrary/CProductFileIconProvider.h"
#include "typelibrary/store/LibraryFolders.h"
#include "typelibrary/store/TypeFileAttributes.h"
#include "typelibrary/store/TypeFolders.h"

#include <widgetry/CMessageBox.h>

#include <QDir>
#include <QScopedValueRollback>

#include <algorithm>

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
    setOption(DontWatchForChanges);
    connect(&m_watch, &QFileSystemWatcher::directoryChanged, this, &CProductTreeModel::readAgain);
    connect(this, &QFileSystemModel::rowsAboutToBeRemoved, this, &CProductTreeModel::unfollow);
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

bool CProductTreeModel::renameFolder(const QModelIndex& folder, const QString& name)
{
    const QPersistentModelIndex renamed = folder;
    const QString oldPath = filePath(folder);
    const QStringList followed = followedBelow(oldPath);
    if (!followed.isEmpty())
        m_watch.removePaths(followed);
    const bool isRenamed = QFileSystemModel::setData(folder, name, Qt::EditRole);
    const QString newPath = filePath(renamed);
    for (const QString& path : followed)
        readAgain(newPath + path.mid(oldPath.size()));
    return isRenamed;
}

void CProductTreeModel::fetchMore(const QModelIndex& parent)
{
    if (m_bOnlyMarking)
        return;
    const QString folder = filePath(parent);
    if (!folder.isEmpty() && !m_watch.directories().contains(folder)) {
        if (folder == rootPath())
            unfollowVanished();  // the library before may be this one, renamed
        m_watch.addPath(folder); // before it is read, or a change in between would not be seen
    }
    QFileSystemModel::fetchMore(parent);
}

QStringList CProductTreeModel::followedBelow(const QString& folder) const
{
    QStringList followed = m_watch.directories();
    const auto isElsewhere = [&folder](const QString& path) {
        return path != folder && !path.startsWith(folder + QLatin1Char('/'));
    };
    followed.erase(std::remove_if(followed.begin(), followed.end(), isElsewhere), followed.end());
    return followed;
}

// Whatever has vanished may be back under another path. Were it still followed under this one, it would not be there.
void CProductTreeModel::unfollow(const QModelIndex& parent, int first, int last)
{
    for (int row = first; row <= last; ++row) {
        const QModelIndex entry = index(row, NameColumn, parent);
        const QStringList followed = isDir(entry) ? followedBelow(filePath(entry)) : QStringList();
        if (!followed.isEmpty())
            m_watch.removePaths(followed);
    }
}

void CProductTreeModel::unfollowVanished()
{
    const QStringList followed = m_watch.directories();
    for (const QString& path : followed) {
        if (!QFileInfo(path).isDir())
            m_watch.removePath(path);
    }
}

// The base class reads a folder again once it has been its root and is so no longer.
void CProductTreeModel::readAgain(const QString& folder)
{
    if (!QFileInfo(folder).isDir())
        return; // its own folder tells
    const QString root = rootPath();
    {
        const QScopedValueRollback<bool> marking(m_bOnlyMarking, true);
        setRootPath(folder);
        setRootPath(QString());
        setRootPath(root);
    }
    fetchMore(index(folder));
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
