#include "multircv/CabinetRecord.h"

#include "tests/support/TestObject.h"
#include "typelibrary/store/Md5.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

namespace {

using Wiring = std::array<std::uint8_t, 10>;
using Change = std::function<void(SHwRcvInCabinetInfo&, CabinetEdit&)>;

SMD5 digest(const char (&text)[md5Length + 1])
{
    SMD5 md5;
    std::copy(std::begin(text), std::end(text), md5.data);
    return md5;
}

const SMD5 someDigest = digest("0123456789abcdef0123456789abcdef");

// A type of 2 x 2 receivers and the edit that changes nothing of it.
SHwRcvInCabinetInfo storedRecord()
{
    SHwRcvInCabinetInfo record;
    record.name = QStringLiteral("P2.5");
    record.md5 = someDigest;
    record.specifyOrientation = true;
    record.columns = 2;
    record.rows = 2;
    record.wiringOrder = {0, 2, 3, 1};
    record.weight = 7.5F;
    record.power = 120;
    record.voltageMin = 4.5F;
    record.voltageMax = 5;
    return record;
}

CabinetEdit sameEdit()
{
    return {{2, 2}, true, {0, 2, 3, 1}, QStringLiteral("P2.5"), 7.5, 120, 4.5, 5};
}

} // namespace

Q_DECLARE_METATYPE(Change)

class tst_CabinetRecord : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaults();
    void newWithoutDigest();
    void unchanged_data();
    void unchanged();
    void changed_data();
    void changed();
    void newIsNeverUnchanged();
    void everyCellButTheLastCounts();
    void typedValueDiffersFromItsFloat();
    void fillSetsEveryField();
    void name_data();
    void name();
    void fillKeepsEntriesBeyondTheGrid();
    void fillNarrows();
    void filledRecordIsUnchanged();
    void damagedRecord();
};

void tst_CabinetRecord::defaults()
{
    const SHwRcvInCabinetInfo record;
    QCOMPARE(record.name, QString());
    QCOMPARE(QByteArray(record.md5.data, md5Length), QByteArray(md5Length, '\0'));
    QCOMPARE(record.specifyOrientation, false);
    QCOMPARE(record.columns, std::uint8_t{0});
    QCOMPARE(record.rows, std::uint8_t{0});
    QVERIFY(record.wiringOrder == Wiring{});
    for (const float value : {record.weight, record.power, record.voltageMin, record.voltageMax})
        QCOMPARE(value, 0.0F);
}

void tst_CabinetRecord::newWithoutDigest()
{
    SHwRcvInCabinetInfo record = storedRecord();
    QVERIFY(!isNew(record));
    record.md5 = SMD5{};
    QVERIFY(isNew(record));
    record.md5.data[md5Length - 1] = '0';
    QVERIFY(!isNew(record));
}

void tst_CabinetRecord::unchanged_data()
{
    QTest::addColumn<Change>("change");
    QTest::newRow("nothing") << Change([](auto&, auto&) {});
    QTest::newRow("last cell of the wiring") << Change([](auto&, auto& edit) { edit.wiring[3] = 0; });
    QTest::newRow("entries beyond the grid") << Change([](auto& record, auto&) { record.wiringOrder[4] = 9; });
    QTest::newRow("orientation") << Change([](auto&, auto& edit) { edit.specifyOrientation = false; });
    QTest::newRow("digest") << Change([](auto& record, auto&) { record.md5.data[0] = 'f'; });
    QTest::newRow("sign of zero") << Change([](auto& record, auto& edit) {
        record.weight = -0.0F;
        edit.weight = 0.0;
    });
}

void tst_CabinetRecord::unchanged()
{
    QFETCH(Change, change);
    SHwRcvInCabinetInfo record = storedRecord();
    CabinetEdit edit = sameEdit();
    change(record, edit);
    QVERIFY(isUnchanged(record, edit));
}

