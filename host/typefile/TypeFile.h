#pragma once

#include "host/typefile/TypeFileHeader.h"

#include <QString>

#include <optional>

class QIODevice;

// Type files on the disk: a header and the payload for the receiving cards, which this program only carries. Files are
// written so that a reader finds the old content or the new one, whole. Of a link the file it leads to is meant.
// `error` gets the reason for a failure, without the path, for the user. Reentrant. [any thread]
namespace TypeFile {

// Reads the header only. Never waits for a FIFO or a device, and needs one block of memory whatever the file holds.
std::optional<TypeFileHeader> readHeader(const QString& path, QString& error);
// The same from a device at its start that knows its size.
std::optional<TypeFileHeader> readHeader(QIODevice& device, QString& error);

// Reads the payload too, and compares its checksum.
bool verify(const QString& path, QString& error);

// Writes a whole file; the payload's size and checksum in `header` need not be set.
bool write(const QString& path, TypeFileHeader header, const QByteArray& payload, QString& error);

// Puts the record into the existing file; payload, other sections and permissions stay. An invalid record is refused.
bool writeCabinet(const QString& path, const SHwRcvInCabinetInfo& info, QString& error);

} // namespace TypeFile
