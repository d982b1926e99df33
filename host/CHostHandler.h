#pragma once

#include "plugin/interface/ISettingInterfaceHandler.h"

#include <QPointer>

#include <functional>

class Project;

// What the settings area asks of this host. Answers about type files come from the files themselves and about the
// project from the open one; everything that needs the main window goes through the services it gives.
// The plug-in owns the handler from setHandler() on and may keep it longer than the window and the project live, so
// both are only pointed at: what needs one that is gone does nothing.
// A query about a type file has no state and takes no lock. A file that cannot be read answers as a single-receiver
// type of unknown size, and the reason goes to the logging category "orvel.typefile" as a warning.
class CHostHandler : public ISettingInterfaceHandler
{
public:
    // What the main window does for the settings area; what is left empty does nothing. Called on the GUI thread
    // while the window lives, and must not throw. Destroyed with the handler, on any thread.
    struct Services
    {
        std::function<void(bool visible)> shortcutPanelVisible;
        // As ISettingInterfaceHandler::SendEmail; without it every recipient fails.
        std::function<bool(QList<int>& failedPositions, const SEmailSettings& settings, const QString& body)> sendEmail;
        std::function<void(int priority)> connectionPriority;
        std::function<void(const QLocale& locale)> language;
        std::function<QObject*(const QString& text, int durationMs, const QEasingCurve& curve)> showProgress;
        std::function<void(QObject* progress)> endProgress;
        std::function<bool()> isPriorityConnectionHidden;
        // The project or a type file could not be saved; `text` says which and why, for the user.
        std::function<void(const QString& text)> saveFailed;
    };

    // Owns neither; both may be null. [GUI thread]
    CHostHandler(Project* project, QObject* window, Services services);

    void notifyShortcutPanelVisible(bool visible) noexcept override;
    bool SendEmail(QList<int>& failedPositions, const SEmailSettings& settings, const QString& body) noexcept override;
    bool isProjectModified() noexcept override;
    bool hasProjectPath() noexcept override;
    QString projectName() noexcept override;
    void saveProject(const QString& path) noexcept override;
    void setConnectionPriority(int priority) noexcept override;
    void setLanguage(const QLocale& locale) noexcept override;
    bool isTypeUsedInLayout(const SMD5& md5) noexcept override;
    bool isMultiRcvCabinetFile(const QString& path) noexcept override;
    void readCabinetInfo(const QString& path, SHwRcvInCabinetInfo& info) noexcept override;
    void writeCabinetInfo(const QString& path, const SHwRcvInCabinetInfo& info) noexcept override;
    void queryCabinetResolution(const QString& path, int& width, int& height) noexcept override;
    std::array<std::int64_t, 4> queryCabinetBlock(const QString& path) noexcept override;
    QObject* showProgress(const QString& text, int durationMs, const QEasingCurve& curve) noexcept override;
    void endProgress(QObject* progress) noexcept override;
    bool isPriorityConnectionHidden() noexcept override;

private:
    void reportFailure(const QString& text);

    const QPointer<Project> m_project; // used on the GUI thread only, as is the window
    const QPointer<QObject> m_window;
    const Services m_services;
};
