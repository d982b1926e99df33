#include "tests/monitoring/HealthPage.h"
#include "tests/support/TestObject.h"
#include "tests/support/UpperCase.h"

#include <QApplication>
#include <QWheelEvent>

class tst_CMonitoringSettings : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void asConstructed();
    void controls();
    void checkBoxes_data();
    void checkBoxes();
    void thresholdIsKeptWhileHidden();
    void refreshInterval_data();
    void refreshInterval();
    void intervalBySections();
    void temperature_data();
    void temperature();
    void humidityIsClamped();
    void fahrenheit();
    void fahrenheitRange();
    void everyTemperatureInFahrenheit();
    void unitSwitchedTwice();
    void pushInFahrenheit();
    void voltageCoupling();
    void wheelScrollsThePage();
    void followsTheLanguage();
};

void tst_CMonitoringSettings::asConstructed()
{
    const HealthPage shown;
    for (int item = 0; item < healthItemCount; ++item) {
        QVERIFY(!shown.box(item)->isChecked());
        QCOMPARE(shown.box(item)->text(), QLatin1String(healthItems[item].uncheckedText));
        QVERIFY(shown.box(item)->isVisible());
        const QWidgetList dependents = shown.dependents(item);
        for (const QWidget* dependent : dependents)
            QVERIFY(dependent->isHidden());
    }
    QCOMPARE(shown.interval()->time(), QTime(0, 0, 10));
    QCOMPARE(shown.temperature()->text(), QString::fromUtf8("20°C"));
    QCOMPARE(shown.humidity()->text(), QStringLiteral("20%"));
    for (const char* text : {"Refresh interval", "(Interval range 10s~2h)", "Receiver", "Cable error",
                             "Power supply monitoring", "Voltage monitoring"}) {
        QCOMPARE(shown.labels(text).size(), 1);
        QVERIFY(shown.labels(text).value(0)->isVisible());
    }
    QCOMPARE(shown.labels("alert").size(), 2);
    QCOMPARE(shown.labels("~").size(), 4);
}

