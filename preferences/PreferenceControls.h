#pragma once

#include "plugin/interface/SSettings.h"

#include <QCoreApplication>
#include <QLocale>

// The numbered controls of the Preferences page, and how the record's values map to them.
namespace PreferenceControl {

enum Id : int
{
    ShowGrid, // check boxes from here
    ShowStringPosition,
    SnapToCabinets,
    ShowProgrammingPane,
    ShowLayoutPane,
    ShowSoftEdgePane,
    ShowColorAdjustmentPane,
    ShowHealthMonitoringPane,
    English, // radio buttons from here
    Chinese,
    UsbPrimary, // by priority
    UsbAndLan,
    DesignatedAddress,
    Celsius,
    Fahrenheit,
    AdvancedSoftEdge,
    SoftEdge,
    LanguageCaption, // labels from here
    PriorityCaption,
    TemperatureCaption,
    ShortcutsCaption,
    Count,
};

constexpr int checkBoxCount = ShowHealthMonitoringPane + 1;
constexpr int priorityCount = DesignatedAddress - UsbPrimary + 1;

// By control. "English" is for those who read nothing else, so it is shown as written in every language.
inline constexpr const char* texts[Count] = {
    QT_TRANSLATE_NOOP("CPreferencesSettings", "Show grid"),
    QT_TRANSLATE_NOOP("CPreferencesSettings", "Show string position"),
    QT_TRANSLATE_NOOP("CPreferencesSettings", "Snap to cabinets"),
    QT_TRANSLATE_NOOP("CPreferencesSettings", "Show programming pane"),
    QT_TRANSLATE_NOOP("CPreferencesSettings", "Show layout pane"),
    QT_TRANSLATE_NOOP("CPreferencesSettings", "Show soft edge pane"),
    QT_TRANSLATE_NOOP("CPreferencesSettings", "Show color adjustment pane"),
    QT_TRANSLATE_NOOP("CPreferencesSettings", "Show health monitoring pane"),
    "English",
    QT_TRANSLATE_NOOP("CPreferencesSettings", "Chinese"),
    QT_TRANSLATE_NOOP("CPreferencesSettings", "USB primary"),
    QT_TRANSLATE_NOOP("CPreferencesSettings", "USB and LAN"),
    QT_TRANSLATE_NOOP("CPreferencesSettings", "Designated IP address"),
    QT_TRANSLATE_NOOP("CPreferencesSettings", "Celsius（°C）"),
    QT_TRANSLATE_NOOP("CPreferencesSettings", "Fahrenheit（℉）"),
    QT_TRANSLATE_NOOP("CPreferencesSettings", "Advanced soft edge(require receiving card support)"),
    QT_TRANSLATE_NOOP("CPreferencesSettings", "Soft edge"),
    QT_TRANSLATE_NOOP("CPreferencesSettings", "Language options"),
    QT_TRANSLATE_NOOP("CPreferencesSettings", "Priority connection"),
    QT_TRANSLATE_NOOP("CPreferencesSettings", "Show temperature in"),
    QT_TRANSLATE_NOOP("CPreferencesSettings", "Keyboard shortcuts"),
};

// What the check boxes show.
inline constexpr bool SSettings::Preferences::*flags[checkBoxCount] = {
    &SSettings::Preferences::showGrid,
    &SSettings::Preferences::showStringPosition,
    &SSettings::Preferences::snapToCabinets,
    &SSettings::Preferences::showProgrammingPane,
    &SSettings::Preferences::showLayoutPane,
    &SSettings::Preferences::showSoftEdgePane,
    &SSettings::Preferences::showColorAdjustmentPane,
    &SSettings::Preferences::showHealthMonitoringPane,
};

// What each priority means, for a tooltip.
inline constexpr const char* priorityTips[priorityCount] = {
    QT_TRANSLATE_NOOP("CPreferencesSettings",
                      "Detect processors which connected via USB connection only, If there is no processor connected "
                      "via USB connection, then the software will try to detect processor in the LAN."),
    QT_TRANSLATE_NOOP("CPreferencesSettings", "Detect processors which connected via USB or LAN connection."),
    QT_TRANSLATE_NOOP("CPreferencesSettings", "Detect processors whose IP address has been associated to IP address "
                                              "management in device information tab."),
};

// The radio button of a soft edge mode; one that does not exist counts as the nearest.
constexpr int radioOfSoftEdgeMode(int mode)
{
    return mode >= 1 ? AdvancedSoftEdge : SoftEdge;
}

// The radio button of the locale's language; Count when it has none.
inline int radioOfLanguage(const QLocale& locale)
{
    switch (locale.language()) {
    case QLocale::English:
        return English;
    case QLocale::Chinese:
        return Chinese;
    default:
        return Count;
    }
}

} // namespace PreferenceControl
