#include "host/typefile/CabinetSection.h"
#include "tests/host/TypeFileFixture.h"
#include "tests/support/TestObject.h"

#include <QDataStream>
#include <QtEndian>

#include <cmath>
#include <functional>
#include <limits>

Q_DECLARE_METATYPE(std::function<void(SHwRcvInCabinetInfo&)>)

// The offsets are those of docs/type-file-format.md, written once more.
namespace {

constexpr int contentOffset = 8; // after tag and length
constexpr int digestOffset = contentOffset + 16;
constexpr int columnsOffset = contentOffset + 48;
constexpr int wiringOffset = contentOffset + 50;
constexpr int orientationOffset = contentOffset + 60;
constexpr int nameOffset = contentOffset + 61;

void setUp(QDataStream& stream)
{
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
}

void putFloat(QByteArray& bytes, int offset, float number)
{
    quint32 bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    qToLittleEndian(bits, bytes.data() + offset);
}

// The whole section.
QByteArray bytesOf(const SHwRcvInCabinetInfo& record)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    setUp(out);
    CabinetSection::write(out, record);
    return bytes;
}

std::optional<SHwRcvInCabinetInfo> read(const QByteArray& section, QString& error)
{
    QDataStream in(section);
    setUp(in);
    in.skipRawData(contentOffset);
    return CabinetSection::read(in, static_cast<quint32>(section.size() - contentOffset), error);
}

// Why the section is refused; empty when it is not.
QString problemOfBytes(const QByteArray& section)
{
    QString error;
    return read(section, error) ? QString() : error;
}

} // namespace

class tst_CabinetSection : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void hasTheDocumentedBytes();
    void keepsEveryField();
    void refusesInvalidRecords_data();
    void refusesInvalidRecords();
    void refusesBrokenBytes();
    void refusesOtherLengths();
};

void tst_CabinetSection::hasTheDocumentedBytes()
{
    const QByteArray expected = QByteArray("MRCV") +
                                QByteArray::fromHex("49000000" // 73 bytes
                                                    "00004841"
                                                    "0000AF43"
                                                    "0080C842"
                                                    "00007043") +
                                "0123456789abcdef0123456789ABCDEF" +
                                QByteArray::fromHex("0302"
                                                    "050403020100"
                                                    "5A5B5CFF"
                                                    "01") +
                                QStringLiteral("舞台屏-P4").toUtf8();
    QCOMPARE(bytesOf(sampleRecord()).toHex(), expected.toHex());
}

void tst_CabinetSection::keepsEveryField()
{
    SHwRcvInCabinetInfo other = sampleRecord();
    other.md5 = SMD5{};
    other.name.clear();
    other.specifyOrientation = false;
    other.weight = other.power = other.voltageMin = other.voltageMax = 9999999999.0F;
    for (const SHwRcvInCabinetInfo& record : {sampleRecord(), other}) {
        QString error;
        QVERIFY(read(bytesOf(record), error) == record);
    }
}

void tst_CabinetSection::refusesInvalidRecords_data()
{
    using Record = SHwRcvInCabinetInfo;
    QTest::addColumn<std::function<void(Record&)>>("spoil");
    QTest::addColumn<QString>("problem");
    const auto row = [](const char* name, const std::function<void(Record&)>& spoil, const QString& problem) {
        QTest::newRow(name) << spoil << problem;
    };
    const QString none;
    const QString receivers = QStringLiteral("The record has %1 x %2 receivers; 1 to 10 are possible.");
    row(
        "as it is", [](Record&) {}, none);
    row(
        "no columns", [](Record& r) { r.columns = 0; }, receivers.arg(0).arg(2));
    row(
        "no rows", [](Record& r) { r.rows = 0; }, receivers.arg(3).arg(0));
    row(
        "eleven", [](Record& r) { r.columns = 11, r.rows = 1; }, receivers.arg(11).arg(1));
    row(
        "256", [](Record& r) { r.columns = r.rows = 16; }, receivers.arg(16).arg(16));
    row(
        "most", [](Record& r) { r.columns = r.rows = 255; }, receivers.arg(255).arg(255));
    const QString wiring = QStringLiteral("The record's wiring does not pass through every receiver once.");
    row(
        "cell twice", [](Record& r) { r.wiringOrder[0] = 0; }, wiring);
    row(
        "no such cell", [](Record& r) { r.wiringOrder[0] = 6; }, wiring);
    row(
        "far cell", [](Record& r) { r.wiringOrder[0] = 37; }, wiring); // 5 more than a word has bits
    row(
        "other entries", [](Record& r) { r.wiringOrder[6] = 0; }, none);
    const QString digest = QStringLiteral("The record's digest is not made of hexadecimal digits.");
    row(
        "half a digest", [](Record& r) { r.md5.data[31] = '\0'; }, digest);
    row(
        "other digits", [](Record& r) { r.md5.data[0] = 'g'; }, digest);
    row(
        "empty digest", [](Record& r) { r.md5 = SMD5{}; }, none);
    const QString label = QStringLiteral("The record's weight, power or voltage is negative or not a number.");
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    constexpr float infinity = std::numeric_limits<float>::infinity();
    row(
        "weight nan", [](Record& r) { r.weight = nan; }, label);
    row(
        "weight negative", [](Record& r) { r.weight = -0.01F; }, label);
    row(
        "power infinite", [](Record& r) { r.power = infinity; }, label);
    row(
        "power nan", [](Record& r) { r.power = nan; }, label);
    row(
        "lower voltage nan", [](Record& r) { r.voltageMin = nan; }, label);
    row(
        "upper voltage infinite", [](Record& r) { r.voltageMax = infinity; }, label);
    row(
        "all zero", [](Record& r) { r.weight = r.power = r.voltageMin = r.voltageMax = 0; }, none);
    row(
        "equal voltages", [](Record& r) { r.voltageMin = r.voltageMax; }, none);
    row(
        "voltages in reverse", [](Record& r) { r.voltageMin = std::nextafter(240.0F, 241.0F); },
        QStringLiteral("The record's lower voltage limit is above the upper one."));
    row(
        "longest name", [](Record& r) { r.name = QString(256, QChar(u'屏')) + QString(256, QLatin1Char('a')); }, none);
    row(
        "name too long", [](Record& r) { r.name = QString(1025, QLatin1Char('a')); },
        QStringLiteral("The record's name is too long."));
}

