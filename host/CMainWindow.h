#pragma once

#include <QMainWindow>
#include <QMap>

#include <functional>

class COverlay;
class CPlacedTypesPanel;
class CStatusBar;
class QAction;
class QDockWidget;

// The host's window: the settings area in the middle, an overlay for panels above it, the list of placed types beside
// it, menus and a status bar.
// [GUI thread]
class CMainWindow : public QMainWindow
{
    Q_OBJECT

public:
    // The menus and what is in them.
    enum Command
    {
        FileMenu,
        NewProject,
        OpenProject,
        SaveProject,
        SaveProjectAs,
        OpenLibrary,
        Quit,
        ViewMenu,
        Preferences,
        TypeLibrary,
        HealthSettings,
        PlacedTypes,
        LayoutMenu,
        PlaceInLayout,
        RemoveFromLayout,
        HelpMenu,
        About,
        AboutQt,
    };

    explicit CMainWindow(QWidget* parent = nullptr);

    // The widget that the settings area is docked in. It has the overlay already.
    QWidget* dock() const { return m_pDock; }

    // Lays the area out in the dock, which is its parent.
    void layOut(QWidget* area);

    // Lays the overlay above the page in the dock, or beneath it.
    void setOverlayRaised(bool raised);

    CStatusBar* status() const { return m_pStatus; }

    // The list in the dock at the side.
    CPlacedTypesPanel* placedTypes() const { return m_pPlacedTypes; }

    // The command's action; a menu's is the one that opens it. PlacedTypes, which shows and hides the list, Quit, About
    // and AboutQt do their work by themselves.
    // Never null, owned by the window.
    QAction* action(Command command) const { return m_actions.value(command); }

    // Shows the name of the open project in the title.
    void setProject(const QString& name, bool modified);

    // What is asked when the window is to be closed; false keeps it open. Without one the window closes.
    void setCloseQuery(std::function<bool()> query);

    // Shows a failure that the user can mend, over the dialog that is open, if there is one.
    void warn(const QString& text);

Q_SIGNALS:
    // The window has become the active one, for instance because a dialog was closed.
    void notifyActivated();

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void createSide();
    void createMenus();
    void addMenu(Command menu, const QVector<Command>& commands);
    void setTexts();
    static QString text(Command command);
    void showAbout();

    QWidget* m_pDock;
    COverlay* m_pOverlay;
    CStatusBar* m_pStatus;
    CPlacedTypesPanel* m_pPlacedTypes;
    QDockWidget* m_pSide;
    QMap<Command, QAction*> m_actions;
    std::function<bool()> m_closeQuery;
};
