#include "host/typefile/CabinetSection.h"
#include "host/typefile/Crc32.h"
#include "host/typefile/TypeFileHeader.h"
#include "tests/host/TypeFileFixture.h"
#include "tests/support/TestObject.h"

#include <QtEndian>

#include <cmath>
#include <functional>
#include <limits>
#include <random>

Q_DECLARE_METATYPE(std::function<void(SHwRcvInCabinetInfo&)>)

// The offsets are those of docs/type-file-format.md, written once more.
namespace {

constexpr int versionOffset = 8;
constexpr int sizeOffset = 12;
constexpr int payloadSizeOffset = 16;
constexpr int widthOffset = 24;
constexpr int sectionsOffset = 64;
constexpr int recordOffset = sectionsOffset + 8; // when the record is the first section
constexpr int digestOffset = recordOffset + 16;
constexpr int columnsOffset = recordOffset + 48;
constexpr int wiringOffset = recordOffset + 50;
constexpr int orientationOffset = recordOffset + 60;
constexpr int nameOffset = recordOffset + 61;

template<typename Number>
void put(QByteArray& bytes, int offset, Number number)
{
    qToLittleEndian(number, bytes.data() + offset);
}

void putFloat(QByteArray& bytes, int offset, float number)
{
    quint32 bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    put(bytes, offset, bits);
}

// Makes the header's checksum right again.
QByteArray sealed(QByteArray header)
{
    const int end = header.size() - 4;
    put(header, end, Crc32::of(header.left(end)));
    return header;
}

// Puts `sections` in the place of the header's.
QByteArray withSections(const QByteArray& header, const QByteArray& sections)
{
    QByteArray bytes = header.left(sectionsOffset) + sections + QByteArray(4, '\0');
    put(bytes, sizeOffset, static_cast<quint32>(bytes.size()));
    return sealed(bytes);
}

QByteArray section(const char* tag, const QByteArray& content)
{
    QByteArray bytes = QByteArray(tag) + QByteArray(4, '\0') + content;
    put(bytes, 4, static_cast<quint32>(content.size()));
    return bytes;
}

QByteArray bytesOf(const TypeFileHeader& header)
{
    QString error;
    return header.toBytes(error).value_or(error.toUtf8());
}

TypeFileHeader headerWithRecord()
{
    TypeFileHeader header = sampleHeader();
    header.cabinet = sampleRecord();
    return header;
}

// Why the header that starts a file with a payload of five bytes is refused; empty when it is not.
QString problemOf(const QByteArray& header)
{
    QString error;
    const auto read = TypeFileHeader::fromBytes(header, header.size() + 5, error);
    return read ? QString() : error;
}

QString problemOfRecord(const SHwRcvInCabinetInfo& record)
{
    TypeFileHeader header = sampleHeader();
    header.cabinet = record;
    QString error;
    return header.toBytes(error) ? QString() : error;
}

} // namespace

class tst_TypeFileHeader : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void checksumIsTheUsualOne();
    void hasTheDocumentedBytes();
    void hasTheDocumentedRecordBytes();
    void keepsEveryField();
    void keepsUnknownSectionsAndTheMinorVersion();
    void kindAndSizeOfTheCabinet_data();
    void kindAndSizeOfTheCabinet();

    void refusesEveryCut();
    void refusesEveryFlippedBit();
    void refusesOtherVersions();
    void refusesSizesOutOfRange();
    void refusesSectionsThatDoNotFit();
    void refusesInvalidRecords_data();
    void refusesInvalidRecords();
    void refusesBrokenRecordBytes();
    void writesNoHeaderThatIsTooLong();
    void survivesRandomBytes();
    void survivesBytesWithRightChecksums();
};

void tst_TypeFileHeader::checksumIsTheUsualOne()
{
    QCOMPARE(Crc32::of("123456789"), 0xCBF43926U);
    QCOMPARE(Crc32::of(QByteArray()), 0U);
    Crc32 inBlocks;
    inBlocks.add("1234");
    inBlocks.add("56789");
    QCOMPARE(inBlocks.value(), 0xCBF43926U);
}

void tst_TypeFileHeader::hasTheDocumentedBytes()
{
    const QByteArray expected = QByteArray::fromHex("895243560D0A1A0A" // magic
                                                    "0100"
                                                    "0000" // version
                                                    "44000000"
                                                    "05000000"
                                                    "DDCCBBAA" // sizes, payload's checksum
                                                    "8001"
                                                    "4000"
                                                    "04030201" // width, height, model
                                                    "0100000000000000"
                                                    "FEFFFFFFFFFFFFFF"
                                                    "FFFFFFFFFFFFFF7F"
                                                    "0000000000000080");
    const QByteArray bytes = bytesOf(sampleHeader());
    QCOMPARE(bytes.left(64).toHex(), expected.toHex());
    QCOMPARE(bytes.size(), 68);
    QCOMPARE(qFromLittleEndian<quint32>(bytes.constData() + 64), Crc32::of(expected));
}

