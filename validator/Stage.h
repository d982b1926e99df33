#pragma once

#include "plugin/interface/ISettingInterface.h"
#include "plugin/interface/SettingArea_Init.h"
#include "validator/CheckingHandler.h"

#include <QMainWindow>
#include <QPointer>
#include <QTemporaryDir>

#include <functional>
#include <memory>

struct Options;
class Report;

// A host for one check: the loaded plug-in, a window with an overlay to dock it in, folders to work in. [GUI thread]
class Stage
{
public:
    // Loads the plug-in, docks it in a window, and installs a CheckingHandler. Where that is not possible the report
    // says so and isReady() is false.
    Stage(const Options& options, Report& report);

    // Waits until the plug-in has no thread at work, and reports what does not end.
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    bool isReady() const { return m_pSettings != nullptr; }
    ISettingInterface& settings() { return *m_pSettings; }
    const std::shared_ptr<HostState>& host() { return m_pHost; }
    Report& report() { return m_report; }
    SettingArea_InitFunction init() const { return m_init; }

    // The window that the area is docked in; null after undock().
    QMainWindow* window() const { return m_pWindow; }

    // Docks the area in a new window, which is shown.
    void dock();
    // Destroys the window.
    void undock();

    // The folder that this stage works in, and one in it, which is made.
    QString root() const { return m_root; }
    QString folder(const QString& name) const;

    // Fills the folder with so many numbered type files, some in groups; they begin at `first`.
    static void fill(const QString& folder, int count, int first = 0);

    // Sets the library on a thread of its own while the GUI thread goes on; whether the call said that it worked.
    bool setLibrary(const QString& path);

    // Lets the GUI thread work until the condition is true, for a bounded time that a slow machine does not need;
    // whether it is.
    bool await(const std::function<bool()>& condition);

    // Lets the GUI thread do what waits, once.
    void work();

    // Lets clicks through to the page where no panel lies over it.
    void fitOverlay();

    // Threads of this process that are no thread of Qt's file system model, which last as long as the model.
    static int threads();

    // Whether the plug-in has no thread at work.
    bool isQuiet() const;

private:
    Report& m_report;
    const int m_patience; // milliseconds
    const QTemporaryDir m_folder;
    const QString m_root; // its canonical path
    SettingArea_InitFunction m_init = nullptr;
    ISettingInterface* m_pSettings = nullptr;
    QPointer<QMainWindow> m_pWindow;
    QPointer<QWidget> m_pOverlay;
    std::shared_ptr<HostState> m_pHost;
    int m_baseThreads = 0;
};
