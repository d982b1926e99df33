#pragma once

#include "plugin/CSingleton.h"
#include "plugin/interface/ISettingInterface.h"

#include <QPointer>
#include <QWidget>

#include <atomic>

class CMonitoringSettings;
class CPreferencesSettings;
class CShortcutPanel;
class CTypeLibrarySetting;
class QTabBar;

// The settings area: the widget that the host docks, and what the host calls. It lives until the process ends and
// outlives every window it is docked in: it leaves a parent that is being destroyed.
// [GUI thread, but for what ISettingInterface allows elsewhere]
class CSettingArea : public QWidget, public ISettingInterface, public CSingleton<CSettingArea>
{
    Q_OBJECT

public:
    // Looks for the host's overlay, a child named "OverLay" of the central widget of the first main window, and lays
    // the shortcut panel on it, unless there is a panel already. The button that shows the panel does it too.
    void attachShortcutPanel();

    void setHandler(IAbstractInterfaceHandler* handler) override;

    QWidget* widget() override { return this; }
    bool initialize() override { return true; }
    bool isValid() override { return true; }

    void syncLanguageWithLocale() override;
    void setSettings(const SSettings& settings) override;
    bool setTypeLibraryPath(const QString& path) override;
    bool isTypeLibraryReady() override;
    SSettings* getSettings() override;
    void setCurrentTab(int index) override;
    std::vector<SSettings::TypeLibrary::STreeNode> getTypeLibrary() override;
    void setControlsEnabled(bool enabled) override;
    void closeShortcutPanel() override;
    void refreshPreferences() override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    friend class CSingleton<CSettingArea>;

    CSettingArea();

    void createPages();
    void layOut();
    void connectPages();
    void setTexts();
    void followParent();

    SSettings m_settings;
    QTabBar* m_pTabBar = nullptr;
    CPreferencesSettings* m_pPreferences = nullptr;
    CTypeLibrarySetting* m_pTypeLibrary = nullptr;
    CMonitoringSettings* m_pMonitoring = nullptr;
    QPointer<CShortcutPanel> m_pShortcutPanel;   // owned by the overlay; null when the host has none
    std::atomic_bool m_bTypeLibraryReady{false}; // a setTypeLibraryPath() has finished
    std::atomic_int m_nPathsUnderWay{0};         // setTypeLibraryPath() calls that have not
    QMetaObject::Connection m_parentDestroyed;
};
