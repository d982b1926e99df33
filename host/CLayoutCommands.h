#pragma once

#include <utilbase/SMD5.h>

#include <QObject>
#include <QPointer>

#include <optional>

class CMainWindow;
class CPlacedTypesPanel;
class Project;
class QTreeView;

// What the Layout menu does: places the type that is selected in the type library's tree, and removes the one that is
// current in the list of placed types. Selecting a placed type in the tree makes it current in the list, so that it can
// be removed from either. [GUI thread]
class CLayoutCommands : public QObject
{
    Q_OBJECT

public:
    // `tree` is the settings area's, as it lies in its widget; null when the area has none. Owns none of the three.
    // Project and window outlive this object.
    CLayoutCommands(Project& project, CMainWindow& window, QTreeView* tree);

    // The tree shows another library, or one at last: until then it may have nothing that could be selected.
    void followLibrary();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Type
    {
        SMD5 md5;
        QString name;
    };

    // The tree's selected type; nothing when that is a group, or not to be seen.
    std::optional<Type> treeType() const;

    void place();
    void remove();
    void showProject();
    void followTree();
    void enableCommands();

    Project& m_project;
    CMainWindow& m_window;
    CPlacedTypesPanel* const m_pPanel;
    const QPointer<QTreeView> m_pTree;
};
