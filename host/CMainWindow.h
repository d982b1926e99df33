#pragma once

#include <QMainWindow>

#include <functional>

class CStatusBar;
class QAction;
class QMenu;

// The host's window: the settings area in the middle, an overlay for panels above it, menus and a status bar.
// [GUI thread]
class CMainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit CMainWindow(QWidget* parent = nullptr);

    // The widget that the settings area is docked in. It has the overlay already.
    QWidget* dock() const { return m_pDock; }

    // Lays the area out in the dock, which is its parent.
    void layOut(QWidget* area);

    CStatusBar* status() const { return m_pStatus; }

    // What is asked when the window is to be closed; false keeps it open. Without one the window closes.
    void setCloseQuery(std::function<bool()> query);

    // Shows a failure that the user can mend, over the dialog that is open, if there is one.
    void warn(const QString& text);

Q_SIGNALS:
    // The user wants to see the tab: 0 "Preferences", 1 "Type library", 2 "Health settings".
    void notifyTabRequested(int tab);

    // The user has chosen a folder to be the type library.
    void notifyLibraryChosen(const QString& folder);

    // The window has become the active one, for instance because a dialog was closed.
    void notifyActivated();

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    enum Text // what has a text: menus and actions
    {
        FileMenu,
        ViewMenu,
        HelpMenu,
        OpenLibrary,
        Quit,
        Preferences,
        TypeLibrary,
        HealthSettings,
        About,
        AboutQt,
    };

    void createMenus();
    QAction* addAction(QMenu* menu, Text id, const QKeySequence& shortcut = {});
    QMenu* addMenu(Text id);
    void setTexts();
    QString text(Text id) const;
    void chooseLibrary();
    void showAbout();

    QWidget* m_pDock;
    CStatusBar* m_pStatus;
    QMap<int, QAction*> m_actions; // by Text; a menu's is the action that opens it
    std::function<bool()> m_closeQuery;
};
