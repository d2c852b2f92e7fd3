// SPDX-License-Identifier: MIT
#pragma once
/// @file One number per bar or trade, and what stands where there is none.

#include <cfloat>
#include <cmath>
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

} // namespace engine