void tst_TypeFileHeader::hasTheDocumentedRecordBytes()
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
    const QByteArray bytes = bytesOf(headerWithRecord());
    QCOMPARE(bytes.mid(64, 81).toHex(), expected.toHex());
    QCOMPARE(bytes.size(), 64 + 81 + 4);
}

void tst_TypeFileHeader::keepsEveryField()
{
    SHwRcvInCabinetInfo noDigest = sampleRecord();
    noDigest.md5 = SMD5{};
    noDigest.name.clear();
    noDigest.specifyOrientation = false;
    noDigest.weight = noDigest.power = noDigest.voltageMin = noDigest.voltageMax = 9999999999.0F;
    for (const auto& record : {std::optional<SHwRcvInCabinetInfo>(), {sampleRecord()}, {noDigest}}) {
        TypeFileHeader header = sampleHeader();
        header.cabinet = record;
        const QByteArray bytes = bytesOf(header);
        QString error;
        const auto read = TypeFileHeader::fromBytes(bytes, bytes.size() + 5, error);
        QVERIFY2(read, qPrintable(error));
        QVERIFY(*read == header);
    }
}

void tst_TypeFileHeader::keepsUnknownSectionsAndTheMinorVersion()
{
    const QByteArray record = bytesOf(headerWithRecord()).mid(sectionsOffset, 81);
    const QByteArray first = section("ABCD", "some content");
    const QByteArray second = section("EFGH", QByteArray());
    QByteArray bytes = withSections(bytesOf(sampleHeader()), first + record + second);
    put(bytes, versionOffset + 2, quint16{7});
    bytes = sealed(bytes);
    QString error;
    const auto read = TypeFileHeader::fromBytes(bytes, bytes.size() + 5, error);
    QVERIFY2(read, qPrintable(error));
    TypeFileHeader expected = headerWithRecord();
    expected.minorVersion = 7;
    expected.otherSections = first + second;
    QVERIFY(*read == expected);

    const QByteArray rewritten = bytesOf(*read);
    QCOMPARE(rewritten.size(), bytes.size());
    QVERIFY(TypeFileHeader::fromBytes(rewritten, rewritten.size() + 5, error) == expected);
}

void tst_TypeFileHeader::kindAndSizeOfTheCabinet_data()
{
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("rows");
    QTest::addColumn<bool>("multi");
    QTest::addColumn<QSize>("size");
    QTest::newRow("no record") << 0 << 0 << false << QSize(384, 64);
    QTest::newRow("1 x 1") << 1 << 1 << false << QSize(384, 64);
    QTest::newRow("2 x 1") << 2 << 1 << true << QSize(768, 64);
    QTest::newRow("1 x 10") << 1 << 10 << true << QSize(384, 640);
}

void tst_TypeFileHeader::kindAndSizeOfTheCabinet()
{
    QFETCH(int, columns);
    QFETCH(int, rows);
    TypeFileHeader header = sampleHeader();
    if (columns > 0) {
        header.cabinet = sampleRecord();
        header.cabinet->columns = static_cast<std::uint8_t>(columns);
        header.cabinet->rows = static_cast<std::uint8_t>(rows);
    }
    QTEST(header.isMultiReceiver(), "multi");
    QTEST(header.cabinetSize(), "size");
}

void tst_TypeFileHeader::refusesEveryCut()
{
    const QByteArray header = bytesOf(headerWithRecord());
    const int whole = header.size() + 5;
    for (int size = 0; size < whole; ++size) {
        const int expected = size < 68 ? 68 : size < header.size() ? header.size() : whole;
        QString error;
        QVERIFY(!TypeFileHeader::fromBytes(header.left(size), size, error));
        QCOMPARE(error, QStringLiteral("The file is cut off: it has %1 of %2 bytes.").arg(size).arg(expected));
    }
    QString error;
    QVERIFY(TypeFileHeader::fromBytes(header, whole, error));
    QVERIFY(!TypeFileHeader::fromBytes(header, whole + 3, error));
    QCOMPARE(error, QStringLiteral("The file has 3 bytes too many."));
}

