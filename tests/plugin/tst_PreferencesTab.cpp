#include "plugin/interface/ISettingInterface.h"
#include "tests/monitoring/Controls.h"
#include "tests/support/AreaFixture.h"
#include "tests/support/ModalScript.h"
#include "tests/support/UpperCase.h"

#include <widgetry/CSpinBox.h>

#include <QApplication>
#include <QCheckBox>
#include <QRadioButton>
#include <QToolButton>

#include <memory>

namespace {

QRadioButton* radio(const char* text)
{
    return withText<QRadioButton>(CSettingArea::instance(), text);
}

// Switches the language as it is told to, from English to one in capitals.
class SwitchingHandler : public FakeHandler
{
public:
    void setLanguage(const QLocale& locale) override
    {
        QLocale::setDefault(locale);
        m_capitals.reset(locale.language() == QLocale::Chinese ? new UpperCase : nullptr);
    }

private:
    std::unique_ptr<UpperCase> m_capitals;
};

// Notes which widgets are enabled or disabled, in order.
class EnabledWatcher : public QObject
{
public:
    explicit EnabledWatcher(const QObjectList& widgets)
    {
        for (QObject* const widget : widgets)
            widget->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::EnabledChange)
            changed.append(watched);
        return false;
    }

    QObjectList changed;
};

} // namespace

// The Preferences tab between the host, which sees the interface, and the user, who sees the controls.
class tst_PreferencesTab : public AreaFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void userSwitchesTheUnit();
    void pushSwitchesTheUnitBeforeTheValues();
    void pushAndSyncAreSilent();
    void languageFollowsTheLocale();
    void languageSwitchedAllTheTime();
    void controlsAreDisabledOnBothPages();
    void priorityIsHidden();
    void priorityIsTold();
    void windowDestroyedWhileTheQuestionIsOpen();
    void shortcutButtonSlidesThePanelIn();
    void shortcutButtonWithoutAPanelDoesNothing();

private:
    ISettingInterface& interface() { return area(); }

    FakeHandler* m_pHandler = nullptr; // the area's
};

void tst_PreferencesTab::init()
{
    AreaFixture::init();
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    m_pHandler = new FakeHandler;
    interface().setHandler(m_pHandler);
}

void tst_PreferencesTab::userSwitchesTheUnit()
{
    const auto* const temperature = named<CSpinBox>(area(), "Temperature over");
    QCOMPARE(temperature->text(), QString::fromUtf8("60°C"));
    radio("Fahrenheit（℉）")->click();
    QCOMPARE(temperature->text(), QString::fromUtf8("140°F"));
    QCOMPARE(interface().getSettings()->monitoring.nTemperature, 60);
    QCOMPARE(interface().getSettings()->preferences.fahrenheit, true);
    radio("Celsius（°C）")->click();
    QCOMPARE(temperature->text(), QString::fromUtf8("60°C"));
}

void tst_PreferencesTab::pushSwitchesTheUnitBeforeTheValues()
{
    const auto* const temperature = named<CSpinBox>(area(), "Temperature over");
    SSettings pushed;
    pushed.monitoring.nTemperature = 61; // which there and back would be 60
    for (const bool fahrenheit : {true, false, true, true}) {
        pushed.preferences.fahrenheit = fahrenheit;
        interface().setSettings(pushed);
        QCOMPARE(temperature->text(), QString::fromUtf8(fahrenheit ? "141°F" : "61°C"));
    }
    QCOMPARE(m_pHandler->calls(), QStringList());
}