void tst_CabinetRecord::changed_data()
{
    QTest::addColumn<Change>("change");
    QTest::newRow("columns") << Change([](auto&, auto& edit) { edit.grid.setWidth(3); });
    QTest::newRow("rows") << Change([](auto&, auto& edit) { edit.grid.setHeight(1); });
    QTest::newRow("columns and rows exchanged") << Change([](auto& record, auto& edit) {
        record.columns = 4;
        record.rows = 1;
        edit.grid = QSize(1, 4);
    });
    QTest::newRow("wiring") << Change([](auto&, auto& edit) { edit.wiring = {0, 2, 1, 3}; });
    QTest::newRow("wiring too short") << Change([](auto&, auto& edit) { edit.wiring = {0, 2}; });
    QTest::newRow("type name") << Change([](auto&, auto& edit) { edit.typeName = QStringLiteral("p2.5"); });
    QTest::newRow("file of another name") << Change([](auto& record, auto&) { record.name = QStringLiteral("P2"); });
    QTest::newRow("weight") << Change([](auto&, auto& edit) { edit.weight = 7.51; });
    QTest::newRow("power") << Change([](auto&, auto& edit) { edit.power = 119.99; });
    QTest::newRow("lower voltage") << Change([](auto&, auto& edit) { edit.voltageMin = 4.49; });
    QTest::newRow("upper voltage") << Change([](auto&, auto& edit) { edit.voltageMax = 5.01; });
    QTest::newRow("smallest step") << Change([](auto&, auto& edit) { edit.power = std::nextafter(120.0, 121.0); });
    QTest::newRow("no number") << Change([](auto& record, auto& edit) {
        record.weight = std::numeric_limits<float>::quiet_NaN();
        edit.weight = std::numeric_limits<double>::quiet_NaN();
    });
}

void tst_CabinetRecord::changed()
{
    QFETCH(Change, change);
    SHwRcvInCabinetInfo record = storedRecord();
    CabinetEdit edit = sameEdit();
    change(record, edit);
    QVERIFY(!isUnchanged(record, edit));
}

void tst_CabinetRecord::newIsNeverUnchanged()
{
    SHwRcvInCabinetInfo record = storedRecord();
    record.md5 = SMD5{};
    QVERIFY(!isUnchanged(record, sameEdit()));
}

void tst_CabinetRecord::everyCellButTheLastCounts()
{
    SHwRcvInCabinetInfo record = storedRecord();
    record.columns = 5;
    record.wiringOrder = {9, 8, 7, 6, 5, 4, 3, 2, 1, 0};
    CabinetEdit edit = sameEdit();
    edit.grid = QSize(5, 2);
    edit.wiring = {9, 8, 7, 6, 5, 4, 3, 2, 1, 0};
    for (int k = 0; k < 10; ++k) {
        CabinetEdit other = edit;
        other.wiring[k] += 10;
        QCOMPARE(isUnchanged(record, other), k == 9);
    }
}

// 0.1 has no exact float: entered again as it was, it still differs from what was stored for it.
void tst_CabinetRecord::typedValueDiffersFromItsFloat()
{
    SHwRcvInCabinetInfo record = storedRecord();
    CabinetEdit edit = sameEdit();
    edit.weight = 0.1;
    record.weight = 0.1F;
    QVERIFY(!isUnchanged(record, edit));
    edit.weight = static_cast<double>(0.1F);
    QVERIFY(isUnchanged(record, edit));
}

void tst_CabinetRecord::fillSetsEveryField()
{
    SHwRcvInCabinetInfo record;
    const CabinetEdit edit{{1, 3}, true, {0, 1, 2}, QStringLiteral("Wall"), 1.5, 2.5, 3.5, 4.5};
    fillRecord(record, QStringLiteral("/library/P2.5.rcvp"), someDigest, edit);
    QCOMPARE(record.name, QStringLiteral("P2.5")); // the file's, not the type's
    QVERIFY(record.md5 == someDigest);
    QCOMPARE(record.specifyOrientation, true);
    QCOMPARE(record.columns, std::uint8_t{1});
    QCOMPARE(record.rows, std::uint8_t{3});
    QVERIFY((record.wiringOrder == Wiring{0, 1, 2}));
    QCOMPARE(record.weight, 1.5F);
    QCOMPARE(record.power, 2.5F);
    QCOMPARE(record.voltageMin, 3.5F);
    QCOMPARE(record.voltageMax, 4.5F);

    fillRecord(record, QStringLiteral("/library/other.rcvbp"), SMD5{}, {{2, 1}, false, {1, 0}, {}, 0, 0, 0, 0});
    QCOMPARE(record.name, QStringLiteral("other"));
    QVERIFY(isNew(record));
    QCOMPARE(record.specifyOrientation, false);
    QCOMPARE(record.columns, std::uint8_t{2});
    QCOMPARE(record.rows, std::uint8_t{1});
    QVERIFY((record.wiringOrder == Wiring{1, 0, 2}));
    QCOMPARE(record.voltageMax, 0.0F);
}

