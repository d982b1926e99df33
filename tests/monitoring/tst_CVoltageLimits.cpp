#include "monitoring/CVoltageLimits.h"
#include "tests/support/TestObject.h"

#include <widgetry/CDoubleSpinBox.h>

#include <QApplication>

#include <limits>

namespace {

struct Limits
{
    void set(double lower, double upper) { limits->setValues(lower, upper); }
    QList<double> values() const { return {limits->lower()->value(), limits->upper()->value()}; }
    QList<double> ranges() const
    {
        return {limits->lower()->minimum(), limits->lower()->maximum(), limits->upper()->minimum(),
                limits->upper()->maximum()};
    }

    QWidget group;
    CVoltageLimits* limits = new CVoltageLimits(&group);
};

void type(CDoubleSpinBox* box, const char* text)
{
    box->selectAll();
    QTest::keyClicks(box, QLatin1String(text));
    QTest::keyClick(box, Qt::Key_Return);
}

constexpr double infinite = std::numeric_limits<double>::infinity();
const double noNumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

class tst_CVoltageLimits : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void boxes();
    void startWideOpen();
    void eachNarrowsTheOther();
    void cannotPass();
    void stepsOfATenth();
    void whateverWasShownBefore();
    void settingTheSameNarrowsToo();
    void outOfRange_data();
    void outOfRange();
};

void tst_CVoltageLimits::boxes()
{
    const Limits one;
    for (CDoubleSpinBox* const box : {one.limits->lower(), one.limits->upper()}) {
        QCOMPARE(box->parentWidget(), &one.group);
        QCOMPARE(box->minimumSize(), QSize(56, 24));
        QCOMPARE(box->maximumSize(), QSize(56, 24));
        QCOMPARE(box->decimals(), 1);
        QCOMPARE(box->singleStep(), 0.1);
        QCOMPARE(box->suffix(), QStringLiteral("V"));
    }
    QCOMPARE(one.limits->parent(), &one.group);
}

void tst_CVoltageLimits::startWideOpen()
{
    const Limits one;
    QCOMPARE(one.ranges(), QList<double>({1, 20, 1, 20}));
}

void tst_CVoltageLimits::eachNarrowsTheOther()
{
    Limits one;
    one.set(5, 12);
    QCOMPARE(one.limits->lower()->text(), QStringLiteral("5.0V"));
    QCOMPARE(one.limits->upper()->text(), QStringLiteral("12.0V"));
    QCOMPARE(one.ranges(), QList<double>({1, 12, 5, 20}));
    one.limits->lower()->setValue(12);
    QCOMPARE(one.ranges(), QList<double>({1, 12, 12, 20}));
    one.limits->upper()->setValue(11.9); // below the lower one
    QCOMPARE(one.values(), QList<double>({12, 12}));
    one.limits->lower()->setValue(3.3);
    one.limits->upper()->setValue(4.4);
    QCOMPARE(one.values(), QList<double>({3.3, 4.4}));
    QCOMPARE(one.ranges(), QList<double>({1, 4.4, 3.3, 20}));
}

void tst_CVoltageLimits::cannotPass()
{
    Limits one;
    one.set(5, 12);
    type(one.limits->lower(), "12.1V");
    QVERIFY(one.limits->lower()->value() <= 12);
    one.set(5, 12);
    type(one.limits->upper(), "4.9V");
    QCOMPARE(one.values(), QList<double>({5, 12}));
    one.set(5, 12);
    type(one.limits->lower(), "11.5V");
    type(one.limits->upper(), "11.6V");
    QCOMPARE(one.values(), QList<double>({11.5, 11.6}));
    one.limits->lower()->stepUp();
    one.limits->lower()->stepUp();
    QCOMPARE(one.values(), QList<double>({11.6, 11.6}));
}

void tst_CVoltageLimits::stepsOfATenth()
{
    Limits one;
    one.set(5, 12);
    QTest::keyClick(one.limits->lower(), Qt::Key_Up);
    QTest::keyClick(one.limits->upper(), Qt::Key_Down);
    QCOMPARE(one.values(), QList<double>({5.1, 11.9}));
}

void tst_CVoltageLimits::whateverWasShownBefore()
{
    Limits one;
    const QList<QList<double>> ranges{{5, 12}, {15, 20}, {1, 1}, {20, 20}, {1, 20}, {2, 3}, {12, 12.1}, {1, 1.1}};
    for (const QList<double>& before : ranges) {
        for (const QList<double>& range : ranges) {
            one.set(before.at(0), before.at(1));
            one.set(range.at(0), range.at(1));
            QCOMPARE(one.values(), range);
            QCOMPARE(one.ranges(), QList<double>({1, range.at(1), range.at(0), 20}));
        }
    }
}

void tst_CVoltageLimits::settingTheSameNarrowsToo()
{
    Limits one;
    one.set(5, 12);
    one.set(5, 12);
    QCOMPARE(one.ranges(), QList<double>({1, 12, 5, 20}));
    one.set(6, 12);
    QCOMPARE(one.ranges(), QList<double>({1, 12, 6, 20}));
    one.set(6, 11);
    QCOMPARE(one.ranges(), QList<double>({1, 11, 6, 20}));
}

void tst_CVoltageLimits::outOfRange_data()
{
    QTest::addColumn<double>("lower");
    QTest::addColumn<double>("upper");
    QTest::addColumn<QList<double>>("values");
    QTest::newRow("too low") << 0.9 << 0.0 << QList<double>{1, 1};
    QTest::newRow("too high") << 20.1 << 21.0 << QList<double>{20, 20};
    QTest::newRow("too wide") << -5.0 << 1e9 << QList<double>{1, 20};
    QTest::newRow("the wrong way round") << 15.0 << 10.0 << QList<double>{15, 15};
    QTest::newRow("no numbers") << noNumber << noNumber << QList<double>{1, 20};
    QTest::newRow("lower no number") << noNumber << 7.0 << QList<double>{1, 7};
    QTest::newRow("upper no number") << 7.0 << noNumber << QList<double>{7, 20};
    QTest::newRow("infinite") << -infinite << infinite << QList<double>{1, 20};
    QTest::newRow("infinite the wrong way round") << infinite << -infinite << QList<double>{20, 20};
    QTest::newRow("greatest") << -std::numeric_limits<double>::max() << std::numeric_limits<double>::max()
                              << QList<double>{1, 20};
    QTest::newRow("hundredths") << 5.26 << 12.34 << QList<double>{5.3, 12.3};
}

void tst_CVoltageLimits::outOfRange()
{
    QFETCH(double, lower);
    QFETCH(double, upper);
    QFETCH(QList<double>, values);
    Limits one;
    one.set(5, 12);
    one.set(lower, upper);
    QCOMPARE(one.values(), values);
    one.set(5, 12);
    QCOMPARE(one.values(), QList<double>({5, 12}));
}

SETTINGAREA_TEST_MAIN(tst_CVoltageLimits, QApplication)

#include "tst_CVoltageLimits.moc"
