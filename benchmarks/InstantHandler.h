#pragma once

#include "tests/sdk/consumer/QuietHandler.h"

#include <SHwRcvInCabinetInfo.h>

// A host that knows every type file without looking: the time that is measured is the settings area's own.
class InstantHandler : public QuietHandler
{
public:
    bool isMultiRcvCabinetFile(const QString& path) override { return path.endsWith(QLatin1String(".rcvbp")); }
    void readCabinetInfo(const QString& path, SHwRcvInCabinetInfo& info) override
    {
        if (!isMultiRcvCabinetFile(path))
            return;
        info.columns = 2;
        info.rows = 2;
        info.wiringOrder = {0, 1, 3, 2};
    }
    void queryCabinetResolution(const QString& /*path*/, int& width, int& height) override
    {
        width = 128;
        height = 64;
    }
    std::array<std::int64_t, 4> queryCabinetBlock(const QString& /*path*/) override { return {1, 2, 3, 4}; }
};
