#include "monitoring/Temperature.h"
#include "tests/support/TestObject.h"

#include <QCoreApplication>

class tst_Temperature : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void toFahrenheit_data();
    void toFahrenheit();
    void toCelsius_data();
    void toCelsius();
    void asInFractions();
    void thereAndBack();
};

void tst_Temperature::toFahrenheit_data()
{
    QTest::addColumn<int>("celsius");
    QTest::addColumn<int>("fahrenheit");
    QTest::newRow("60") << 60 << 140;
    QTest::newRow("21") << 21 << 69; // 69.8
    QTest::newRow("20") << 20 << 68;
    QTest::newRow("100") << 100 << 212;
    QTest::newRow("0") << 0 << 32;
    QTest::newRow("-1") << -1 << 30;   // 30.2
    QTest::newRow("-17") << -17 << 1;  // 1.4
    QTest::newRow("-18") << -18 << 0;  // -0.4
    QTest::newRow("-19") << -19 << -2; // -2.2
    QTest::newRow("-40") << -40 << -40;
    QTest::newRow("least") << std::numeric_limits<int>::min() << std::numeric_limits<int>::min();
    QTest::newRow("greatest") << std::numeric_limits<int>::max() << std::numeric_limits<int>::max();
}

void tst_Temperature::toFahrenheit()
{
    QFETCH(int, celsius);
    QFETCH(int, fahrenheit);
    QCOMPARE(fahrenheitFromCelsius(celsius), fahrenheit);
}

void tst_Temperature::toCelsius_data()
{
    QTest::addColumn<int>("fahrenheit");
    QTest::addColumn<int>("celsius");
    QTest::newRow("140") << 140 << 60;
    QTest::newRow("69") << 69 << 20; // 20.6
    QTest::newRow("68") << 68 << 20;
    QTest::newRow("212") << 212 << 100;
    QTest::newRow("211") << 211 << 99; // 99.4
    QTest::newRow("32") << 32 << 0;
    QTest::newRow("31") << 31 << 0;  // -0.6
    QTest::newRow("30") << 30 << -1; // -1.1
    QTest::newRow("0") << 0 << -17;  // -17.8
    QTest::newRow("-40") << -40 << -40;
    QTest::newRow("least") << std::numeric_limits<int>::min() << -1193046488;
    QTest::newRow("greatest") << std::numeric_limits<int>::max() << 1193046452;
}

void tst_Temperature::toCelsius()
{
    QFETCH(int, fahrenheit);
    QFETCH(int, celsius);
    QCOMPARE(celsiusFromFahrenheit(fahrenheit), celsius);
}

void tst_Temperature::asInFractions()
{
    for (int degrees = -300; degrees <= 300; ++degrees) {
        QCOMPARE(fahrenheitFromCelsius(degrees), static_cast<int>(degrees * 1.8 + 32));
        QCOMPARE(celsiusFromFahrenheit(degrees), static_cast<int>((degrees - 32) / 1.8));
    }
}

void tst_Temperature::thereAndBack()
{
    for (int celsius = 20; celsius <= 100; ++celsius)
        QCOMPARE(celsiusFromFahrenheit(fahrenheitFromCelsius(celsius)), celsius % 5 == 0 ? celsius : celsius - 1);
}

SETTINGAREA_TEST_MAIN(tst_Temperature, QCoreApplication)

#include "tst_Temperature.moc"
