#include "host/typefile/TypeFile.h"

#include "host/files/SafeFile.h"
#include "host/typefile/Crc32.h"

#include <QFile>

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(TypeFile)
};

// Opens the file and leaves it at the start of the payload.
std::optional<TypeFileHeader> openAtPayload(QFile& file, const QString& path, QString& error)
{
    if (!SafeFile::openForReading(file, path, error))
        return std::nullopt;
    const auto header = TypeFile::readHeader(file, error);
    if (header && !file.seek(file.size() - header->payloadSize)) {
        error = file.errorString();
        return std::nullopt;
    }
    return header;
}

} // namespace

std::optional<TypeFileHeader> TypeFile::readHeader(const QString& path, QString& error)
{
    QFile file;
    return SafeFile::openForReading(file, path, error) ? readHeader(file, error) : std::nullopt;
}

std::optional<TypeFileHeader> TypeFile::readHeader(QIODevice& device, QString& error)
{
    const qint64 fileSize = device.size();
    QByteArray start(static_cast<int>(qMin<qint64>(fileSize, TypeFileHeader::maxSize)), Qt::Uninitialized);
    const qint64 size = device.read(start.data(), start.size());
    if (size < 0) {
        error = device.errorString();
        return std::nullopt;
    }
    start.truncate(static_cast<int>(size));
    return TypeFileHeader::fromBytes(start, fileSize, error);
}

bool TypeFile::verify(const QString& path, QString& error)
{
    QFile file;
    const auto header = openAtPayload(file, path, error);
    if (!header)
        return false;
    Crc32 checksum;
    constexpr qint64 blockSize = 64 * 1024;
    while (!file.atEnd()) {
        const QByteArray block = file.read(blockSize);
        if (block.isEmpty())
            break;
        checksum.add(block);
    }
    if (checksum.value() != header->payloadChecksum) {
        error = Text::tr("The payload is damaged: its checksum is wrong.");
        return false;
    }
    return true;
}

bool TypeFile::write(const QString& path, TypeFileHeader header, const QByteArray& payload, QString& error)
{
    header.payloadSize = static_cast<quint32>(payload.size());
    header.payloadChecksum = Crc32::of(payload);
    const auto bytes = header.toBytes(error);
    const auto writeAll = [&](QIODevice& device, QString& reason) {
        return SafeFile::write(device, *bytes, reason) && SafeFile::write(device, payload, reason);
    };
    return bytes && SafeFile::replace(path, writeAll, error);
}

bool TypeFile::writeCabinet(const QString& path, const SHwRcvInCabinetInfo& info, QString& error)
{
    QFile file;
    auto header = openAtPayload(file, path, error);
    if (!header)
        return false;
    header->cabinet = info;
    const auto bytes = header->toBytes(error);
    const auto writeAll = [&](QIODevice& device, QString& reason) {
        if (!SafeFile::write(device, *bytes, reason) || !SafeFile::copy(file, device, reason))
            return false;
        const bool complete = device.pos() == bytes->size() + qint64{header->payloadSize};
        if (!complete)
            reason = Text::tr("The file has changed while it was being read.");
        return complete;
    };
    return bytes && SafeFile::replace(path, writeAll, error);
}
