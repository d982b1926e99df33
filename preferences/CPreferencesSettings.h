#pragma once

#include "plugin/interface/SSettings.h"

#include <QScrollArea>

// The "Preferences" page: general behaviour, panes and layout aids. [GUI thread]
class CPreferencesSettings : public QScrollArea
{
    Q_OBJECT

public:
    explicit CPreferencesSettings(QWidget* parent = nullptr);

    // Shows the record's Preferences values.
    void setPreferences(const SSettings& settings);

    // The values that the page shows.
    SSettings::Preferences preferences() const;

    // Selects the language option that matches the default QLocale.
    void syncLanguageWithLocale();

    // Enables or disables what must not change while the host is busy.
    void setControlsEnabled(bool enabled);

    // Asks the host again whether the connection priority is to be shown.
    void refreshPreferences();

Q_SIGNALS:
    // The user wants to see the keyboard shortcuts.
    void notifyShortcutClicked();

    // The temperature unit has changed; true: Fahrenheit.
    void notifyFahrenheitClicked(bool bChecked);

private:
    SSettings::Preferences m_preferences;
};
