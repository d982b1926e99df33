// The input is a type file. It is read as it is, and with the header's size and checksum put right: few inputs would
// get past these.

#include "host/typefile/Crc32.h"
#include "host/typefile/TypeFile.h"
#include "tests/fuzz/Expect.h"

#include <QBuffer>
#include <QtEndian>

#include <cmath>
#include <set>

namespace {

constexpr int sizeOffset = 12;    // of the header's size
constexpr int payloadOffset = 16; // of the payload's size
constexpr int minSize = 68;
constexpr int checksumSize = 4;

void expectLimits(const TypeFileHeader& header)
{
    EXPECT(header.majorVersion == TypeFileHeader::currentMajor);
    EXPECT(header.width > 0 && header.height > 0);
    EXPECT(header.payloadSize <= TypeFileHeader::maxPayloadSize);
    EXPECT(header.cabinetSize().width() >= header.width && header.cabinetSize().height() >= header.height);
    if (!header.cabinet)
        return;
    const SHwRcvInCabinetInfo& cabinet = *header.cabinet;
    const auto cells = std::size_t{cabinet.columns} * cabinet.rows;
    EXPECT(cells >= 1 && cells <= cabinet.wiringOrder.size());
    const std::set<int> wired(cabinet.wiringOrder.begin(), cabinet.wiringOrder.begin() + cells);
    EXPECT(wired.size() == cells && *wired.rbegin() == static_cast<int>(cells) - 1);
    for (const float value : {cabinet.weight, cabinet.power, cabinet.voltageMin, cabinet.voltageMax})
        EXPECT(std::isfinite(value) && value >= 0);
    EXPECT(cabinet.voltageMin <= cabinet.voltageMax);
    EXPECT(cabinet.md5.data[32] == '\0');
}

std::optional<TypeFileHeader> read(QByteArray file)
{
    QBuffer device(&file);
    EXPECT(device.open(QIODevice::ReadOnly));
    QString error;
    const auto header = TypeFile::readHeader(device, error);
    EXPECT(header || !error.isEmpty());
    return header;
}

void readTwice(const QByteArray& file)
{
    const auto header = read(file);
    if (!header)
        return;
    expectLimits(*header);

    // Written anew, with a payload of the same size, it says the same.
    QString error;
    const auto bytes = header->toBytes(error);
    EXPECT(bytes.has_value());
    EXPECT(bytes->size() <= TypeFileHeader::maxSize);
    EXPECT(bytes->size() <= qFromLittleEndian<int>(file.constData() + sizeOffset)); // nothing was read behind it
    const auto again = TypeFileHeader::fromBytes(*bytes, qint64{bytes->size()} + header->payloadSize, error);
    EXPECT(again.has_value());
    EXPECT(again->otherSections == header->otherSections);
    EXPECT(again->cabinet.has_value() == header->cabinet.has_value());
    EXPECT(!header->cabinet || again->cabinet->name == header->cabinet->name);
    EXPECT(again->toBytes(error) == bytes);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    QByteArray file(reinterpret_cast<const char*>(data), static_cast<int>(size));
    readTwice(file);
    if (file.size() < minSize)
        return 0;

    // All of it is header now.
    file.truncate(TypeFileHeader::maxSize);
    qToLittleEndian(static_cast<quint32>(file.size()), file.data() + sizeOffset);
    qToLittleEndian(quint32{0}, file.data() + payloadOffset);
    const int end = file.size() - checksumSize;
    qToLittleEndian(Crc32::of(file.left(end)), file.data() + end);
    readTwice(file);
    return 0;
}
