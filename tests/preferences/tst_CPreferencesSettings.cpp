#include "tests/preferences/PreferencesPage.h"
#include "tests/support/AreaFixture.h"
#include "tests/support/UpperCase.h"

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QWheelEvent>

using Preferences = SSettings::Preferences;

namespace {

// In the order of the check boxes' numbers.
constexpr bool Preferences::*flags[checkBoxCount] = {
    &Preferences::showGrid,
    &Preferences::showStringPosition,
    &Preferences::snapToCabinets,
    &Preferences::showProgrammingPane,
    &Preferences::showLayoutPane,
    &Preferences::showSoftEdgePane,
    &Preferences::showColorAdjustmentPane,
    &Preferences::showHealthMonitoringPane,
};

QVariantList valuesOf(const Preferences& preferences)
{
    QVariantList values{preferences.connectionPriority, preferences.fahrenheit, preferences.softEdgeMode,
                        preferences.snapSpace};
    for (const auto flag : flags)
        values.append(preferences.*flag);
    return values;
}

} // namespace

class tst_CPreferencesSettings : public AreaFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void startsWithTheDefaults();
    void everyCheckBoxIsAFieldOfItsOwn_data();
    void everyCheckBoxIsAFieldOfItsOwn();
    void radioButtonsShowTheRecord_data();
    void radioButtonsShowTheRecord();
    void choicesAreExclusive();
    void valuesOutOfRangeAreShownAsTheNearest_data();
    void valuesOutOfRangeAreShownAsTheNearest();
    void spaceStaysInItsRange();
    void wheelOverTheSpaceScrollsThePage();
    void pushIsSilent();
    void unitIsTold();
    void shortcutButtonIsTold();
    void softEdgeFollowsItsPane();

    void languageIsToldToTheHost();
    void languageFollowsTheLocale_data();
    void languageFollowsTheLocale();
    void withoutAHandlerTheChoiceStays();

    void controlsThatTheHostMayDisable();
    void priorityIsHiddenWhenTheHostSaysSo();

    void followsTheLanguage();
    void everyControlHasAName();

private:
    FakeHandler* m_pHandler = nullptr; // the area's
};

void tst_CPreferencesSettings::init()
{
    AreaFixture::init();
    QLocale::setDefault(QLocale::c());
    m_pHandler = new FakeHandler;
    area().setHandler(m_pHandler);
}

void tst_CPreferencesSettings::startsWithTheDefaults()
{
    const PreferencesPage shown;
    QCOMPARE(valuesOf(shown.page->preferences()), valuesOf(Preferences()));
    QCOMPARE(shown.checked(), (QStringList{QStringLiteral("USB primary"), QString::fromUtf8("Celsius（°C）"),
                                           QStringLiteral("Advanced soft edge(require receiving card support)")}));
    QVERIFY(!shown.radio(preferenceTexts[15])->isEnabled());
    QVERIFY(!shown.radio("Soft edge")->isEnabled());
    QCOMPARE(shown.space()->text(), QStringLiteral("20px"));
    QCOMPARE(m_pHandler->calls(), QStringList());
}

void tst_CPreferencesSettings::everyCheckBoxIsAFieldOfItsOwn_data()
{
    QTest::addColumn<int>("number");
    for (int number = 0; number < checkBoxCount; ++number)
        QTest::newRow(preferenceTexts[number]) << number;
}

void tst_CPreferencesSettings::everyCheckBoxIsAFieldOfItsOwn()
{
    QFETCH(int, number);
    const PreferencesPage shown;
    Preferences others;
    for (const auto flag : flags)
        others.*flag = false;
    shown.push(others);
    for (const bool isChecked : {true, false}) {
        Preferences expected = others;
        expected.*flags[number] = isChecked;
        QTest::mouseClick(shown.control(number), Qt::LeftButton, {}, {8, shown.control(number)->height() / 2});
        QCOMPARE(valuesOf(shown.page->preferences()), valuesOf(expected));
        shown.push(expected);
        for (int other = 0; other < checkBoxCount; ++other)
            QCOMPARE(shown.box(preferenceTexts[other])->isChecked(), other == number && isChecked);
    }
    QCOMPARE(m_pHandler->calls(), QStringList());
}

