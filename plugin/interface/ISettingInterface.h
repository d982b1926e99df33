#pragma once

#include "IAbstractControlInterface.h"
#include "SSettings.h"

#include <QString>

#include <vector>

// The settings area as the host sees it. The order of the virtual operations is binary contract.
// A host calls, in this order: SettingArea_Init, setHandler, setSettings, setTypeLibraryPath (from a worker thread),
// and getSettings whenever it wants the values that the pages show. An operation is called on no other thread than its
// comment names: nothing checks that, and what happens otherwise is undefined.
class ISettingInterface : public IAbstractControlInterface
{
public:
    // Selects the language option of the Preferences page that matches the default QLocale; a locale that is neither
    // English nor Chinese leaves it as it is. Tells the host nothing. [GUI thread]
    virtual void syncLanguageWithLocale() = 0;

    // Shows a complete record on the pages. Values out of a control's range are shown clamped. The record is copied;
    // what no page shows is kept and comes back from getSettings(). The type library tree in the record is ignored:
    // it always comes from the library folder, which is read again when one is set. [GUI thread]
    virtual void setSettings(const SSettings& settings) = 0;

    // Points the type library at the folder `path` (absolute; empty: no library), scans it on the calling thread,
    // which takes as long as hashing every new file does, and then waits until the GUI thread has shown it on the
    // Type library tab. False when the scan or the tab could not be finished or reached; a folder that does not exist
    // is an empty library. Do not let the GUI thread wait for the thread that makes this call. [host's worker; the GUI
    // thread is allowed too and is blocked by the scan]
    virtual bool setTypeLibraryPath(const QString& path) = 0;

    // True once the last setTypeLibraryPath() has finished. Never blocks. [any thread]
    virtual bool isTypeLibraryReady() = 0;

    // Collects the values that the pages show and scans the library folder again, after a scan that is under way on
    // another thread; where that cannot be finished the record keeps the tree it had. The record belongs to the plug-in
    // and stays at its address until the process ends; its content changes with the next call. Never null.
    // The host may write to it: the fourth voltage entry, which no page shows, keeps what is written. [GUI thread]
    virtual SSettings* getSettings() = 0;

    // Selects a tab: 0 "Preferences", 1 "Type library", 2 "Health settings"; others change nothing. [GUI thread]
    virtual void setCurrentTab(int index) = 0;

    // A copy of the type library's tree, empty before the first setTypeLibraryPath(). Waits for a scan that is under
    // way, except when called from a host query of that very scan. [any thread]
    virtual std::vector<SSettings::TypeLibrary::STreeNode> getTypeLibrary() = 0;

    // Enables or disables what must not be changed while the host is busy: the connection priority and the health
    // monitoring pane on the Preferences page, every change of the library on the Type library tab. [GUI thread]
    virtual void setControlsEnabled(bool enabled) = 0;

    // Hides the shortcut panel at once when it is visible, and tells the host. [GUI thread]
    virtual void closeShortcutPanel() = 0;

    // Asks the host again whether the connection priority is to be shown on the Preferences page. [GUI thread]
    virtual void refreshPreferences() = 0;
};
