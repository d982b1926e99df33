#pragma once

#include <QCoreApplication>

class CMainWindow;
class Project;

// What the File menu does with the open project, with the questions that it takes. [GUI thread]
class ProjectCommands
{
    Q_DECLARE_TR_FUNCTIONS(ProjectCommands)

public:
    // Owns neither; both outlive it.
    ProjectCommands(Project& project, CMainWindow& window);

    // Starts an empty project, or opens one that the user chooses, unless the user wants to keep the open one.
    void create();
    void open();

    // Saves to the project's file, or to one that the user chooses; false when it is not saved then.
    bool save();
    bool saveAs();

    // Whether the open project may be closed: it has no changes, or the user has let them be saved or dropped.
    bool mayClose();

private:
    QString chooseTarget(const QString& proposal);
    bool saveTo(const QString& path);

    Project& m_project;
    CMainWindow& m_window;
};
