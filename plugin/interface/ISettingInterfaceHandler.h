#pragma once

#include "IAbstractInterfaceHandler.h"
#include "SEmailSettings.h"

#include <utilbase/SMD5.h>

#include <QList>
#include <QString>

#include <array>
#include <cstdint>

struct SHwRcvInCabinetInfo;
class QEasingCurve;
class QLocale;
class QObject;

// What the settings area asks of its host. The order of the virtual operations is binary contract, so the entries
// that the plug-in never calls stay where they are.
//
// Threads: "[GUI thread]" operations are only called there. "[GUI thread or scan]" operations, the queries about type
// files, are called on the GUI thread and, during a scan of the library, on the one thread that scans: two calls
// can therefore be under way at once. Such a query must not wait for the GUI thread, and should answer in the time
// that reading the file's header takes: the tree asks while it is being shown.
// Nothing may be thrown out of an operation.
class ISettingInterfaceHandler : public IAbstractInterfaceHandler
{
public:
    // Not called by the settings area.
    virtual void reserved1() {}
    virtual void reserved2() {}

    // The shortcut panel has finished sliding in (true), or out, or was closed (false). [GUI thread]
    virtual void notifyShortcutPanelVisible(bool visible) = 0;

    // Sends `body` from the sender's account of `settings` to each of its recipients. On return `failedPositions`
    // holds the positions in settings.lstRecipients of those that could not be reached; it may hold older positions
    // on entry. False when nothing could be sent at all. Must return in bounded time. [GUI thread]
    virtual bool SendEmail(QList<int>& failedPositions, const SEmailSettings& settings, const QString& body) = 0;

    // Whether the open project has changes that are not saved. [GUI thread]
    virtual bool isProjectModified() = 0;

    // Whether the open project has a file. [GUI thread]
    virtual bool hasProjectPath() = 0;

    // Name of the open project, without folder and suffix. [GUI thread]
    virtual QString projectName() = 0;

    // Saves the open project as `path`, or where it was saved last when `path` is empty. [GUI thread]
    virtual void saveProject(const QString& path) = 0;

    // How processors are to be looked for: 0 USB first, 1 USB and LAN, 2 designated IP addresses. [GUI thread]
    virtual void setConnectionPriority(int priority) = 0;

    // Switches the language of the whole application; every widget then gets QEvent::LanguageChange. [GUI thread]
    virtual void setLanguage(const QLocale& locale) = 0;

    // Whether the open project's layout places a cabinet of the type with this digest. [GUI thread]
    virtual bool isTypeUsedInLayout(const SMD5& md5) = 0;

    // Whether the type file describes a cabinet with more than one receiving card. False for a file that is broken
    // or gone. [GUI thread or scan]
    virtual bool isMultiRcvCabinetFile(const QString& path) = 0;

    // Fills `info` with the multi-receiver record in the type file; leaves it untouched when the file has none or
    // cannot be read. [GUI thread or scan]
    virtual void readCabinetInfo(const QString& path, SHwRcvInCabinetInfo& info) = 0;

    // Writes `info` into the existing type file `path`; the rest of the file's content stays. [GUI thread]
    virtual void writeCabinetInfo(const QString& path, const SHwRcvInCabinetInfo& info) = 0;

    // Width and height in pixels of the type file's cabinet; leaves both untouched when the file cannot be read.
    // Both are -1 on entry. [GUI thread or scan]
    virtual void queryCabinetResolution(const QString& path, int& width, int& height) = 0;

    // Four values of the host's own about the type file, which the settings area only passes on in the tree; all zero
    // when the file cannot be read. [GUI thread or scan]
    virtual std::array<std::int64_t, 4> queryCabinetBlock(const QString& path) = 0;

    // Shows a progress display that runs by itself for `durationMs` milliseconds along `curve`. The result, which may
    // be null, is the host's and comes back through endProgress() once. [GUI thread]
    virtual QObject* showProgress(const QString& text, int durationMs, const QEasingCurve& curve) = 0;

    // The work behind the progress display is done; the display may still run to its end. `progress` is what
    // showProgress() gave. [GUI thread]
    virtual void endProgress(QObject* progress) = 0;

    // Whether the connection priority is to be hidden on the Preferences page. [GUI thread]
    virtual bool isPriorityConnectionHidden() = 0;
};
