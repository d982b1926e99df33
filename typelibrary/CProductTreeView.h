#pragma once

#include <widgetry/CTreeView.h>

class CProductTreeModel;

// The tree on the Type library tab, with every operation on the library. Each operation asks and tells by modal boxes,
// during which the host may destroy the view. [GUI thread]
class CProductTreeView : public CTreeView
{
    Q_OBJECT

public:
    explicit CProductTreeView(QWidget* parent = nullptr);

    // Shows the library folder `path`; nothing when there is no such folder.
    void setRootPath(const QString& path);

    // Allows or forbids changes of the library.
    void setEditable(bool editable);

    // Whether anything stands in the library folder.
    bool hasRows() const;

    // The folder that the next operation works in, as the index of its name: the current group, the group of the
    // current type, or the root index when nothing is current. Invalid without a library.
    QModelIndex targetDirectory() const;

public Q_SLOTS:
    void newTypeFolder();
    void importAsFolder();
    void importCabinetFiles();
    void clear(); // keeps the types that the layout uses, and the groups above them
    void editIndex(const QModelIndex& index);
    void deleteIndex(const QModelIndex& index);
    void editMultiRcvType();
    void exportCurrent();
    void exportByGroup();
    void exportAll();

Q_SIGNALS:
    // hasRows() may have changed.
    void notifyRowsChanged();

private:
    CProductTreeModel* const m_pModel;
};