void tst_CMonitoringSettings::controls()
{
    const HealthPage shown;
    QCOMPARE(shown.page.horizontalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    QCOMPARE(shown.page.verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    QVERIFY(shown.page.widgetResizable());

    const QTimeEdit* const interval = shown.interval();
    QCOMPARE(interval->displayFormat(), QStringLiteral("HH'h ': mm'm' : ss's'"));
    QCOMPARE(interval->timeSpec(), Qt::LocalTime);
    QCOMPARE(interval->minimumTime(), QTime(0, 0, 10));
    QCOMPARE(interval->maximumTime(), QTime(2, 0));
    QCOMPARE(interval->size(), QSize(100, 24));
    QCOMPARE(interval->text(), QStringLiteral("00h : 00m : 10s"));

    QCOMPARE(shown.temperature()->minimum(), 20);
    QCOMPARE(shown.temperature()->maximum(), 100);
    QCOMPARE(shown.temperature()->suffix(), QString::fromUtf8("°C"));
    QCOMPARE(shown.humidity()->minimum(), 20);
    QCOMPARE(shown.humidity()->maximum(), 100);
    QCOMPARE(shown.humidity()->suffix(), QStringLiteral("%"));
    for (const CSpinBox* box : {shown.temperature(), shown.humidity()}) {
        QCOMPARE(box->singleStep(), 1);
        QCOMPARE(box->minimumSize(), QSize(56, 24));
        QCOMPARE(box->maximumSize(), QSize(56, 24));
    }
    for (int range = 0; range < 4; ++range) {
        for (const CDoubleSpinBox* box : {shown.lower(range), shown.upper(range)}) {
            QCOMPARE(box->minimum(), 1.0);
            QCOMPARE(box->maximum(), 20.0);
            QCOMPARE(box->maximumSize(), QSize(56, 24));
        }
    }
}

void tst_CMonitoringSettings::checkBoxes_data()
{
    QTest::addColumn<int>("item");
    for (int item = 0; item < healthItemCount; ++item)
        QTest::newRow(healthItems[item].uncheckedText) << item;
}

void tst_CMonitoringSettings::checkBoxes()
{
    QFETCH(int, item);
    HealthPage shown(watching(false));
    const QWidgetList dependents = shown.dependents(item);
    for (const bool checked : {true, false, true}) {
        shown.box(item)->click();
        QCOMPARE(shown.box(item)->text(),
                 QLatin1String(checked ? healthItems[item].checkedText : healthItems[item].uncheckedText));
        for (const QWidget* dependent : dependents)
            QCOMPARE(dependent->isVisible(), checked);
        for (int other = 0; other < healthItemCount; ++other) {
            QCOMPARE(shown.box(other)->isChecked(), other == item && checked);
            QCOMPARE(shown.settings().*healthItems[other].flag, other == item && checked);
            const QWidgetList others = other == item ? QWidgetList() : shown.dependents(other);
            for (const QWidget* dependent : others)
                QVERIFY(!dependent->isVisible());
        }
    }
}

void tst_CMonitoringSettings::thresholdIsKeptWhileHidden()
{
    SMonitorSettings settings = watching(true);
    settings.nTemperature = 71;
    settings.nHumidity = 66;
    settings.dVoltage2Min = 3.3;
    settings.dVoltage2Max = 4.4;
    HealthPage shown(settings);
    for (const int item : {temperatureItem, humidityItem, voltageItem + 1})
        shown.box(item)->click();
    QCOMPARE(shown.settings().nTemperature, 71);
    QCOMPARE(shown.settings().nHumidity, 66);
    QCOMPARE(shown.settings().dVoltage2Min, 3.3);
    QCOMPARE(shown.settings().dVoltage2Max, 4.4);
}

void tst_CMonitoringSettings::refreshInterval_data()
{
    QTest::addColumn<int>("pushed");
    QTest::addColumn<QTime>("time");
    QTest::addColumn<int>("seconds");
    QTest::newRow("10") << 10 << QTime(0, 0, 10) << 10;
    QTest::newRow("77") << 77 << QTime(0, 1, 17) << 77;
    QTest::newRow("7199") << 7199 << QTime(1, 59, 59) << 7199;
    QTest::newRow("7200") << 7200 << QTime(2, 0) << 7200;
    QTest::newRow("7201") << 7201 << QTime(2, 0) << 7200;
    QTest::newRow("9") << 9 << QTime(0, 0, 10) << 10;
    QTest::newRow("5") << 5 << QTime(0, 0, 10) << 10;
    QTest::newRow("0") << 0 << QTime(0, 0, 10) << 10;
    QTest::newRow("-1") << -1 << QTime(0, 0, 10) << 10;
    QTest::newRow("a day less") << -86400 + 60 << QTime(0, 0, 10) << 10;
    QTest::newRow("a day") << 86400 << QTime(2, 0) << 7200;
    QTest::newRow("a day and a minute") << 86460 << QTime(2, 0) << 7200;
    QTest::newRow("least") << std::numeric_limits<int>::min() << QTime(0, 0, 10) << 10;
    QTest::newRow("greatest") << std::numeric_limits<int>::max() << QTime(2, 0) << 7200;
}

void tst_CMonitoringSettings::refreshInterval()
{
    QFETCH(int, pushed);
    QFETCH(QTime, time);
    QFETCH(int, seconds);
    SMonitorSettings settings;
    settings.nRefreshInterval = pushed;
    HealthPage shown(settings);
    QCOMPARE(shown.interval()->time(), time);
    QCOMPARE(shown.settings().nRefreshInterval, seconds);
}

void tst_CMonitoringSettings::intervalBySections()
{
    SMonitorSettings settings;
    settings.nRefreshInterval = 725;
    HealthPage shown(settings);
    QCOMPARE(shown.interval()->text(), QStringLiteral("00h : 12m : 05s"));
    const std::pair<QDateTimeEdit::Section, int> steps[] = {
        {QDateTimeEdit::SecondSection, 726}, {QDateTimeEdit::MinuteSection, 785}, {QDateTimeEdit::HourSection, 4325}};
    for (const auto& [section, seconds] : steps) {
        shown.set(settings);
        shown.interval()->setCurrentSection(section);
        QTest::keyClick(shown.interval(), Qt::Key_Up);
        QCOMPARE(shown.settings().nRefreshInterval, seconds);
    }
}

void tst_CMonitoringSettings::temperature_data()
{
    QTest::addColumn<int>("pushed");
    QTest::addColumn<int>("celsius");
    QTest::newRow("20") << 20 << 20;
    QTest::newRow("60") << 60 << 60;
    QTest::newRow("100") << 100 << 100;
    QTest::newRow("19") << 19 << 20;
    QTest::newRow("101") << 101 << 100;
    QTest::newRow("-1") << -1 << 20;
    QTest::newRow("least") << std::numeric_limits<int>::min() << 20;
    QTest::newRow("greatest") << std::numeric_limits<int>::max() << 100;
}

void tst_CMonitoringSettings::temperature()
{
    QFETCH(int, pushed);
    QFETCH(int, celsius);
    SMonitorSettings settings;
    settings.nTemperature = pushed;
    HealthPage shown(settings);
    QCOMPARE(shown.temperature()->value(), celsius);
    QCOMPARE(shown.settings().nTemperature, celsius);

    HealthPage inFahrenheit;
    inFahrenheit.page.FahrenheitClicked(true);
    inFahrenheit.set(settings);
    QCOMPARE(inFahrenheit.temperature()->value(), celsius * 9 / 5 + 32); // these are multiples of 5
    QCOMPARE(inFahrenheit.settings().nTemperature, celsius);
}

void tst_CMonitoringSettings::humidityIsClamped()
{
    const std::pair<int, int> values[] = {
        {20, 20}, {85, 85}, {100, 100}, {19, 20}, {101, 100}, {-5, 20}, {std::numeric_limits<int>::max(), 100}};
    for (const auto& [pushed, expected] : values) {
        SMonitorSettings settings;
        settings.nHumidity = pushed;
        HealthPage shown(settings);
        QCOMPARE(shown.humidity()->value(), expected);
        QCOMPARE(shown.settings().nHumidity, expected);
    }
}

void tst_CMonitoringSettings::fahrenheit()
{
    HealthPage shown(watching(true));
    QCOMPARE(shown.temperature()->text(), QString::fromUtf8("60°C"));
    shown.page.FahrenheitClicked(true);
    QCOMPARE(shown.temperature()->text(), QString::fromUtf8("140°F"));
    QCOMPARE(shown.settings().nTemperature, 60);
    shown.page.FahrenheitClicked(false);
    QCOMPARE(shown.temperature()->text(), QString::fromUtf8("60°C"));

    shown.temperature()->setValue(21);
    shown.page.FahrenheitClicked(true);
    QCOMPARE(shown.temperature()->text(), QString::fromUtf8("69°F"));
    QCOMPARE(shown.settings().nTemperature, 20);
    shown.page.FahrenheitClicked(false);
    QCOMPARE(shown.temperature()->text(), QString::fromUtf8("20°C"));
}

void tst_CMonitoringSettings::fahrenheitRange()
{
    HealthPage shown(watching(true));
    shown.page.FahrenheitClicked(true);
    QCOMPARE(shown.temperature()->minimum(), 68);
    QCOMPARE(shown.temperature()->maximum(), 212);
    shown.temperature()->setValue(67);
    QCOMPARE(shown.settings().nTemperature, 20);
    shown.temperature()->setValue(213);
    QCOMPARE(shown.settings().nTemperature, 100);
    shown.page.FahrenheitClicked(false);
    QCOMPARE(shown.temperature()->minimum(), 20);
    QCOMPARE(shown.temperature()->maximum(), 100);
    QCOMPARE(shown.temperature()->value(), 100);
}

// A degree is lost for all but the multiples of 5.
void tst_CMonitoringSettings::everyTemperatureInFahrenheit()
{
    HealthPage shown(watching(true));
    for (int celsius = 20; celsius <= 100; ++celsius) {
        shown.temperature()->setValue(celsius);
        shown.page.FahrenheitClicked(true);
        QCOMPARE(shown.temperature()->value(), static_cast<int>(celsius * 1.8 + 32));
        shown.page.FahrenheitClicked(false);
        QCOMPARE(shown.temperature()->value(), celsius % 5 == 0 ? celsius : celsius - 1);
    }
}

void tst_CMonitoringSettings::unitSwitchedTwice()
{
    HealthPage shown(watching(true));
    shown.temperature()->setValue(30);
    shown.page.FahrenheitClicked(true);
    QCOMPARE(shown.temperature()->value(), 86);
    shown.page.FahrenheitClicked(true);
    QCOMPARE(shown.temperature()->value(), 186); // 186.8
    shown.page.FahrenheitClicked(true);
    QCOMPARE(shown.temperature()->value(), 212); // clamped
    shown.page.FahrenheitClicked(false);
    shown.page.FahrenheitClicked(false);
    QCOMPARE(shown.temperature()->value(), 37); // 37.8
}

void tst_CMonitoringSettings::pushInFahrenheit()
{
    HealthPage shown;
    shown.page.FahrenheitClicked(true);
    SMonitorSettings settings = watching(true);
    settings.nTemperature = 21;
    shown.set(settings);
    QCOMPARE(shown.temperature()->text(), QString::fromUtf8("69°F"));
    QCOMPARE(shown.settings().nTemperature, 20);
}

void tst_CMonitoringSettings::voltageCoupling()
{
    HealthPage shown(watching(true));
    for (int range = 0; range < 4; ++range) {
        shown.lower(range)->setValue(12);
        QCOMPARE(shown.upper(range)->minimum(), 12.0);
        QCOMPARE(shown.upper(range)->maximum(), 20.0);
        shown.upper(range)->setValue(11);
        QCOMPARE(shown.upper(range)->value(), 12.0);
        shown.lower(range)->setValue(5);
        shown.upper(range)->setValue(11);
        QCOMPARE(shown.lower(range)->minimum(), 1.0);
        QCOMPARE(shown.lower(range)->maximum(), 11.0);
        QCOMPARE(shown.settings().*voltageFields[range].lower, 5.0);
        QCOMPARE(shown.settings().*voltageFields[range].upper, 11.0);
    }
}

void tst_CMonitoringSettings::wheelScrollsThePage()
{
    HealthPage shown(watching(true));
    const QPointF center = shown.interval()->rect().center();
    QWheelEvent wheel(center, shown.interval()->mapToGlobal(center.toPoint()), {}, {0, -120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QVERIFY(shown.interval()->focusPolicy() == Qt::StrongFocus);
    shown.interval()->clearFocus();
    QCoreApplication::sendEvent(shown.interval(), &wheel);
    QCOMPARE(shown.interval()->time(), QTime(0, 0, 10));
    QVERIFY(!wheel.isAccepted()); // so that it goes on to the page

    QApplication::setActiveWindow(&shown.page);
    shown.interval()->setFocus();
    QVERIFY(shown.interval()->hasFocus());
    shown.interval()->setTime(QTime(1, 1));
    shown.interval()->setCurrentSection(QDateTimeEdit::MinuteSection);
    QCoreApplication::sendEvent(shown.interval(), &wheel);
    QCOMPARE(shown.interval()->time(), QTime(1, 0));
}

void tst_CMonitoringSettings::followsTheLanguage()
{
    HealthPage shown(watching(true));
    QList<QCheckBox*> boxes;
    for (int item = 0; item < healthItemCount; ++item)
        boxes.append(shown.box(item));
    boxes.at(0)->click();
    boxes.at(temperatureItem)->click();
    const auto groups = shown.page.findChildren<CCustomGroupBox*>();
    QStringList titles;
    for (const CCustomGroupBox* group : groups)
        titles.append(group->title());
    QCOMPARE(titles, QStringList({QStringLiteral("General settings"), QStringLiteral("Processor settings"),
                                  QStringLiteral("Receiver settings"), QStringLiteral("Email settings")}));
    {
        const UpperCase language;
        for (int item = 0; item < healthItemCount; ++item) {
            const bool isChecked = item != 0 && item != temperatureItem;
            const HealthItem& texts = healthItems[item];
            QCOMPARE(boxes.at(item)->text(),
                     QString::fromLatin1(isChecked ? texts.checkedText : texts.uncheckedText).toUpper());
        }
        for (int i = 0; i < titles.size(); ++i)
            QCOMPARE(groups.at(i)->title(), titles.at(i).toUpper());
        for (const char* text : {"REFRESH INTERVAL", "(INTERVAL RANGE 10S~2H)", "CABLE ERROR", "RECEIVER",
                                 "POWER SUPPLY MONITORING", "VOLTAGE MONITORING"})
            QCOMPARE(shown.labels(text).size(), 1);
        QCOMPARE(shown.labels("ALERT").size(), 2);
        QCOMPARE(shown.labels("~").size(), 4);
        const auto spinBoxes = shown.page.findChildren<QAbstractSpinBox*>();
        for (const QAbstractSpinBox* box : spinBoxes) {
            QVERIFY(!box->accessibleName().isEmpty());
            QVERIFY2(box->accessibleName() == box->accessibleName().toUpper() ||
                         box->accessibleName().startsWith(QStringLiteral("%1")),
                     qPrintable(box->accessibleName()));
        }
    }
    QCOMPARE(boxes.at(0)->text(), QStringLiteral("Video input monitoring"));
    QCOMPARE(boxes.at(1)->text(), QStringLiteral("Freeze alert"));
}

SETTINGAREA_TEST_MAIN(tst_CMonitoringSettings, QApplication)

#include "tst_CMonitoringSettings.moc"
