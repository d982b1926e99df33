#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

// Conversions of whole degrees. What is left over is dropped towards zero, so that there and back may lose a degree.

// celsius x 1.8 + 32, or the nearest int where it is too great for one.
constexpr int fahrenheitFromCelsius(int celsius)
{
    const std::int64_t fahrenheit = (std::int64_t{celsius} * 9 + 160) / 5;
    return static_cast<int>(
        std::clamp<std::int64_t>(fahrenheit, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

// (fahrenheit - 32) / 1.8
constexpr int celsiusFromFahrenheit(int fahrenheit)
{
    return static_cast<int>((std::int64_t{fahrenheit} - 32) * 5 / 9);
}
