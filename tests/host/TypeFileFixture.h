#pragma once

#include "host/typefile/TypeFileHeader.h"

#include <cstring>
#include <tuple>

// A record and a header in which no two fields have the same value, and their comparison.

inline SHwRcvInCabinetInfo sampleRecord()
{
    SHwRcvInCabinetInfo record;
    record.name = QStringLiteral("舞台屏-P4");
    std::strcpy(record.md5.data, "0123456789abcdef0123456789ABCDEF");
    record.specifyOrientation = true;
    record.columns = 3;
    record.rows = 2;
    record.wiringOrder = {5, 4, 3, 2, 1, 0, 90, 91, 92, 255};
    record.weight = 12.5F;
    record.power = 350;
    record.voltageMin = 100.25F;
    record.voltageMax = 240;
    return record;
}

inline TypeFileHeader sampleHeader()
{
    TypeFileHeader header;
    header.payloadSize = 5;
    header.payloadChecksum = 0xAABBCCDD;
    header.width = 0x0180;
    header.height = 0x0040;
    header.receiverKind = 0x01020304;
    header.block = {1, -2, INT64_MAX, INT64_MIN};
    return header;
}

inline auto fieldsOf(const SHwRcvInCabinetInfo& record)
{
    return std::make_tuple(record.name, QByteArray(record.md5.data, sizeof record.md5.data), record.specifyOrientation,
                           record.columns, record.rows, record.wiringOrder, record.weight, record.power,
                           record.voltageMin, record.voltageMax);
}

inline bool operator==(const SHwRcvInCabinetInfo& a, const SHwRcvInCabinetInfo& b)
{
    return fieldsOf(a) == fieldsOf(b);
}

inline auto fieldsOf(const TypeFileHeader& header)
{
    return std::make_tuple(header.majorVersion, header.minorVersion, header.payloadSize, header.payloadChecksum,
                           header.width, header.height, header.receiverKind, header.block, header.cabinet,
                           header.otherSections);
}

inline bool operator==(const TypeFileHeader& a, const TypeFileHeader& b)
{
    return fieldsOf(a) == fieldsOf(b);
}
