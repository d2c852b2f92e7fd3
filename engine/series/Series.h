// SPDX-License-Identifier: MIT
#pragma once
/// @file One number per bar or trade, and what stands where there is none.

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

namespace engine {

using Series = std::vector<double>;

/// A missing value while the engine computes: NaN, so that arithmetic carries it along by itself.
constexpr double kMissing = std::numeric_limits<double>::quiet_NaN();

/// A missing value in tick series and in the lines of records.
constexpr double kMissingMarker = DBL_MAX;

inline bool isMissing(double value)
{
    return std::isnan(value);
}

/// The number from outside, or missing where it is not finite or the marker.
inline double valueOrMissing(double number)
{
    return std::abs(number) < kMissingMarker ? number : kMissing;
}

/// Whether valueOrMissing() would leave all of them as they are. Looks at bits, by operations that processors
/// have for several numbers at once: the distance to the first pattern that is no value has a sign.
inline bool areNumbers(const double* values, std::size_t count)
{
    constexpr std::int64_t kNoSign = INT64_MAX;
    std::int64_t beyond = 0, largest = 0;
    std::memcpy(&largest, &kMissingMarker, sizeof largest);
    --largest;
    for (std::size_t index = 0; index < count; ++index) {
        std::int64_t bits = 0;
        std::memcpy(&bits, values + index, sizeof bits);
        beyond |= largest - (bits & kNoSign);
    }
    return beyond >= 0;
}

} // namespace engine
