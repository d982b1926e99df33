#include "host/typefile/Crc32.h"
#include "host/typefile/TypeFileHeader.h"
#include "tests/host/TypeFileFixture.h"
#include "tests/support/TestObject.h"

#include <QtEndian>

#include <random>

// The offsets are those of docs/type-file-format.md, written once more.
namespace {

constexpr int versionOffset = 8;
constexpr int sizeOffset = 12;
constexpr int payloadSizeOffset = 16;
constexpr int widthOffset = 24;
constexpr int sectionsOffset = 64;

template<typename Number>
void put(QByteArray& bytes, int offset, Number number)
{
    qToLittleEndian(number, bytes.data() + offset);
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

} // namespace

class tst_TypeFileHeader : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void checksumIsTheUsualOne();
    void hasTheDocumentedBytes();
    void keepsEveryField();
    void keepsUnknownSectionsAndTheMinorVersion();
    void kindAndSizeOfTheCabinet_data();
    void kindAndSizeOfTheCabinet();

    void refusesEveryCut();
    void refusesEveryFlippedBit();
    void refusesOtherVersions();
    void refusesSizesOutOfRange();
    void refusesSectionsThatDoNotFit();
    void refusesInvalidRecords();
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
}

void tst_TypeFileHeader::refusesInvalidRecords()
{
    TypeFileHeader header = headerWithRecord();
    header.cabinet->columns = 6;
    QString error;
    const QString problem = QStringLiteral("The record has 6 x 2 receivers; 1 to 10 are possible.");
    QVERIFY(!header.toBytes(error));
    QCOMPARE(error, problem);
    QByteArray bytes = bytesOf(headerWithRecord());
    bytes[sectionsOffset + 8 + 48] = 6;
    QCOMPARE(problemOf(sealed(bytes)), problem);
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
