#pragma once

#include "preferences/CPreferencesSettings.h"
#include "preferences/CTipIcon.h"
#include "tests/monitoring/Controls.h"

#include <widgetry/CSpinBox.h>

#include <QCheckBox>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>

// What the page's numbered controls show, by number.
constexpr const char* preferenceTexts[] = {
    "Show grid",
    "Show string position",
    "Snap to cabinets",
    "Show programming pane",
    "Show layout pane",
    "Show soft edge pane",
    "Show color adjustment pane",
    "Show health monitoring pane",
    "English",
    "Chinese",
    "USB primary",
    "USB and LAN",
    "Designated IP address",
    "Celsius（°C）",
    "Fahrenheit（℉）",
    "Advanced soft edge(require receiving card support)",
    "Soft edge",
    "Language options",
    "Priority connection",
    "Show temperature in",
    "Keyboard shortcuts",
};
constexpr int checkBoxCount = 8;
constexpr int firstRadioButton = 8;
constexpr int firstLabel = 17;

constexpr const char* tipTexts[] = {
    ("Detect processors which connected via USB connection only, If there is no processor connected via USB "
     "connection, then the software will try to detect processor in the LAN."),
    "Detect processors which connected via USB or LAN connection.",
    "Detect processors whose IP address has been associated to IP address management in device information tab.",
};

// The page in a window, and its controls as the user sees them.
struct PreferencesPage
{
    PreferencesPage()
    {
        window->resize(1000, 900);
        page = new CPreferencesSettings(window);
        page->resize(window->size());
        window->show();
    }
    ~PreferencesPage() { delete window; }
    Q_DISABLE_COPY(PreferencesPage)

    void push(const SSettings::Preferences& preferences) const
    {
        SSettings settings;
        settings.preferences = preferences;
        page->setPreferences(settings);
    }

    QCheckBox* box(const char* text) const { return withText<QCheckBox>(*page, text); }
    QRadioButton* radio(const char* text) const { return withText<QRadioButton>(*page, text); }
    QLabel* label(const char* text) const { return withText<QLabel>(*page, text); }
    CSpinBox* space() const { return page->findChild<CSpinBox*>(); }
    QPushButton* shortcuts() const { return withText<QPushButton>(*page, "Keyboard shortcuts table..."); }
    QWidget* control(int number) const
    {
        const char* const text = preferenceTexts[number];
        if (number < firstRadioButton)
            return box(text);
        return number < firstLabel ? static_cast<QWidget*>(radio(text)) : label(text);
    }
    // By priority.
    QRadioButton* priority(int number) const { return radio(preferenceTexts[10 + number]); }
    CTipIcon* tip(int number) const { return page->findChildren<CTipIcon*>().value(number); }

    // Texts of the radio buttons that are checked, in the order of their numbers.
    QStringList checked() const
    {
        QStringList texts;
        for (int number = firstRadioButton; number < firstLabel; ++number) {
            if (radio(preferenceTexts[number])->isChecked())
                texts.append(QString::fromUtf8(preferenceTexts[number]));
        }
        return texts;
    }

    QRect place(const QWidget* widget) const { return {widget->mapTo(page->widget(), QPoint()), widget->size()}; }

    QPointer<QWidget> window = new QWidget;
    QPointer<CPreferencesSettings> page;
};

// While it lives, the locale is the default one.
class DefaultLocale
{
public:
    explicit DefaultLocale(const QLocale& locale) { QLocale::setDefault(locale); }
    ~DefaultLocale() { QLocale::setDefault(m_before); }
    Q_DISABLE_COPY(DefaultLocale)

private:
    const QLocale m_before;
};
