#pragma once

#include "plugin/interface/SSettings.h"

#include <QMap>
#include <QMenu>

// The context menu of an entry of the type library. It shows the keys that the page and the view answer to, but takes
// none of them for itself. [GUI thread]
class CProductTreeMenu : public QMenu
{
    Q_OBJECT

public:
    enum Entry
    {
        NewTypeFolder,
        ImportAsFolder,
        ImportCabinetFiles,
        Rename,
        Delete,
        Edit,
        ExportByGroup,
        ExportCurrent,
        ExportAll,
    };

    explicit CProductTreeMenu(SSettings::TypeLibrary::STreeNode::NodeType kind, QWidget* parent = nullptr);

Q_SIGNALS:
    // An Entry was chosen. The menu may still be there.
    void notifyChosen(int entry);

protected:
    void changeEvent(QEvent* event) override;

private:
    void addEntry(Entry entry, const QString& icon = {}, const QKeySequence& shownKey = {});
    static QString textOf(int entry);
    void setTexts();

    QMap<int, QAction*> m_actions; // by Entry
};