void tst_CPreferencesSettings::radioButtonsShowTheRecord_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("priority");
    QTest::addColumn<bool>("fahrenheit");
    QTest::addColumn<int>("softEdgeMode");
    QTest::newRow("USB primary") << 10 << 0 << true << 0;
    QTest::newRow("USB and LAN") << 11 << 1 << true << 0;
    QTest::newRow("Designated IP address") << 12 << 2 << true << 0;
    QTest::newRow("Celsius") << 13 << 1 << false << 1;
    QTest::newRow("Fahrenheit") << 14 << 1 << true << 1;
    QTest::newRow("Advanced soft edge") << 15 << 2 << false << 1;
    QTest::newRow("Soft edge") << 16 << 2 << false << 0;
}

void tst_CPreferencesSettings::radioButtonsShowTheRecord()
{
    QFETCH(int, number);
    QFETCH(int, priority);
    QFETCH(bool, fahrenheit);
    QFETCH(int, softEdgeMode);
    Preferences pushed;
    pushed.connectionPriority = priority;
    pushed.fahrenheit = fahrenheit;
    pushed.softEdgeMode = softEdgeMode;
    pushed.showSoftEdgePane = true;
    const PreferencesPage shown;
    shown.push(pushed);
    shown.push(pushed); // a page can be filled twice
    QVERIFY(shown.radio(preferenceTexts[number])->isChecked());
    QCOMPARE(shown.checked().size(), 3); // and no language
    QCOMPARE(valuesOf(shown.page->preferences()), valuesOf(pushed));

    // The same by hand, from a record in which each is another.
    Preferences other;
    other.connectionPriority = (priority + 1) % 3;
    other.fahrenheit = !fahrenheit;
    other.softEdgeMode = 1 - softEdgeMode;
    other.showSoftEdgePane = true;
    shown.push(other);
    QVERIFY(!shown.radio(preferenceTexts[number])->isChecked());
    QTest::mouseClick(shown.radio(preferenceTexts[number]), Qt::LeftButton, {}, {8, 8});
    QVERIFY(shown.radio(preferenceTexts[number])->isChecked());
    const Preferences read = shown.page->preferences();
    QCOMPARE(read.connectionPriority, number <= 12 ? priority : other.connectionPriority);
    QCOMPARE(read.fahrenheit, number == 13 || number == 14 ? fahrenheit : other.fahrenheit);
    QCOMPARE(read.softEdgeMode, number >= 15 ? softEdgeMode : other.softEdgeMode);
}

void tst_CPreferencesSettings::choicesAreExclusive()
{
    const PreferencesPage shown;
    shown.box("Show soft edge pane")->click();
    for (int number = firstRadioButton; number < firstLabel; ++number)
        shown.radio(preferenceTexts[number])->click();
    QCOMPARE(shown.checked(), (QStringList{QStringLiteral("Chinese"), QStringLiteral("Designated IP address"),
                                           QString::fromUtf8("Fahrenheit（℉）"), QStringLiteral("Soft edge")}));
}

void tst_CPreferencesSettings::valuesOutOfRangeAreShownAsTheNearest_data()
{
    QTest::addColumn<int>("priority");
    QTest::addColumn<int>("softEdgeMode");
    QTest::addColumn<int>("snapSpace");
    QTest::addColumn<int>("shownPriority");
    QTest::addColumn<int>("shownMode");
    QTest::addColumn<int>("shownSpace");
    QTest::newRow("too great") << 7 << 5 << 31 << 2 << 1 << 30;
    QTest::newRow("too small") << -1 << -3 << 0 << 0 << 0 << 8;
    QTest::newRow("greatest") << INT_MAX << INT_MAX << INT_MAX << 2 << 1 << 30;
    QTest::newRow("smallest") << INT_MIN << INT_MIN << INT_MIN << 0 << 0 << 8;
    QTest::newRow("just so") << 2 << 0 << 8 << 2 << 0 << 8;
}

