#include "preferences/CPreferencesSettings.h"

#include "plugin/SettingHandler.h"
#include "plugin/interface/ISettingInterfaceHandler.h"
#include "preferences/CPriorityChoice.h"
#include "preferences/CTipIcon.h"
#include "preferences/PreferenceControls.h"

#include <widgetry/CCustomGroupBox.h>
#include <widgetry/CSpinBox.h>

#include <QButtonGroup>
#include <QCheckBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>

#include <utility>

using namespace PreferenceControl;

namespace {

// In pixels.
constexpr int smallestSpace = 8;
constexpr int largestSpace = 30;
constexpr QSize spinBoxSize(56, 24);
constexpr QSize shortcutsSize(201, 24);
constexpr int indent = 16;
constexpr int softEdgeIndent = 8;
constexpr int groupSpacing = 12;
constexpr int listSpacing = 4;
constexpr int tipSpacing = 8;
constexpr int labelSpacing = 10; // between a check box and the label of its value
constexpr int valueSpacing = 4;

QVBoxLayout* newList(int leftMargin)
{
    auto* const list = new QVBoxLayout;
    list->setContentsMargins(leftMargin, 0, 0, 0);
    list->setSpacing(listSpacing);
    return list;
}

QHBoxLayout* newRow(int spacing)
{
    auto* const row = new QHBoxLayout;
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(spacing);
    return row;
}

} // namespace

CPreferencesSettings::CPreferencesSettings(QWidget* parent)
    : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    createControls();
    layOut();
    connectControls();
    setTexts();
    setPreferences(SSettings()); // until the host pushes its own
}

void CPreferencesSettings::createControls()
{
    setWidget(new QWidget(this));
    setWidgetResizable(true);
    m_pGeneral = new CCustomGroupBox({}, widget());
    m_pModules = new CCustomGroupBox({}, widget());
    m_pLayoutOptions = new CCustomGroupBox({}, widget());

    for (int label = LanguageCaption; label <= ShortcutsCaption; ++label) {
        m_labels[label] = new QLabel(m_pGeneral);
        m_labels[label]->setObjectName(QStringLiteral("Highlight"));
    }
    createRadioButtons();
    for (int box = ShowProgrammingPane; box <= ShowHealthMonitoringPane; ++box)
        m_checkBoxes[box] = new QCheckBox(m_pModules);
    for (int box = ShowGrid; box <= SnapToCabinets; ++box)
        m_checkBoxes[box] = new QCheckBox(m_pLayoutOptions);

    m_pSpace = new QLabel(m_pLayoutOptions);
    m_pSpace->setAlignment(Qt::AlignLeft | Qt::AlignHCenter | Qt::AlignVCenter);
    m_pSnapSpace = new CSpinBox(m_pLayoutOptions);
    m_pSnapSpace->setRange(smallestSpace, largestSpace);
    m_pSnapSpace->setSuffix(QStringLiteral("px"));
    m_pSnapSpace->setFixedSize(spinBoxSize);
    m_pSpace->setBuddy(m_pSnapSpace);
    m_pShortcuts = new QPushButton(m_pGeneral);
    m_pShortcuts->setFixedSize(shortcutsSize);
}

void CPreferencesSettings::createRadioButtons()
{
    for (int radio = English; radio <= SoftEdge; ++radio)
        m_radioButtons[radio] = new QRadioButton(radio < AdvancedSoftEdge ? m_pGeneral : m_pModules);
    for (int radio = UsbPrimary; radio <= DesignatedAddress; ++radio)
        m_tips[radio] = new CTipIcon(m_pGeneral);
    for (const auto& [first, last] : {std::pair(English, Chinese), std::pair(UsbPrimary, DesignatedAddress),
                                      std::pair(Celsius, Fahrenheit), std::pair(AdvancedSoftEdge, SoftEdge)}) {
        auto* const group = new QButtonGroup(this);
        for (int radio = first; radio <= last; ++radio)
            group->addButton(m_radioButtons[radio]);
    }
    m_pPriority = new CPriorityChoice(
        {m_radioButtons[UsbPrimary], m_radioButtons[UsbAndLan], m_radioButtons[DesignatedAddress]}, this);
}

