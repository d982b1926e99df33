#include "host/tour/TourPass.h"

#include <algorithm>

std::vector<TourPass> TourPass::all()
{
    std::vector<TourPass> passes;
    for (const char* language : {"en", "zh_CN"}) {
        for (const int scale : {1, 2})
            passes.push_back({QLatin1String(language), scale});
    }
    return passes;
}

std::optional<TourPass> TourPass::named(const QString& name)
{
    const std::vector<TourPass> passes = all();
    const auto found =
        std::find_if(passes.begin(), passes.end(), [&name](const TourPass& pass) { return pass.name() == name; });
    return found == passes.end() ? std::nullopt : std::optional(*found);
}

QString TourPass::name() const
{
    return QStringLiteral("%1-%2x").arg(language).arg(scale);
}