void tst_TypeFileHeader::refusesEveryFlippedBit()
{
    const QByteArray header = bytesOf(headerWithRecord());
    QMap<QString, int> problems;
    for (int bit = 0; bit < header.size() * 8; ++bit) {
        QByteArray flipped = header;
        flipped[bit / 8] = static_cast<char>(flipped.at(bit / 8) ^ (1 << bit % 8));
        const QString problem = problemOf(flipped);
        QVERIFY2(!problem.isEmpty(), qPrintable(QString::number(bit)));
        ++problems[problem.section(QLatin1Char(' '), 0, 3)];
    }
    QCOMPARE(problems.value(QStringLiteral("This is not a")), 64);
    QCOMPARE(problems.value(QStringLiteral("The file was made")), 15);
    QCOMPARE(problems.value(QStringLiteral("There is no format")), 1);
    // The header's size is the only other field that is looked at before the checksum.
    const int checksums = problems.value(QStringLiteral("The header is damaged:"));
    QVERIFY(checksums >= header.size() * 8 - 64 - 16 - 32);
}

void tst_TypeFileHeader::refusesOtherVersions()
{
    QByteArray bytes = bytesOf(sampleHeader());
    put(bytes, versionOffset, quint16{2});
    put(bytes, versionOffset + 2, quint16{5});
    const QString newer = QStringLiteral("The file was made by a newer program: it has format version 2.5, and this "
                                         "program reads version 1.");
    QCOMPARE(problemOf(sealed(bytes)), newer);
    // Nothing behind the version needs to be as it is today.
    QCOMPARE(problemOf(bytes.left(12)), newer);
    QCOMPARE(problemOf(bytes.left(12) + QByteArray(100, '\xFF')), newer);
    put(bytes, versionOffset, quint16{0});
    QCOMPARE(problemOf(sealed(bytes)), QStringLiteral("There is no format version 0.5."));
}

void tst_TypeFileHeader::refusesSizesOutOfRange()
{
    const QByteArray valid = bytesOf(sampleHeader());
    for (const quint32 size : {0U, 67U, 4097U, 0x80000000U, 0xFFFFFFFFU}) {
        QByteArray bytes = valid;
        put(bytes, sizeOffset, size);
        QCOMPARE(problemOf(bytes), QStringLiteral("The header's size is %1; 68 to 4096 bytes are possible.").arg(size));
    }
    QByteArray bytes = valid;
    put(bytes, payloadSizeOffset, 0x10000001U);
    QCOMPARE(problemOf(sealed(bytes)),
             QStringLiteral("The payload has 268435457 bytes; at most 268435456 are possible."));
    put(bytes, payloadSizeOffset, 0x10000000U);
    QCOMPARE(problemOf(sealed(bytes)), QStringLiteral("The file is cut off: it has 73 of 268435524 bytes."));
    QString error;
    QVERIFY(TypeFileHeader::fromBytes(sealed(bytes), 268435524, error));

    bytes = valid;
    put(bytes, widthOffset, quint16{0});
    QCOMPARE(problemOf(sealed(bytes)), QStringLiteral("The cabinet has no pixels: 0 x 64."));
    bytes = valid;
    put(bytes, widthOffset + 2, quint16{0});
    QCOMPARE(problemOf(sealed(bytes)), QStringLiteral("The cabinet has no pixels: 384 x 0."));
    TypeFileHeader header;
    QVERIFY(!header.toBytes(error));
    QCOMPARE(error, QStringLiteral("The cabinet has no pixels: 0 x 0."));
}

