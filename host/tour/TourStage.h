#pragma once

#include <QDir>
#include <QString>

#include <functional>
#include <vector>

class CHost;
class CMainWindow;
class ISettingInterface;
class QWidget;

// What a step of the tour works with: the running host, and what is done with the pictures. Every function that gives a
// bool gives false when the step has failed, with the reason in error(): a step returns at once then. [GUI thread]
class TourStage
{
public:
    // Called when the window, with the dialogs and menus that are open, shows what the step is about.
    using Shutter = std::function<bool(TourStage&)>;

    // `own` is a folder of this pass's own; its files may be changed.
    TourStage(CHost& host, const QDir& own, Shutter shutter);

    CHost& host() const { return m_host; }
    CMainWindow* window() const;
    ISettingInterface* area() const;

    // Of files that belong to this pass.
    QString path(const QString& relativePath) const { return m_own.filePath(relativePath); }

    QString error() const { return m_error; }
    bool fail(const QString& reason);

    // The name of the picture that the next shoot() takes, without suffix.
    void setPicture(const QString& name) { m_picture = name; }
    QString picture() const { return m_picture; }

    // Lets what was changed just now be laid out, and calls the shutter.
    bool shoot();

    // Runs the event loop until the condition holds. `what` names it in the error when it does not come true.
    bool waitFor(const std::function<bool()>& condition, const QString& what);

    // What is done with an open dialog or menu.
    using Act = std::function<bool(QWidget*)>;

    // Calls `open`, which shows modal dialogs or menus, one after the other, at once or from the event loop, and waits
    // until they are closed. Each act runs with the one whose turn it is, once that is there, and answers it. What
    // comes after the last act, or after one that failed, is closed.
    bool inDialogs(const std::function<void()>& open, const std::vector<Act>& acts);

    // The same with one act that leaves the dialog to be closed afterwards.
    bool inDialog(const std::function<void()>& open, const Act& act) { return inDialogs(open, {closing(act)}); }

    // Takes a picture of what is open and closes it.
    Act shot();
    bool shootDialog(const std::function<void()>& open) { return inDialogs(open, {shot()}); }

private:
    static Act closing(const Act& act);

    CHost& m_host;
    const QDir m_own;
    const Shutter m_shutter;
    QString m_picture;
    QString m_error;
};
