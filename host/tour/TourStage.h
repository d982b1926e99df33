#pragma once

#include <QString>

#include <functional>

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
    // The pictures go into `folder`, which exists.
    TourStage(CHost& host, const QString& folder);

    CMainWindow* window() const;
    ISettingInterface* area() const;

    QString error() const { return m_error; }

    // The name of the picture that the next shoot() takes, without suffix.
    void setPicture(const QString& name) { m_picture = name; }

    // Saves a picture of the window, with the dialogs and menus that are open lying over it.
    bool shoot();

    // Runs the event loop until the condition holds. `what` names it in the error when it does not come true.
    bool waitFor(const std::function<bool()>& condition, const QString& what);

    // Calls `open`, which shows a modal dialog and returns when it is closed. Once the dialog is there `act` runs with
    // it, and must leave it to be closed: it is closed afterwards, if it is still open.
    bool inDialog(const std::function<void()>& open, const std::function<bool(QWidget*)>& act);

private:
    bool fail(const QString& reason);
    void draw(QPainter& painter, QWidget* over) const;

    CHost& m_host;
    const QString m_folder;
    QString m_picture;
    QString m_error;
};
