#include "multircv/CabinetRecord.h"

#include "typelibrary/store/Md5.h"

#include <QFileInfo>

#include <algorithm>

namespace {

// Cells that both the grid and the record have room for.
int cellCount(const QSize& grid, const SHwRcvInCabinetInfo& record)
{
    return std::min(grid.width() * grid.height(), static_cast<int>(record.wiringOrder.size()));
}

} // namespace

bool isNew(const SHwRcvInCabinetInfo& record)
{
    return isEmpty(record.md5);
}

bool isUnchanged(const SHwRcvInCabinetInfo& record, const CabinetEdit& edit)
{
    if (isNew(record) || QSize(record.columns, record.rows) != edit.grid || record.name != edit.typeName)
        return false;
    for (int k = 0; k < cellCount(edit.grid, record) - 1; ++k) {
        if (k >= edit.wiring.size() || record.wiringOrder[static_cast<std::size_t>(k)] != edit.wiring.at(k))
            return false;
    }
    // Widened to double: 0.1 as it was typed is not the float that was stored for it.
    const auto same = [](float stored, double entered) { return static_cast<double>(stored) == entered; };
    return same(record.weight, edit.weight) && same(record.power, edit.power) &&
           same(record.voltageMin, edit.voltageMin) && same(record.voltageMax, edit.voltageMax);
}

void fillRecord(SHwRcvInCabinetInfo& record, const QString& parameterFile, const SMD5& md5, const CabinetEdit& edit)
{
    record.md5 = md5;
    record.columns = static_cast<std::uint8_t>(edit.grid.width());
    record.rows = static_cast<std::uint8_t>(edit.grid.height());
    record.name = QFileInfo(parameterFile).completeBaseName();
    record.specifyOrientation = edit.specifyOrientation;
    for (int k = 0; k < std::min(cellCount(edit.grid, record), edit.wiring.size()); ++k)
        record.wiringOrder[static_cast<std::size_t>(k)] = static_cast<std::uint8_t>(edit.wiring.at(k));
    record.weight = static_cast<float>(edit.weight);
    record.power = static_cast<float>(edit.power);
    record.voltageMin = static_cast<float>(edit.voltageMin);
    record.voltageMax = static_cast<float>(edit.voltageMax);
}