QWidget* CPreferencesSettings::control(int id) const
{
    if (id < English)
        return m_checkBoxes[id];
    return id < LanguageCaption ? static_cast<QWidget*>(m_radioButtons[id]) : m_labels[id];
}

void CPreferencesSettings::layOut()
{
    m_pGeneral->addCustomLayout(generalSettings());
    m_pModules->addCustomLayout(softwareModules());
    m_pLayoutOptions->addCustomLayout(layoutOptions());

    auto* const layout = new QVBoxLayout(widget());
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(groupSpacing);
    for (QWidget* const group : {m_pGeneral, m_pModules, m_pLayoutOptions})
        layout->addWidget(group);
    layout->addStretch();
    orderTabs();
}

void CPreferencesSettings::addTo(QBoxLayout* list, std::initializer_list<int> controls)
{
    for (const int id : controls)
        list->addWidget(control(id));
}

QLayout* CPreferencesSettings::generalSettings()
{
    QBoxLayout* const list = newList(indent);
    addTo(list, {LanguageCaption, English, Chinese, PriorityCaption});
    for (int radio = UsbPrimary; radio <= DesignatedAddress; ++radio) {
        QBoxLayout* const row = newRow(tipSpacing);
        row->addWidget(m_radioButtons[radio]);
        row->addWidget(m_tips[radio]);
        row->addStretch();
        list->addLayout(row);
    }
    addTo(list, {TemperatureCaption, Celsius, Fahrenheit, ShortcutsCaption});
    list->addWidget(m_pShortcuts, 0, Qt::AlignLeft);
    return list;
}

QLayout* CPreferencesSettings::softwareModules()
{
    QBoxLayout* const softEdge = newList(softEdgeIndent);
    addTo(softEdge, {AdvancedSoftEdge, SoftEdge});

    QBoxLayout* const list = newList(indent);
    addTo(list, {ShowProgrammingPane, ShowLayoutPane, ShowSoftEdgePane});
    list->addLayout(softEdge);
    addTo(list, {ShowColorAdjustmentPane, ShowHealthMonitoringPane});
    return list;
}

QLayout* CPreferencesSettings::layoutOptions()
{
    QBoxLayout* const snap = newRow(0);
    snap->addWidget(m_checkBoxes[SnapToCabinets]);
    snap->addSpacing(labelSpacing);
    snap->addWidget(m_pSpace);
    snap->addSpacing(valueSpacing);
    snap->addWidget(m_pSnapSpace);
    snap->addStretch();

    QBoxLayout* const list = newList(indent);
    addTo(list, {ShowGrid, ShowStringPosition});
    list->addLayout(snap);
    return list;
}

// The tab key goes down the page, which is not how the controls are numbered.
void CPreferencesSettings::orderTabs()
{
    QWidget* last = m_radioButtons[English];
    const auto follow = [&last](QWidget* next) {
        setTabOrder(last, next);
        last = next;
    };
    for (int radio = Chinese; radio <= Fahrenheit; ++radio)
        follow(m_radioButtons[radio]);
    follow(m_pShortcuts);
    for (const int id :
         {ShowProgrammingPane, ShowLayoutPane, ShowSoftEdgePane, AdvancedSoftEdge, SoftEdge, ShowColorAdjustmentPane,
          ShowHealthMonitoringPane, ShowGrid, ShowStringPosition, SnapToCabinets})
        follow(control(id));
    follow(m_pSnapSpace);
}