void tst_CabinetRecord::name_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("name");
    QTest::newRow("last suffix goes") << QStringLiteral("/a.b/c.d.rcvp") << QStringLiteral("c.d");
    QTest::newRow("without suffix") << QStringLiteral("/a.b/c") << QStringLiteral("c");
    QTest::newRow("suffix only") << QStringLiteral("/a/.rcvp") << QString();
    QTest::newRow("no folder") << QStringLiteral("c.rcvbp") << QStringLiteral("c");
    QTest::newRow("beyond ASCII") << QStringLiteral("/型号/P3 室内.rcvp") << QStringLiteral("P3 室内");
}

void tst_CabinetRecord::name()
{
    QFETCH(QString, file);
    SHwRcvInCabinetInfo record = storedRecord();
    fillRecord(record, file, someDigest, sameEdit());
    QTEST(record.name, "name");
}

void tst_CabinetRecord::fillKeepsEntriesBeyondTheGrid()
{
    SHwRcvInCabinetInfo record;
    record.wiringOrder = {9, 8, 7, 6, 5, 4, 3, 2, 1, 0};
    fillRecord(record, QStringLiteral("a.rcvp"), someDigest, sameEdit());
    QVERIFY((record.wiringOrder == Wiring{0, 2, 3, 1, 5, 4, 3, 2, 1, 0}));
}

void tst_CabinetRecord::fillNarrows()
{
    SHwRcvInCabinetInfo record;
    CabinetEdit edit = sameEdit();
    edit.weight = 0.1;
    edit.power = 9'999'999'999.0;
    edit.voltageMin = 16'777'217; // the first whole number that a float cannot hold
    edit.voltageMax = 1e-50;
    fillRecord(record, QStringLiteral("a.rcvp"), someDigest, edit);
    QCOMPARE(static_cast<double>(record.weight), 0.100000001490116119384765625);
    QCOMPARE(static_cast<double>(record.power), 10'000'000'000.0);
    QCOMPARE(static_cast<double>(record.voltageMin), 16'777'216.0);
    QVERIFY(record.voltageMax == 0.0F);
}

// Pressing through again changes nothing, given the type is called like its parameter file.
void tst_CabinetRecord::filledRecordIsUnchanged()
{
    SHwRcvInCabinetInfo record;
    fillRecord(record, QStringLiteral("/library/P2.5.rcvp"), someDigest, sameEdit());
    QVERIFY(isUnchanged(record, sameEdit()));
    fillRecord(record, QStringLiteral("/library/source.rcvp"), someDigest, sameEdit());
    QVERIFY(!isUnchanged(record, sameEdit()));
}

// More cells than the record has places for.
void tst_CabinetRecord::damagedRecord()
{
    SHwRcvInCabinetInfo record = storedRecord();
    record.columns = 255;
    record.rows = 255;
    record.wiringOrder.fill(255);
    CabinetEdit edit = sameEdit();
    QVERIFY(!isUnchanged(record, edit));
    edit.grid = QSize(255, 255);
    QVERIFY(!isUnchanged(record, edit));
    edit.wiring.clear();
    for (int id = 0; id < 255 * 255; ++id)
        edit.wiring.append(id);
    fillRecord(record, QStringLiteral("P2.5.rcvp"), someDigest, edit);
    QVERIFY((record.wiringOrder == Wiring{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
    QVERIFY(isUnchanged(record, edit));
}

SETTINGAREA_TEST_MAIN(tst_CabinetRecord, QCoreApplication)
#include "tst_CabinetRecord.moc"