void tst_CPreferencesSettings::valuesOutOfRangeAreShownAsTheNearest()
{
    QFETCH(int, priority);
    QFETCH(int, softEdgeMode);
    QFETCH(int, snapSpace);
    Preferences pushed;
    pushed.connectionPriority = priority;
    pushed.softEdgeMode = softEdgeMode;
    pushed.snapSpace = snapSpace;
    const PreferencesPage shown;
    shown.push(pushed);
    QTEST(shown.page->preferences().connectionPriority, "shownPriority");
    QTEST(shown.page->preferences().softEdgeMode, "shownMode");
    QTEST(shown.page->preferences().snapSpace, "shownSpace");
    QCOMPARE(m_pHandler->calls(), QStringList());
}

void tst_CPreferencesSettings::spaceStaysInItsRange()
{
    const PreferencesPage shown;
    auto* const edit = shown.space()->findChild<QLineEdit*>();
    shown.push({});
    for (int i = 0; i < 30; ++i)
        QTest::keyClick(shown.space(), Qt::Key_Up);
    QCOMPARE(shown.page->preferences().snapSpace, 30);
    QTest::keyClick(shown.space(), Qt::Key_Down);
    QCOMPARE(shown.page->preferences().snapSpace, 29);
    for (int i = 0; i < 30; ++i)
        QTest::keyClick(shown.space(), Qt::Key_Down);
    QCOMPARE(shown.page->preferences().snapSpace, 8);
    for (const char* const typed : {"7", "31", "999", "-9"}) {
        shown.space()->selectAll();
        QTest::keyClicks(edit, QString::fromLatin1(typed));
        QTest::keyClick(edit, Qt::Key_Return);
        QVERIFY2(shown.page->preferences().snapSpace >= 8 && shown.page->preferences().snapSpace <= 30, typed);
    }
    shown.space()->selectAll();
    QTest::keyClicks(edit, QStringLiteral("12"));
    QCOMPARE(shown.page->preferences().snapSpace, 12);
    QCOMPARE(shown.space()->text(), QStringLiteral("12px"));
}

