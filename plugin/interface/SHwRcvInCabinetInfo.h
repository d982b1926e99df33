#pragma once

#include <utilbase/SMD5.h>

#include <QString>

#include <array>
#include <cstdint>

// A multi-receiver cabinet: one cabinet driven by several receiving cards of the same kind, wired in a grid.
// The host stores it inside the type file. A record with an empty digest is new.
struct SHwRcvInCabinetInfo
{
    QString name;                    // complete base name of the receiving-card parameter file it is built from
    SMD5 md5;                        // digest of that file
    bool specifyOrientation = false; // the wiring was made with orientation
    std::uint8_t columns = 0;        // receivers side by side; columns * rows is at most 10
    std::uint8_t rows = 0;           // receivers one above the other
    // Entry k is the cell id of the k-th receiver in signal order; the first columns * rows entries count.
    // Cell ids run down each column first: id = column * rows + row.
    std::array<std::uint8_t, 10> wiringOrder{};
    float weight = 0;     // kilograms
    float power = 0;      // watts
    float voltageMin = 0; // volts
    float voltageMax = 0; // volts, not below voltageMin
};