void tst_CabinetSection::refusesInvalidRecords()
{
    using Spoil = std::function<void(SHwRcvInCabinetInfo&)>;
    QFETCH(Spoil, spoil);
    SHwRcvInCabinetInfo record = sampleRecord();
    spoil(record);
    QTEST(CabinetSection::problemOf(record), "problem");
}

// What nobody writes, a hostile file holds all the same.
void tst_CabinetSection::refusesBrokenBytes()
{
    const QByteArray valid = bytesOf(sampleRecord());
    const auto problemWith = [&valid](const std::function<void(QByteArray&)>& spoil) {
        QByteArray bytes = valid;
        spoil(bytes);
        return problemOfBytes(bytes);
    };
    QCOMPARE(problemWith([](QByteArray&) {}), QString());
    QCOMPARE(problemWith([](QByteArray& b) { b[columnsOffset] = 6; }),
             QStringLiteral("The record has 6 x 2 receivers; 1 to 10 are possible."));
    QCOMPARE(problemWith([](QByteArray& b) { b[wiringOffset] = 4; }),
             QStringLiteral("The record's wiring does not pass through every receiver once."));
    QCOMPARE(problemWith([](QByteArray& b) { b[digestOffset + 5] = ' '; }),
             QStringLiteral("The record's digest is not made of hexadecimal digits."));
    QCOMPARE(problemWith([](QByteArray& b) { putFloat(b, contentOffset, std::numeric_limits<float>::quiet_NaN()); }),
             QStringLiteral("The record's weight, power or voltage is negative or not a number."));
    QCOMPARE(problemWith([](QByteArray& b) { putFloat(b, contentOffset + 8, 240.5F); }),
             QStringLiteral("The record's lower voltage limit is above the upper one."));
    QCOMPARE(problemWith([](QByteArray& b) { b[orientationOffset] = 2; }),
             QStringLiteral("The record's orientation is neither yes nor no."));
    QCOMPARE(problemWith([](QByteArray& b) { b[nameOffset] = '\xFF'; }),
             QStringLiteral("The record's name is not UTF-8."));
    QCOMPARE(problemWith([](QByteArray& b) { b[b.size() - 1] = '\xE5'; }), // begins a character that does not follow
             QStringLiteral("The record's name is not UTF-8."));
}

void tst_CabinetSection::refusesOtherLengths()
{
    const QString problem = QStringLiteral("The record is %1 bytes long; 61 to 1085 are possible.");
    const QByteArray section = bytesOf(sampleRecord()).left(nameOffset);
    QCOMPARE(problemOfBytes(section), QString());
    QCOMPARE(problemOfBytes(section.left(contentOffset)), problem.arg(0));
    QCOMPARE(problemOfBytes(section.left(nameOffset - 1)), problem.arg(60));
    QCOMPARE(problemOfBytes(section + QByteArray(1024, 'n')), QString());
    QCOMPARE(problemOfBytes(section + QByteArray(1025, 'n')), problem.arg(1086));
}

SETTINGAREA_TEST_MAIN(tst_CabinetSection, QCoreApplication)
#include "tst_CabinetSection.moc"