void tst_CPreferencesSettings::wheelOverTheSpaceScrollsThePage()
{
    const PreferencesPage shown;
    QWheelEvent event({10, 10}, shown.space()->mapToGlobal(QPoint(10, 10)), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(shown.space(), &event);
    QVERIFY(!event.isAccepted());
    QCOMPARE(shown.page->preferences().snapSpace, 20);
}

void tst_CPreferencesSettings::pushIsSilent()
{
    const PreferencesPage shown;
    m_pHandler->projectModified = true;
    Preferences pushed;
    for (const int priority : {1, 2, 0}) {
        pushed.connectionPriority = priority;
        pushed.fahrenheit = !pushed.fahrenheit;
        const DefaultLocale locale(priority == 1 ? QLocale::Chinese : QLocale::English);
        shown.push(pushed);
        shown.page->syncLanguageWithLocale();
        QVERIFY(shown.radio(priority == 1 ? "Chinese" : "English")->isChecked());
        QCOMPARE(shown.page->preferences().connectionPriority, priority);
    }
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(m_pHandler->calls(), QStringList());
}

void tst_CPreferencesSettings::unitIsTold()
{
    const PreferencesPage shown;
    QSignalSpy told(shown.page, &CPreferencesSettings::notifyFahrenheitClicked);
    shown.radio(preferenceTexts[14])->click();
    QCOMPARE(told, (QList<QVariantList>{{true}}));
    shown.radio(preferenceTexts[14])->click();
    QCOMPARE(told.size(), 1);
    shown.radio(preferenceTexts[13])->click();
    QCOMPARE(told, (QList<QVariantList>{{true}, {false}}));
    Preferences pushed;
    pushed.fahrenheit = true;
    shown.push(pushed);
    shown.push(pushed);
    QCOMPARE(told, (QList<QVariantList>{{true}, {false}, {true}}));
    QCOMPARE(m_pHandler->calls(), QStringList());
}

void tst_CPreferencesSettings::shortcutButtonIsTold()
{
    const PreferencesPage shown;
    QSignalSpy told(shown.page, &CPreferencesSettings::notifyShortcutClicked);
    QTest::mouseClick(shown.shortcuts(), Qt::LeftButton);
    QCOMPARE(told.size(), 1);
    QTest::keyClick(shown.shortcuts(), Qt::Key_Space);
    QCOMPARE(told.size(), 2);
}

void tst_CPreferencesSettings::softEdgeFollowsItsPane()
{
    const PreferencesPage shown;
    const auto areEnabled = [&](bool expected) {
        return shown.radio(preferenceTexts[15])->isEnabled() == expected &&
               shown.radio("Soft edge")->isEnabled() == expected;
    };
    shown.box("Show soft edge pane")->click();
    QVERIFY(areEnabled(true));
    shown.radio("Soft edge")->click();
    shown.box("Show soft edge pane")->click();
    QVERIFY(areEnabled(false));
    QVERIFY(!shown.page->preferences().showSoftEdgePane);
    QCOMPARE(shown.page->preferences().softEdgeMode, 0);

    Preferences pushed;
    for (const bool isShown : {true, true, false, false, true}) {
        pushed.showSoftEdgePane = isShown;
        shown.push(pushed);
        QVERIFY(areEnabled(isShown));
    }
}

void tst_CPreferencesSettings::languageIsToldToTheHost()
{
    const PreferencesPage shown;
    shown.radio("Chinese")->click();
    QCOMPARE(m_pHandler->calls(), QStringList{QStringLiteral("setLanguage(zh_CN)")});
    shown.radio("Chinese")->click();
    QCOMPARE(m_pHandler->calls().size(), 1);
    shown.radio("English")->click();
    QCOMPARE(m_pHandler->calls(),
             (QStringList{QStringLiteral("setLanguage(zh_CN)"), QStringLiteral("setLanguage(en_US)")}));
}

void tst_CPreferencesSettings::languageFollowsTheLocale_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QStringList>("checked");
    const QStringList english{QStringLiteral("English")};
    const QStringList chinese{QStringLiteral("Chinese")};
    QTest::newRow("en_US") << QStringLiteral("en_US") << english;
    QTest::newRow("en_GB") << QStringLiteral("en_GB") << english;
    QTest::newRow("zh_CN") << QStringLiteral("zh_CN") << chinese;
    QTest::newRow("zh_TW") << QStringLiteral("zh_TW") << chinese;
    QTest::newRow("fr_FR") << QStringLiteral("fr_FR") << QStringList();
    QTest::newRow("C") << QStringLiteral("C") << QStringList();
}

void tst_CPreferencesSettings::languageFollowsTheLocale()
{
    QFETCH(QString, locale);
    QFETCH(QStringList, checked);
    const PreferencesPage shown;
    const auto languages = [&shown] { return shown.checked().mid(0, shown.checked().size() - 3); };
    QCOMPARE(languages(), QStringList());
    {
        const DefaultLocale other{QLocale(locale)};
        shown.push({});
        QCOMPARE(languages(), checked);
    }
    // What is selected stays for a language that is not offered.
    for (const auto language : {QLocale::Chinese, QLocale::English}) {
        {
            const DefaultLocale before{QLocale(language)};
            shown.page->syncLanguageWithLocale();
        }
        const QStringList stays = languages();
        QCOMPARE(stays.size(), 1);
        const DefaultLocale other{QLocale(locale)};
        shown.page->syncLanguageWithLocale();
        QCOMPARE(languages(), checked.isEmpty() ? stays : checked);
    }
    QCOMPARE(m_pHandler->calls(), QStringList());
}

void tst_CPreferencesSettings::withoutAHandlerTheChoiceStays()
{
    area().setHandler(nullptr);
    const PreferencesPage shown;
    shown.radio("Chinese")->click();
    shown.priority(2)->click();
    shown.page->refreshPreferences();
    QVERIFY(shown.radio("Chinese")->isChecked());
    QVERIFY(shown.priority(2)->isChecked());
    QVERIFY(shown.priority(2)->isVisible());
    QCOMPARE(shown.page->preferences().connectionPriority, 2);
}

