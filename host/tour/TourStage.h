#pragma once

#include <QDir>
#include <QString>

#include <functional>
#include <vector>

class CHost;
class CMainWindow;
class ISettingInterface;
class QPainter;
class QWidget;

// What a step of the tour works with: the running host, and the camera. Every function that gives a bool gives false
// when the step has failed, with the reason in error(): a step returns at once then. [GUI thread]
class TourStage
{
public:
    // The pictures go into `folder`, which exists. `own` is a folder of this pass's own; its files may be changed.
    TourStage(CHost& host, const QString& folder, const QDir& own);

    CMainWindow* window() const;
    ISettingInterface* area() const;

    // Of files that belong to this pass.
    QString path(const QString& relativePath) const { return m_own.filePath(relativePath); }

    QString error() const { return m_error; }
    bool fail(const QString& reason);

    // The name of the picture that the next shoot() takes, without suffix.
    void setPicture(const QString& name) { m_picture = name; }

    // Saves a picture of the window, with the dialogs and menus that are open lying over it.
    bool shoot();

    // Runs the event loop until the condition holds. `what` names it in the error when it does not come true.
    bool waitFor(const std::function<bool()>& condition, const QString& what);

    // Calls `open`, which shows modal dialogs or menus, one after the other, and returns when they are closed. Each act
    // runs with the one whose turn it is, once that is there, and must answer it. The last may leave that to the stage,
    // which closes what is still open then.
    using Act = std::function<bool(QWidget*)>;
    bool inDialogs(const std::function<void()>& open, const std::vector<Act>& acts);
    bool inDialog(const std::function<void()>& open, const Act& act) { return inDialogs(open, {act}); }

    // Opens something modal, takes a picture of it and closes it.
    bool shootDialog(const std::function<void()>& open);

private:
    void draw(QPainter& painter, QWidget* over) const;

    CHost& m_host;
    const QString m_folder;
    const QDir m_own;
    QString m_picture;
    QString m_error;
};
