#include "validator/random/LibraryInvariant.h"

#include "validator/TypeFiles.h"

#include <QDir>
#include <QFileSystemModel>
#include <QTreeView>

#include <algorithm>

namespace {

using STreeNode = SSettings::TypeLibrary::STreeNode;

QFileInfoList entriesOf(const QString& folder)
{
    return folder.isEmpty()
               ? QFileInfoList()
               : QDir(folder).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name | QDir::DirsLast);
}

bool leadsToType(const QFileInfo& entry)
{
    if (!entry.isDir())
        return TypeFiles::isTypeName(entry.fileName());
    const QFileInfoList children = entriesOf(entry.filePath());
    return std::any_of(children.begin(), children.end(), leadsToType);
}

QString differenceOfType(const STreeNode& node)
{
    const auto content = TypeFiles::read(node.path);
    const TypeFiles::Content expected = content.value_or(TypeFiles::Content());
    const auto differs = [&node](const char* what) {
        return QStringLiteral("%1: %2 is not that of the file").arg(node.path, QLatin1String(what));
    };
    if (node.nodeType != (expected.cabinet ? STreeNode::MultiRcv : STreeNode::SingleRcv))
        return differs("its kind");
    if (QByteArray(node.md5.data) != TypeFiles::digestOf(node.path))
        return differs("its digest");
    if (node.resolution != (content ? QSize(expected.width, expected.height) : QSize()))
        return differs("its resolution");
    if (content && node.cabinetBlock[0] != expected.serial)
        return differs("its cabinet block");
    QList<int> cells;
    if (expected.cabinet) {
        for (std::size_t k = 0; k < std::size_t{expected.cabinet->columns} * expected.cabinet->rows && k < 10; ++k)
            cells.append(expected.cabinet->wiringOrder[k]);
    }
    if (node.cabinetList != cells || node.cabinetFlag != (expected.cabinet && expected.cabinet->specifyOrientation))
        return differs("its cabinet");
    return {};
}

QString differenceOfEntries(const LibraryInvariant::Nodes& nodes, const QFileInfoList& entries, const QString& folder)
{
    if (nodes.size() != static_cast<std::size_t>(entries.size()))
        return QStringLiteral("%1: the tree for the host has %2 entries, the disk %3")
            .arg(folder)
            .arg(nodes.size())
            .arg(entries.size());
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const STreeNode& node = nodes[i];
        const QFileInfo& entry = entries.at(static_cast<int>(i));
        if (node.path != entry.filePath() || node.name != entry.completeBaseName())
            return QStringLiteral("%1: the tree for the host has %2 in its place").arg(entry.filePath(), node.path);
        QString difference;
        if (entry.isDir() != (node.nodeType == STreeNode::Group))
            difference = QStringLiteral("%1: a folder on one side only").arg(node.path);
        else if (entry.isDir())
            difference = differenceOfEntries(node.children, entriesOf(node.path), node.path);
        else if (TypeFiles::isTypeName(node.path))
            difference = differenceOfType(node);
        if (!difference.isEmpty())
            return difference;
    }
    return {};
}

QString pathOf(const QModelIndex& index)
{
    return index.data(QFileSystemModel::FilePathRole).toString();
}

// What the row says of a type beside its name, where that is not so; empty else.
QString differenceOfRow(const QModelIndex& row, const QString& path)
{
    const auto content = TypeFiles::read(path);
    const QString resolution =
        content ? QStringLiteral("%1x%2").arg(content->width).arg(content->height) : QStringLiteral("-1x-1");
    const QString text = row.siblingAtColumn(1).data().toString();
    return text == resolution ? QString()
                              : QStringLiteral("%1: the tree shows %2, the file says %3").arg(path, text, resolution);
}

// Rows below an index whose folder is open; `differs` looks at each row of a type.
template<typename Differs>
QString differenceOfOpenRows(const QTreeView& view, const QModelIndex& parent, const QString& folder, Differs differs)
{
    const QAbstractItemModel& model = *view.model();
    QStringList shown;
    for (int row = 0; row < model.rowCount(parent); ++row)
        shown.append(QFileInfo(pathOf(model.index(row, 0, parent))).fileName());
    QStringList present;
    const QFileInfoList entries = entriesOf(folder);
    for (const QFileInfo& entry : entries) {
        if (entry.isDir() || TypeFiles::isTypeName(entry.fileName()))
            present.append(entry.fileName());
    }
    shown.sort();
    present.sort();
    if (shown != present)
        return QStringLiteral("%1: the tree shows %2, the disk has %3")
            .arg(folder, shown.join(QLatin1String(", ")), present.join(QLatin1String(", ")));

    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        const QString path = pathOf(index);
        QString difference;
        if (!QFileInfo(path).isDir())
            difference = differs(index, path);
        else if (view.isExpanded(index))
            difference = differenceOfOpenRows(view, index, path, differs);
        if (!difference.isEmpty())
            return difference;
    }
    return {};
}

template<typename Differs>
QString differenceOfTree(const QTreeView& view, const QString& folder, Differs differs)
{
    const bool isThere = !folder.isEmpty() && QFileInfo(folder).isDir();
    if (!isThere)
        return view.model() && view.model()->rowCount(view.rootIndex()) > 0
                   ? QStringLiteral("the tree shows rows of %1, which is not there").arg(pathOf(view.rootIndex()))
                   : QString();
    if (!view.model() || pathOf(view.rootIndex()) != folder)
        return QStringLiteral("the tree does not show %1").arg(folder);
    return differenceOfOpenRows(view, view.rootIndex(), folder, differs);
}

} // namespace

QString LibraryInvariant::differenceOfNodes(const Nodes& nodes, const QString& folder)
{
    QFileInfoList entries = entriesOf(folder);
    entries.erase(
        std::remove_if(entries.begin(), entries.end(), [](const QFileInfo& entry) { return !leadsToType(entry); }),
        entries.end());
    return differenceOfEntries(nodes, entries, folder);
}

QString LibraryInvariant::differenceOfRows(const QWidget& area, const QString& folder)
{
    const auto* const view = area.findChild<QTreeView*>(QStringLiteral("TypeLibrary"));
    return view ? differenceOfTree(*view, folder, differenceOfRow) : QStringLiteral("there is no tree \"TypeLibrary\"");
}

bool LibraryInvariant::isTreeBehind(const QWidget& area, const QString& folder)
{
    const auto* const view = area.findChild<QTreeView*>(QStringLiteral("TypeLibrary"));
    const auto nothing = [](const QModelIndex& /*row*/, const QString& /*path*/) { return QString(); };
    return view && view->isVisible() && !differenceOfTree(*view, folder, nothing).isEmpty();
}
