#pragma once

#include "typelibrary/store/TypeFileInfoCache.h"

#include <QFileSystemModel>
#include <QHash>
#include <QSet>

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
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    template<typename Signal>
    void forgetExpandersOn(Signal signal);

    SSettings::TypeLibrary::STreeNode::NodeType nodeType(const QModelIndex& index) const;

    bool renameFolder(const QModelIndex& folder, const QString& name);

    // Whether the folder gets an expander. A tree view asks for that when the pointer moves, too.
    bool isExpandable(const QString& folder) const;

    // What the row's file is known, or now found, to be; nothing for folders and for files that are no types.
    TypeFileInfo typeInfo(const QModelIndex& index, TypeFileInfo::Attribute attribute) const;

    const std::unique_ptr<CProductFileIconProvider> m_pIconProvider;
    QSet<QString> m_loaded; // paths of the folders that have been read, and are watched

    mutable QHash<QString, bool> m_expandable; // by path of the folder, as long as nothing has changed
    mutable std::uint64_t m_removals = 0;      // from the attribute cache when these answers were found
};
