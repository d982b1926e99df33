#include "host/tour/LibraryTree.h"

#include "host/tour/TourStage.h"
#include "plugin/interface/ISettingInterface.h"

#include <QDir>
#include <QTreeView>

#include <algorithm>

namespace {

constexpr int typeLibraryTab = 1;
constexpr int pathRole = 263; // QString

// How many entries of the folder the tree shows.
int entriesIn(const QString& folder)
{
    const QStringList types{QStringLiteral("*.rcvp"), QStringLiteral("*.rcvbp")};
    return QDir(folder).entryList(types, QDir::AllDirs | QDir::Files | QDir::NoDotAndDotDot).size();
}

// Opens all groups below `parent`. The model reads each folder on a thread of its own, on a busy machine in several
// parts, and sorts what it has read after that.
bool expand(TourStage& stage, QTreeView* tree, const QPersistentModelIndex& parent)
{
    const QAbstractItemModel* const model = tree->model();
    const int entries = entriesIn(parent.data(pathRole).toString());
    const auto isRead = [&] { return model->rowCount(parent) >= entries; };
    if (!stage.waitFor(isRead, QStringLiteral("the content of the type library")))
        return false;
    QVector<QPersistentModelIndex> rows;
    for (int row = 0; row < model->rowCount(parent); ++row)
        rows.append(model->index(row, 0, parent));
    return std::all_of(rows.cbegin(), rows.cend(), [&](const QPersistentModelIndex& index) {
        if (!model->hasChildren(index))
            return true;
        tree->expand(index);
        return expand(stage, tree, index);
    });
}

// The entry with the path below `parent`, as far as the model has read it.
QModelIndex find(const QTreeView* tree, const QString& path, const QModelIndex& parent)
{
    const QAbstractItemModel* const model = tree->model();
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex index = model->index(row, 0, parent);
        const QString entry = index.data(pathRole).toString();
        if (entry == path)
            return index;
        if (path.startsWith(entry + QLatin1Char('/')))
            return find(tree, path, index);
    }
    return {};
}

// The entry with the path in the library.
QModelIndex find(const TourStage& stage, const QString& entry)
{
    const QTreeView* const tree = LibraryTree::of(stage);
    return find(tree, stage.path(QStringLiteral("type-library/") + entry), tree->rootIndex());
}

} // namespace

QTreeView* LibraryTree::of(const TourStage& stage)
{
    return stage.area()->widget()->findChild<QTreeView*>(QStringLiteral("TypeLibrary"));
}

bool LibraryTree::expandAll(TourStage& stage)
{
    stage.area()->setCurrentTab(typeLibraryTab);
    QTreeView* const tree = of(stage);
    return expand(stage, tree, tree->rootIndex());
}

bool LibraryTree::select(TourStage& stage, const QString& entry)
{
    QModelIndex index;
    const auto isThere = [&] { return (index = find(stage, entry)).isValid(); };
    if (!entry.isEmpty() && !stage.waitFor(isThere, entry))
        return false;
    of(stage)->setCurrentIndex(index);
    return true;
}

bool LibraryTree::waitUntilGone(TourStage& stage, const QString& entry)
{
    return stage.waitFor([&] { return !find(stage, entry).isValid(); }, QStringLiteral("the end of ") + entry);
}