void tst_TypeFileHeader::refusesSectionsThatDoNotFit()
{
    const QByteArray valid = bytesOf(sampleHeader());
    const QString over = QStringLiteral("A section runs over the header's end.");
    QCOMPARE(problemOf(withSections(valid, "ABC")), over);
    QCOMPARE(problemOf(withSections(valid, QByteArray("ABCD\0\0\0", 7))), over);
    for (const quint32 length : {4U, 7U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        QByteArray sections = section("ABCD", "abc");
        put(sections, 4, length);
        QCOMPARE(problemOf(withSections(valid, sections)), over);
    }
    QCOMPARE(problemOf(withSections(valid, section("ABCD", "abc"))), QString());

    const QByteArray record = bytesOf(headerWithRecord()).mid(sectionsOffset, 81);
    QCOMPARE(problemOf(withSections(valid, record + record)), QStringLiteral("There are two multi-receiver records."));
    const QString length = QStringLiteral("The record is %1 bytes long; 61 to 1085 are possible.");
    QCOMPARE(problemOf(withSections(valid, section("MRCV", QByteArray(60, '\0')))), length.arg(60));
    QCOMPARE(problemOf(withSections(valid, section("MRCV", QByteArray(1086, '\0')))), length.arg(1086));
}

void tst_TypeFileHeader::refusesInvalidRecords_data()
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

void tst_TypeFileHeader::refusesInvalidRecords()
{
    using Spoil = std::function<void(SHwRcvInCabinetInfo&)>;
    QFETCH(Spoil, spoil);
    SHwRcvInCabinetInfo record = sampleRecord();
    spoil(record);
    QTEST(problemOfRecord(record), "problem");
}

// What toBytes() refuses to write, a hostile file holds all the same.
void tst_TypeFileHeader::refusesBrokenRecordBytes()
{
    const QByteArray valid = bytesOf(headerWithRecord());
    const auto problemWith = [&valid](const std::function<void(QByteArray&)>& spoil) {
        QByteArray bytes = valid;
        spoil(bytes);
        return problemOf(sealed(bytes));
    };
    QCOMPARE(problemWith([](QByteArray&) {}), QString());
    QCOMPARE(problemWith([](QByteArray& b) { b[columnsOffset] = 6; }),
             QStringLiteral("The record has 6 x 2 receivers; 1 to 10 are possible."));
    QCOMPARE(problemWith([](QByteArray& b) { b[wiringOffset] = 4; }),
             QStringLiteral("The record's wiring does not pass through every receiver once."));
    QCOMPARE(problemWith([](QByteArray& b) { b[digestOffset + 5] = ' '; }),
             QStringLiteral("The record's digest is not made of hexadecimal digits."));
    QCOMPARE(problemWith([](QByteArray& b) { putFloat(b, recordOffset, std::numeric_limits<float>::quiet_NaN()); }),
             QStringLiteral("The record's weight, power or voltage is negative or not a number."));
    QCOMPARE(problemWith([](QByteArray& b) { putFloat(b, recordOffset + 8, 240.5F); }),
             QStringLiteral("The record's lower voltage limit is above the upper one."));
    QCOMPARE(problemWith([](QByteArray& b) { b[orientationOffset] = 2; }),
             QStringLiteral("The record's orientation is neither yes nor no."));
    QCOMPARE(problemWith([](QByteArray& b) { b[nameOffset] = '\xFF'; }),
             QStringLiteral("The record's name is not UTF-8."));
    QCOMPARE(problemWith([](QByteArray& b) { b[b.size() - 5] = '\xE5'; }), // begins a character that does not follow
             QStringLiteral("The record's name is not UTF-8."));
}

void tst_TypeFileHeader::writesNoHeaderThatIsTooLong()
{
    TypeFileHeader header = sampleHeader();
    header.otherSections = section("ABCD", QByteArray(4096 - 68 - 8, 'x'));
    QString error;
    QCOMPARE(bytesOf(header).size(), 4096);
    QVERIFY(TypeFileHeader::fromBytes(bytesOf(header), 4096 + 5, error) == header);
    header.otherSections = section("ABCD", QByteArray(4096 - 68 - 7, 'x'));
    QVERIFY(!header.toBytes(error));
    QCOMPARE(error, QStringLiteral("The header would have 4097 bytes; at most 4096 are possible."));
}

void tst_TypeFileHeader::survivesRandomBytes()
{
    std::mt19937 random(20240501);
    const QByteArray start = bytesOf(sampleHeader()).left(sizeOffset);
    int refused = 0;
    for (int run = 0; run < 100000; ++run) {
        QByteArray bytes = run % 2 == 0 ? QByteArray() : start;
        const auto length = static_cast<int>(random() % 200);
        for (int i = 0; i < length; ++i)
            bytes.append(static_cast<char>(random() >> 24));
        QString error;
        if (!TypeFileHeader::fromBytes(bytes, bytes.size(), error)) {
            QVERIFY(!error.isEmpty());
            ++refused;
        }
    }
    QCOMPARE(refused, 100000);
}

// With the checksum out of the way, a header is read or refused on its values alone: what is read can be written again
// and is then read as the same.
void tst_TypeFileHeader::survivesBytesWithRightChecksums()
{
    std::mt19937 random(20240502);
    TypeFileHeader header = headerWithRecord();
    header.otherSections = section("ABCD", "abcdefgh");
    const QByteArray valid = bytesOf(header);
    int read = 0;
    for (int run = 0; run < 100000; ++run) {
        QByteArray bytes = valid;
        for (auto changes = random() % 4; changes > 0; --changes) {
            const auto places = static_cast<unsigned>(bytes.size() - versionOffset);
            const auto offset = versionOffset + static_cast<int>(random() % places);
            bytes[offset] = static_cast<char>(random() >> 24);
        }
        bytes = sealed(bytes);
        QString error;
        const auto result = TypeFileHeader::fromBytes(bytes, bytes.size() + 5, error);
        if (!result) {
            QVERIFY(!error.isEmpty());
            continue;
        }
        ++read;
        const QByteArray rewritten = bytesOf(*result);
        QVERIFY(TypeFileHeader::fromBytes(rewritten, rewritten.size() + 5, error) == result);
    }
    QVERIFY(read > 25000);
    QVERIFY(read < 90000);
}

SETTINGAREA_TEST_MAIN(tst_TypeFileHeader, QCoreApplication)
#include "tst_TypeFileHeader.moc"
