#pragma once

#include <widgetry/CTreeView.h>

#include <QFileSystemWatcher>
#include <QPointer>

class CProductTreeDelegate;
class CProductTreeMenu;
class CProductTreeModel;
class QShortcut;

// The tree on the Type library tab, with every operation on the library. Each operation asks and tells by modal boxes,
// during which the host may destroy the view. [GUI thread]
class CProductTreeView : public CTreeView
{
    Q_OBJECT

public:
    explicit CProductTreeView(QWidget* parent = nullptr);

    // Shows the library folder `path`; nothing when there is no such folder.
    void setRootPath(const QString& path);

    // Allows or forbids changes of the library; what was begun before is not finished.
    void setEditable(bool editable);
    bool isEditable() const { return m_bEditable; }

    // Whether anything stands in the library folder.
    bool hasRows() const;

    // The folder that the next operation works in, as the index of its name: the current group, the group of the
    // current type, or the root index when nothing is current. Invalid without a library.
    QModelIndex targetDirectory() const;

public Q_SLOTS:
    void newTypeFolder();
    void importAsFolder();
    void importCabinetFiles();
    void clear(); // keeps the types that the layout uses, and the groups above them; no rescan follows
    void editIndex(const QModelIndex& index);   // opens the editor; the rescan follows the name that is written
    void deleteIndex(const QModelIndex& index); // asks before
    void editMultiRcvType();
    void exportCurrent();
    void exportByGroup();
    void exportAll();

Q_SIGNALS:
    // hasRows() may have changed.
    void notifyRowsChanged();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void connectModel();
    void showLibrary(const QModelIndex& root);
    void run(int chosen, const QPersistentModelIndex& index);

    // The name's index, when `index` is a row of the library that is shown; invalid else.
    QModelIndex entryOf(const QModelIndex& index) const;
    QString pathOf(const QModelIndex& index) const; // empty if invalid
    QString libraryFolder() const;                  // empty if there is none
    void expandFolder(const QString& path);

    CProductTreeModel* const m_pModel;
    CProductTreeDelegate* const m_pOperateDelegate;
    QShortcut* const m_pEditShortcut;
    QShortcut* const m_pDeleteShortcut;
    QFileSystemWatcher m_rootWatch; // the model does not notice when its root goes
    QPointer<CProductTreeMenu> m_pMenu;
    QString m_lastFolder; // chosen in an import's dialog
    bool m_bEditable = true;
};
