#include "preferences/CPreferencesSettings.h"

CPreferencesSettings::CPreferencesSettings(QWidget* parent)
    : QScrollArea(parent)
{
    setWidgetResizable(true);
}

void CPreferencesSettings::setPreferences(const SSettings& settings)
{
    m_preferences = settings.preferences;
}

SSettings::Preferences CPreferencesSettings::preferences() const
{
    return m_preferences;
}

void CPreferencesSettings::syncLanguageWithLocale() {}

void CPreferencesSettings::setControlsEnabled(bool /*enabled*/) {}

void CPreferencesSettings::refreshPreferences() {}
