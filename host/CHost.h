#pragma once

#include "host/Catalogues.h"
#include "host/CommandLine.h"
#include "host/ProjectCommands.h"
#include "host/keychain/PasswordKeeper.h"
#include "host/project/Project.h"
#include "host/settings/SettingsFile.h"
#include "plugin/interface/SettingArea_Init.h"

#include <QObject>
#include <QTimer>

#include <memory>

class CLayoutCommands;
class CLibraryLoader;
class CMainWindow;
class ISettingInterface;
class MailService;

// The running host: brings the plug-in, the window, the settings file and the open project together.
// The order at the start is that of the contract: SettingArea_Init, the handler, the settings, the window, and the
// library folder from a worker thread. [GUI thread]
class CHost : public QObject
{
    Q_OBJECT

public:
    // `commandLine` says where the settings and the library are, and in which language to start.
    // `keychain` keeps the mail account's password; without one the settings file does.
    explicit CHost(const CommandLine& commandLine, std::unique_ptr<IKeychain> keychain = nullptr);
    ~CHost() override;

    // Reads the settings, opens the window and starts loading the library. `init` is the plug-in's exported function,
    // `path` its file, which is only shown. False when the plug-in has no settings area to give.
    bool start(SettingArea_InitFunction init, const QString& path);

    // Both null until start().
    CMainWindow* window() const { return m_pWindow.get(); }
    ISettingInterface* area() const { return m_pArea; }

    CLibraryLoader* loader() const { return m_pLoader; }
    Project* project() { return &m_project; }
    bool isBusy() const; // a thread is at work that the end of the process must leave alone

    // Takes the values from the pages and writes the settings file. Nothing happens while the library is being loaded:
    // the pages are only to be had together with a scan, which would wait for the one that is under way.
    // False with the reason in `error` when the file could not be written.
    bool save(QString& error);

    // Switches everything to the language, or to English when the host does not speak it, and remembers that. Only
    // once there is a window.
    void setLanguage(const QLocale& locale);

    // Whether the user may not see how processors are looked for. At first as the command line says. Only once there is
    // a window.
    void setPriorityConnectionHidden(bool hidden);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    // The window is closed and the settings are saved.
    void notifyFinished();

    // Something was not as it should be; the user is told once the event loop runs.
    void notifyTroubled(const QString& text);

private:
    void openWindow();
    void connectWindow();
    void installHandler();
    void saveUnlessBusy();
    QString firstLibrary();
    void chooseLibrary();
    void showProject();
    bool queryClose();
    bool saveOrAsk();
    bool finish();
    bool write(QString& error);
    void remember();

    const CommandLine m_commandLine;
    SettingsFile m_file;
    PasswordKeeper m_password;
    StoredSettings m_settings; // as loaded or collected last
    Catalogues m_catalogues;
    Project m_project;
    std::unique_ptr<CMainWindow> m_pWindow;
    std::unique_ptr<MailService> m_pMail;
    std::unique_ptr<ProjectCommands> m_pProjectCommands;
    std::unique_ptr<CLayoutCommands> m_pLayoutCommands; // goes first: it watches what the window hides at its end
    ISettingInterface* m_pArea = nullptr;               // the plug-in's, valid until the process ends
    CLibraryLoader* m_pLoader = nullptr;
    QTimer m_saveTimer{this};
    QTimer m_countTimer;
    QTimer m_closeTimer;
    bool m_bPriorityConnectionHidden;
    bool m_bClosing = false;
};
