#pragma once

#include "plugin/interface/SHwRcvInCabinetInfo.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QSize>

#include <array>
#include <cstdint>
#include <optional>

// All that a type file says about its cabinet, apart from the payload for the receiving cards: the header that stands
// before the payload. The byte layout is written down in docs/type-file-format.md. A plain value; the functions touch
// no file and may be called on any thread.
struct TypeFileHeader
{
    Q_DECLARE_TR_FUNCTIONS(TypeFileHeader)

public:
    static constexpr quint16 currentMajor = 1;
    static constexpr quint16 currentMinor = 0;
    static constexpr int maxSize = 4096; // bytes: one read of one block of a disk gives every header
    static constexpr quint32 maxPayloadSize = 256 * 1024 * 1024; // bytes

    // A file of a newer minor version keeps it when it is rewritten, with the sections that came with it.
    quint16 majorVersion = currentMajor;
    quint16 minorVersion = currentMinor;
    quint32 payloadSize = 0;     // bytes
    quint32 payloadChecksum = 0; // CRC-32
    quint16 width = 0;           // pixels that one receiving card drives, 1 .. 65535
    quint16 height = 0;
    quint32 receiverKind = 0; // model number of the receiving card; 0: not given
    // Any values. The sample library puts here: pixel pitch, width and height of a module in micrometres, scan lines.
    std::array<std::int64_t, 4> block{};
    std::optional<SHwRcvInCabinetInfo> cabinet; // only in the type of a multi-receiver cabinet
    QByteArray otherSections;                   // sections this program does not know, as they are

    // Whether more than one receiving card drives the cabinet. A record of 1 x 1 receivers makes no such cabinet.
    bool isMultiReceiver() const;
    // Pixels of the whole cabinet.
    QSize cabinetSize() const;

    // The header's bytes, or nothing and the reason in `error` when a value is out of range.
    std::optional<QByteArray> toBytes(QString& error) const;

    // Reads a header from `start`, the first maxSize bytes (or all) of a file of `fileSize` bytes. `start` may hold
    // anything. Nothing, and the reason in `error`, unless the header is whole and every value in range.
    static std::optional<TypeFileHeader> fromBytes(const QByteArray& start, qint64 fileSize, QString& error);
};