void CPreferencesSettings::connectControls()
{
    connect(m_pShortcuts, &QPushButton::clicked, this, &CPreferencesSettings::notifyShortcutClicked);
    connect(m_radioButtons[Fahrenheit], &QRadioButton::toggled, this, &CPreferencesSettings::notifyFahrenheitClicked);
    const auto connectLanguage = [this](int radio, const QLocale& locale) {
        connect(m_radioButtons[radio], &QRadioButton::toggled, this, [locale](bool isChecked) {
            const auto handler = isChecked ? settingHandler() : nullptr;
            if (handler)
                handler->setLanguage(locale);
        });
    };
    connectLanguage(English, {QLocale::English, QLocale::UnitedStates});
    connectLanguage(Chinese, {QLocale::Chinese, QLocale::China});
    for (const int radio : {AdvancedSoftEdge, SoftEdge}) {
        m_radioButtons[radio]->setEnabled(false); // as their check box is not checked
        connect(m_checkBoxes[ShowSoftEdgePane], &QCheckBox::toggled, m_radioButtons[radio], &QWidget::setEnabled);
    }
}

void CPreferencesSettings::setPreferences(const SSettings& settings)
{
    const SSettings::Preferences& pushed = settings.preferences;
    m_pPriority->setPriority(pushed.connectionPriority);
    m_radioButtons[pushed.fahrenheit ? Fahrenheit : Celsius]->setChecked(true);
    m_radioButtons[radioOfSoftEdgeMode(pushed.softEdgeMode)]->setChecked(true);
    for (auto box = m_checkBoxes.cbegin(); box != m_checkBoxes.cend(); ++box)
        box.value()->setChecked(pushed.*flags[box.key()]);
    m_pSnapSpace->setValue(pushed.snapSpace);
    syncLanguageWithLocale();
}

SSettings::Preferences CPreferencesSettings::preferences() const
{
    SSettings::Preferences shown;
    shown.connectionPriority = m_pPriority->priority();
    shown.fahrenheit = m_radioButtons[Fahrenheit]->isChecked();
    shown.softEdgeMode = m_radioButtons[AdvancedSoftEdge]->isChecked() ? 1 : 0;
    for (auto box = m_checkBoxes.cbegin(); box != m_checkBoxes.cend(); ++box)
        shown.*flags[box.key()] = box.value()->isChecked();
    shown.snapSpace = m_pSnapSpace->value();
    return shown;
}

void CPreferencesSettings::syncLanguageWithLocale()
{
    const int radio = radioOfLanguage(QLocale());
    if (radio == Count)
        return;
    const QSignalBlocker silence(m_radioButtons[radio]);
    m_radioButtons[radio]->setChecked(true);
}

void CPreferencesSettings::setControlsEnabled(bool enabled)
{
    for (const int id : {ShowHealthMonitoringPane, UsbPrimary, UsbAndLan, DesignatedAddress})
        control(id)->setEnabled(enabled);
}

void CPreferencesSettings::refreshPreferences()
{
    const auto handler = settingHandler();
    if (!handler)
        return;
    const bool isShown = !handler->isPriorityConnectionHidden();
    for (const int id : {PriorityCaption, UsbPrimary, UsbAndLan, DesignatedAddress})
        control(id)->setVisible(isShown);
    for (CTipIcon* const tip : qAsConst(m_tips))
        tip->setVisible(isShown);
}

void CPreferencesSettings::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        setTexts();
    QScrollArea::changeEvent(event);
}

void CPreferencesSettings::setTexts()
{
    m_pGeneral->setTitle(tr("General settings"));
    m_pModules->setTitle(tr("Software modules"));
    m_pLayoutOptions->setTitle(tr("Layout options"));
    const auto setTextsOf = [](const auto& controls) {
        for (auto control = controls.cbegin(); control != controls.cend(); ++control) {
            const int id = control.key();
            control.value()->setText(id == English ? QString::fromUtf8(texts[id]) : tr(texts[id]));
        }
    };
    setTextsOf(m_checkBoxes);
    setTextsOf(m_radioButtons);
    setTextsOf(m_labels);
    for (auto tip = m_tips.cbegin(); tip != m_tips.cend(); ++tip) {
        tip.value()->setToolTip(tr(priorityTips[tip.key() - UsbPrimary]));
        m_radioButtons[tip.key()]->setAccessibleDescription(tip.value()->toolTip());
    }
    m_pSpace->setText(tr("Space"));
    m_pSnapSpace->setAccessibleName(m_pSpace->text());
    m_pShortcuts->setText(tr("Keyboard shortcuts table..."));
}
