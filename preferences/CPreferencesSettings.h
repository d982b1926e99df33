#pragma once

#include "plugin/interface/SSettings.h"

#include <QMap>
#include <QScrollArea>

#include <initializer_list>

class CCustomGroupBox;
class CPriorityChoice;
class CSpinBox;
class CTipIcon;
class QBoxLayout;
class QCheckBox;
class QLabel;
class QPushButton;
class QRadioButton;

// The "Preferences" page: general behaviour, panes and layout aids. What the user chooses of language and connection
// priority reaches the host at once, the rest when the host collects it. [GUI thread]
class CPreferencesSettings : public QScrollArea
{
    Q_OBJECT

public:
    explicit CPreferencesSettings(QWidget* parent = nullptr);

    // Shows the record's Preferences values, each at the nearest one that its control has, and the language of the
    // default QLocale. Tells the host nothing.
    void setPreferences(const SSettings& settings);

    // The values that the page shows.
    SSettings::Preferences preferences() const;

    // Selects the language option that matches the default QLocale; none for a language that is not offered. Tells the
    // host nothing.
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

protected:
    void changeEvent(QEvent* event) override;

private:
    void createControls();
    void createRadioButtons();
    QWidget* control(int id) const;

    void layOut();
    void addTo(QBoxLayout* list, std::initializer_list<int> controls);
    QLayout* generalSettings();
    QLayout* softwareModules();
    QLayout* layoutOptions();
    void orderTabs();

    void connectControls();
    void setTexts();

    // By PreferenceControl::Id.
    QMap<int, QCheckBox*> m_checkBoxes;
    QMap<int, QRadioButton*> m_radioButtons;
    QMap<int, QLabel*> m_labels;
    QMap<int, CTipIcon*> m_tips; // by the radio button beside

    CPriorityChoice* m_pPriority = nullptr;
    CCustomGroupBox* m_pGeneral = nullptr;
    CCustomGroupBox* m_pModules = nullptr;
    CCustomGroupBox* m_pLayoutOptions = nullptr;
    QLabel* m_pSpace = nullptr;
    CSpinBox* m_pSnapSpace = nullptr;
    QPushButton* m_pShortcuts = nullptr;
};
