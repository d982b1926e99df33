#pragma once

#include "plugin/interface/SHwRcvInCabinetInfo.h"

#include <QString>

#include <optional>

class QDataStream;

// The multi-receiver record as a section of a type file's header. [any thread]
namespace CabinetSection {

constexpr int tagSize = 4;
constexpr char tag[] = "MRCV";

// Why the record describes no cabinet; empty when it does: one to ten receivers, wired each once, a digest of 32
// hexadecimal digits or none, weight, power and voltages finite and not negative, the lower voltage not above the
// upper one, a name that fits.
QString problemOf(const SHwRcvInCabinetInfo& info);

// Appends the section of a valid record, tag and length included. The stream is little-endian with floats of single
// precision, as for read().
void write(QDataStream& out, const SHwRcvInCabinetInfo& info);

// Reads the `length` bytes of a section that follow its tag and length; the stream must have them all. Nothing, and
// the reason in `error`, when they hold no valid record.
std::optional<SHwRcvInCabinetInfo> read(QDataStream& in, quint32 length, QString& error);

} // namespace CabinetSection