void tst_PreferencesTab::pushAndSyncAreSilent()
{
    m_pHandler->projectModified = true;
    SSettings pushed;
    pushed.preferences.connectionPriority = 2;
    QLocale::setDefault(QLocale::Chinese);
    interface().setSettings(pushed);
    QLocale::setDefault(QLocale::English);
    interface().syncLanguageWithLocale();
    QCOMPARE(m_pHandler->calls(), QStringList());
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_PreferencesTab::languageFollowsTheLocale()
{
    QLocale::setDefault(QLocale::Chinese);
    interface().syncLanguageWithLocale();
    QVERIFY(radio("Chinese")->isChecked());
    QLocale::setDefault(QLocale::French);
    interface().syncLanguageWithLocale();
    QVERIFY(radio("Chinese")->isChecked());
    QLocale::setDefault(QLocale::English);
    interface().setSettings({});
    QVERIFY(radio("English")->isChecked());
    QVERIFY(!radio("Chinese")->isChecked());
}

// Ten times a second for a minute.
void tst_PreferencesTab::languageSwitchedAllTheTime()
{
    interface().setSettings({});
    interface().setHandler(new SwitchingHandler);
    area().show();
    auto* const chinese = radio("Chinese");
    auto* const english = radio("English");
    auto* const grid = withText<QCheckBox>(area(), "Show grid");
    for (int i = 0; i < 300; ++i) {
        chinese->click();
        QCOMPARE(grid->text(), QStringLiteral("SHOW GRID"));
        QCOMPARE(english->text(), QStringLiteral("English"));
        english->click();
        QCOMPARE(grid->text(), QStringLiteral("Show grid"));
        QCoreApplication::processEvents();
    }
    area().hide();
}

void tst_PreferencesTab::controlsAreDisabledOnBothPages()
{
    auto* const newFolder = area().findChild<QToolButton*>(QStringLiteral("NewTypeFolder"));
    EnabledWatcher watcher({newFolder, radio("USB primary")});
    for (const bool isEnabled : {false, true}) {
        watcher.changed.clear();
        interface().setControlsEnabled(isEnabled);
        QCOMPARE(watcher.changed, (QObjectList{radio("USB primary"), newFolder}));
        for (const char* text : {"USB primary", "USB and LAN", "Designated IP address"})
            QCOMPARE(radio(text)->isEnabled(), isEnabled);
        QCOMPARE(withText<QCheckBox>(area(), "Show health monitoring pane")->isEnabled(), isEnabled);
        QVERIFY(withText<QCheckBox>(area(), "Show grid")->isEnabled());
        QCOMPARE(newFolder->isEnabled(), isEnabled);
    }
}

void tst_PreferencesTab::priorityIsHidden()
{
    for (const bool isHidden : {true, false}) {
        m_pHandler->priorityHidden = isHidden;
        interface().refreshPreferences();
        QCOMPARE(radio("USB primary")->isHidden(), isHidden);
        QCOMPARE(withText<QLabel>(area(), "Priority connection")->isHidden(), isHidden);
    }
    // Without a handler it stays as it is.
    interface().setHandler(nullptr);
    interface().refreshPreferences();
    QVERIFY(!radio("USB primary")->isHidden());
}

void tst_PreferencesTab::priorityIsTold()
{
    m_pHandler->projectModified = true;
    ModalScript script;
    script.use([](QWidget* box) {
        QCOMPARE(box->parentWidget(), static_cast<QWidget*>(&area()));
        box->close();
    });
    script.press(CDialog::No);
    radio("USB and LAN")->click();
    QCOMPARE(interface().getSettings()->preferences.connectionPriority, 0);
    radio("Designated IP address")->click();
    QCOMPARE(interface().getSettings()->preferences.connectionPriority, 2);
    QCOMPARE(m_pHandler->calls(),
             (QStringList{QStringLiteral("isProjectModified()"), QStringLiteral("isProjectModified()"),
                          QStringLiteral("setConnectionPriority(2)")}));
}

// The area outlives its window, and the answer still counts.
void tst_PreferencesTab::windowDestroyedWhileTheQuestionIsOpen()
{
    m_pHandler->projectModified = true;
    const QPointer<QWidget> window = new QWidget;
    area().setParent(window);
    area().show();
    window->show();
    ModalScript script;
    script.use([&](QWidget* box) {
        delete window;
        QTest::mouseClick(qobject_cast<CMessageBox*>(box)->button(CDialog::No), Qt::LeftButton);
    });
    radio("USB and LAN")->click();
    QVERIFY(!window);
    QVERIFY(!area().parentWidget());
    QCOMPARE(interface().getSettings()->preferences.connectionPriority, 1);
    QCOMPARE(m_pHandler->calls(),
             (QStringList{QStringLiteral("isProjectModified()"), QStringLiteral("setConnectionPriority(1)")}));
}

void tst_PreferencesTab::shortcutButtonSlidesThePanelIn()
{
    HostWindow host;
    area().attachShortcutPanel();
    host.window.show();
    QVERIFY(!host.panel()->isVisible());
    withText<QPushButton>(area(), "Keyboard shortcuts table...")->click();
    QTRY_COMPARE(m_pHandler->calls(), QStringList{QStringLiteral("notifyShortcutPanelVisible(1)")});
    QVERIFY(host.panel()->isVisible());
}

void tst_PreferencesTab::shortcutButtonWithoutAPanelDoesNothing()
{
    withText<QPushButton>(area(), "Keyboard shortcuts table...")->click();
    QCOMPARE(m_pHandler->calls(), QStringList());
}

SETTINGAREA_TEST_MAIN(tst_PreferencesTab, QApplication)
#include "tst_PreferencesTab.moc"
