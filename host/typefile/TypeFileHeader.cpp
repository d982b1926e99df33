#include "host/typefile/TypeFileHeader.h"

#include "host/typefile/CabinetSection.h"
#include "host/typefile/Crc32.h"

#include <QDataStream>
#include <QtEndian>

namespace {

// A byte that is no ASCII, both kinds of line end and the end-of-file character: a transfer as text damages one of
// them, and a terminal that lists the file stops at the last.
constexpr char magic[] = "\x89RCV\r\n\x1A\n";
constexpr int magicSize = sizeof(magic) - 1;
constexpr int sizeOffset = 12; // of the header's size
constexpr int fixedSize = 64;  // bytes before the first section
constexpr int checksumSize = 4;
constexpr int minSize = fixedSize + checksumSize;
constexpr int tagSize = CabinetSection::tagSize;
constexpr int sectionStart = tagSize + 4; // bytes of a section before its content

void setUp(QDataStream& stream)
{
    stream.setVersion(QDataStream::Qt_5_15);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
}

QString problemOf(const TypeFileHeader& header)
{
    if (header.width < 1 || header.height < 1)
        return TypeFileHeader::tr("The cabinet has no pixels: %1 x %2.").arg(header.width).arg(header.height);
    if (header.payloadSize > TypeFileHeader::maxPayloadSize)
        return TypeFileHeader::tr("The payload has %1 bytes; at most %2 are possible.")
            .arg(header.payloadSize)
            .arg(TypeFileHeader::maxPayloadSize);
    return {};
}

QString problemOfVersion(const TypeFileHeader& header)
{
    const QString version = QStringLiteral("%1.%2").arg(header.majorVersion).arg(header.minorVersion);
    if (header.majorVersion > TypeFileHeader::currentMajor)
        return TypeFileHeader::tr("The file was made by a newer program: it has format version %1, and this program "
                                  "reads version %2.")
            .arg(version)
            .arg(TypeFileHeader::currentMajor);
    return TypeFileHeader::tr("There is no format version %1.").arg(version);
}

QString problemOfFileSize(qint64 actual, qint64 expected)
{
    if (actual < expected)
        return TypeFileHeader::tr("The file is cut off: it has %1 of %2 bytes.").arg(actual).arg(expected);
    if (actual > expected)
        return TypeFileHeader::tr("The file has %1 bytes too many.").arg(actual - expected);
    return {};
}

// Reads the sections that stand in `bytes` from the stream's position up to `end`.
QString readSections(QDataStream& in, const QByteArray& bytes, int end, TypeFileHeader& header)
{
    QString error;
    int position = fixedSize;
    while (position < end && error.isEmpty()) {
        QByteArray tag(tagSize, '\0');
        quint32 length = 0;
        in.readRawData(tag.data(), tagSize);
        in >> length;
        const int left = end - position - sectionStart;
        if (left < 0 || length > static_cast<quint32>(left))
            return TypeFileHeader::tr("A section runs over the header's end.");
        if (tag != CabinetSection::tag) {
            header.otherSections += bytes.mid(position, sectionStart + static_cast<int>(length));
            in.skipRawData(static_cast<int>(length));
        } else if (header.cabinet) {
            return TypeFileHeader::tr("There are two multi-receiver records.");
        } else {
            header.cabinet = CabinetSection::read(in, length, error);
        }
        position += sectionStart + static_cast<int>(length);
    }
    return error;
}

} // namespace

bool TypeFileHeader::isMultiReceiver() const
{
    return cabinet && cabinet->columns * cabinet->rows > 1;
}

QSize TypeFileHeader::cabinetSize() const
{
    return cabinet ? QSize(width * cabinet->columns, height * cabinet->rows) : QSize(width, height);
}

std::optional<QByteArray> TypeFileHeader::toBytes(QString& error) const
{
    error = problemOf(*this);
    if (error.isEmpty() && cabinet)
        error = CabinetSection::problemOf(*cabinet);
    if (!error.isEmpty())
        return std::nullopt;

    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    setUp(out);
    out.writeRawData(magic, magicSize);
    out << majorVersion << minorVersion << quint32{0} << payloadSize << payloadChecksum << width << height
        << receiverKind;
    for (const std::int64_t value : block)
        out << static_cast<qint64>(value);
    out.writeRawData(otherSections.constData(), otherSections.size());
    if (cabinet)
        CabinetSection::write(out, *cabinet);
    const int size = bytes.size() + checksumSize;
    if (size > maxSize) {
        error = tr("The header would have %1 bytes; at most %2 are possible.").arg(size).arg(maxSize);
        return std::nullopt;
    }
    qToLittleEndian(static_cast<quint32>(size), bytes.data() + sizeOffset);
    out << Crc32::of(bytes);
    return bytes;
}

std::optional<TypeFileHeader> TypeFileHeader::fromBytes(const QByteArray& start, qint64 fileSize, QString& error)
{
    const auto refuse = [&error](const QString& reason) {
        error = reason;
        return std::nullopt;
    };
    if (!start.startsWith(QByteArray(magic, magicSize).left(start.size())))
        return refuse(tr("This is not a type file."));
    TypeFileHeader header;
    QDataStream in(start);
    setUp(in);
    in.skipRawData(magicSize);
    in >> header.majorVersion >> header.minorVersion;
    // Only what was read so far is the same in every version.
    if (in.status() == QDataStream::Ok && header.majorVersion != currentMajor)
        return refuse(problemOfVersion(header));
    if (start.size() < minSize)
        return refuse(problemOfFileSize(start.size(), minSize));

    quint32 size = 0;
    in >> size >> header.payloadSize >> header.payloadChecksum >> header.width >> header.height >> header.receiverKind;
    for (std::int64_t& value : header.block) {
        qint64 read = 0;
        in >> read;
        value = read;
    }
    if (size < minSize || size > maxSize)
        return refuse(tr("The header's size is %1; %2 to %3 bytes are possible.").arg(size).arg(minSize).arg(maxSize));
    if (static_cast<quint32>(start.size()) < size)
        return refuse(problemOfFileSize(start.size(), size));
    const int end = static_cast<int>(size) - checksumSize;
    if (Crc32::of(start.left(end)) != qFromLittleEndian<quint32>(start.constData() + end))
        return refuse(tr("The header is damaged: its checksum is wrong."));
    QString problem = problemOf(header);
    if (problem.isEmpty())
        problem = problemOfFileSize(fileSize, qint64{size} + header.payloadSize);
    if (problem.isEmpty())
        problem = readSections(in, start, end, header);
    if (!problem.isEmpty())
        return refuse(problem);
    return header;
}