void tst_CPreferencesSettings::controlsThatTheHostMayDisable()
{
    const PreferencesPage shown;
    shown.box("Show soft edge pane")->click();
    for (const bool isEnabled : {false, true}) {
        shown.page->setControlsEnabled(isEnabled);
        for (int number = 0; number < firstLabel; ++number) {
            const bool mayBeDisabled = number == 7 || (number >= 10 && number <= 12);
            QCOMPARE(shown.control(number)->isEnabled(), isEnabled || !mayBeDisabled);
        }
        QVERIFY(shown.space()->isEnabled());
        QVERIFY(shown.shortcuts()->isEnabled());
    }
}

void tst_CPreferencesSettings::priorityIsHiddenWhenTheHostSaysSo()
{
    const PreferencesPage shown;
    for (const bool isHidden : {true, true, false, true}) {
        m_pHandler->priorityHidden = isHidden;
        shown.page->refreshPreferences();
        for (int number = 0; number < firstLabel + 4; ++number) {
            const bool mayBeHidden = (number >= 10 && number <= 12) || number == 18;
            QCOMPARE(shown.control(number)->isVisible(), !isHidden || !mayBeHidden);
        }
        for (int priority = 0; priority < 3; ++priority)
            QCOMPARE(shown.tip(priority)->isVisible(), !isHidden);
    }
    QCOMPARE(m_pHandler->calls().count(QStringLiteral("isPriorityConnectionHidden()")), 4);
    area().setHandler(nullptr);
    shown.page->refreshPreferences();
    QVERIFY(!shown.priority(0)->isVisible());
}

void tst_CPreferencesSettings::followsTheLanguage()
{
    const PreferencesPage shown;
    const auto texts = [&shown] {
        QStringList all;
        const auto labels = shown.page->findChildren<QLabel*>();
        for (const QLabel* label : labels)
            all.append(label->text());
        const auto buttons = shown.page->findChildren<QAbstractButton*>();
        for (const QAbstractButton* button : buttons)
            all << button->text() << button->accessibleDescription();
        for (int priority = 0; priority < 3; ++priority)
            all.append(shown.tip(priority)->toolTip());
        all.append(shown.space()->accessibleName());
        return all;
    };
    const QStringList english = texts();
    for (const char* const text : {"General settings", "Software modules", "Layout options"})
        QCOMPARE(english.count(QLatin1String(text)), 1);
    QCOMPARE(english.count(QStringLiteral("Space")), 2); // the label, and the name of its box
    for (const char* const text : preferenceTexts)
        QCOMPARE(english.count(QString::fromUtf8(text)), 1);
    for (const char* const text : tipTexts)
        QCOMPARE(english.count(QLatin1String(text)), 2);
    QCOMPARE(english.count(QStringLiteral("Keyboard shortcuts table...")), 1);
    {
        const UpperCase language;
        QStringList expected;
        for (const QString& text : english)
            expected.append(text == QLatin1String("English") ? text : text.toUpper());
        QCOMPARE(texts(), expected);
    }
    QCOMPARE(texts(), english);
}

void tst_CPreferencesSettings::everyControlHasAName()
{
    const PreferencesPage shown;
    const auto nameOf = [](QWidget* widget) {
        return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
    };
    for (int number = 0; number < firstLabel + 4; ++number)
        QCOMPARE(nameOf(shown.control(number)), QString::fromUtf8(preferenceTexts[number]));
    QCOMPARE(nameOf(shown.space()), QStringLiteral("Space"));
    QCOMPARE(nameOf(shown.shortcuts()), QStringLiteral("Keyboard shortcuts table..."));
    for (int priority = 0; priority < 3; ++priority) {
        QCOMPARE(shown.tip(priority)->toolTip(), QLatin1String(tipTexts[priority]));
        QCOMPARE(shown.priority(priority)->accessibleDescription(), QLatin1String(tipTexts[priority]));
    }
}

SETTINGAREA_TEST_MAIN(tst_CPreferencesSettings, QApplication)
#include "tst_CPreferencesSettings.moc"
