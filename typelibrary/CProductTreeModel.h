#pragma once

#include "typelibrary/store/TypeFileInfoCache.h"

#include <QFileSystemModel>
#include <QFileSystemWatcher>
#include <QHash>

#include <cstdint>
#include <memory>

class CProductFileIconProvider;

// The library folder as a tree of three columns: name, cabinet resolution, and a column for the delegate's buttons.
// Follows the disk by itself; files that are no types are hidden. Kind, digest and resolution come from the type file
// attributes, so that neither the host nor the disk is asked again for what is known. [GUI thread]
class CProductTreeModel : public QFileSystemModel
{
    Q_OBJECT

public:
    enum Column
    {
        NameColumn,
        ResolutionColumn,
        OperateColumn,
        ColumnCount,
    };

    enum Role
    {
        NodeTypeRole = Qt::UserRole + 4, // int: SSettings::TypeLibrary::STreeNode::NodeType
        ResolutionRole,                  // QSize in pixels, (-1, -1) for folders
        Md5Role,                         // SMD5, files only
        PathRole,                        // QString
    };

    explicit CProductTreeModel(QObject* parent = nullptr);
    ~CProductTreeModel() override;

    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override; // looks at the folder
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

    // Renames the entry: `value` is the new base name of a file, whose suffix stays, or the new name of a folder.
    // True when it now has that name. A name that is taken is answered with a message box, after this has returned.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override; // reads the folder, and follows it from then on
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    template<typename Signal>
    void forgetExpandersOn(Signal signal);

    SSettings::TypeLibrary::STreeNode::NodeType nodeType(const QModelIndex& index) const;

    bool renameFolder(const QModelIndex& folder, const QString& name);

    // Folders that are followed: this one and those below it.
    QStringList followedBelow(const QString& folder) const;
    void unfollow(const QModelIndex& parent, int first, int last);
    void unfollowVanished();
    void readAgain(const QString& folder);

    // Whether the folder gets an expander. A tree view asks for that when the pointer moves, too.
    bool isExpandable(const QString& folder) const;

    // What the row's file is known, or now found, to be; nothing for folders and for files that are no types.
    TypeFileInfo typeInfo(const QModelIndex& index, TypeFileInfo::Attribute attribute) const;

    const std::unique_ptr<CProductFileIconProvider> m_pIconProvider;
    // The base class's own goes on watching a folder that was renamed under its old path, and then hears nothing of it
    // under its new one.
    QFileSystemWatcher m_watch;
    bool m_bOnlyMarking = false; // the root changes for the side effect; nothing is to be read

    mutable QHash<QString, bool> m_expandable; // by path of the folder, as long as nothing has changed
    mutable std::uint64_t m_removals = 0;      // from the attribute cache when these answers were found
};
