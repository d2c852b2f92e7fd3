#pragma once
/// @file The one truncation, the one tolerance and the one missing-number test of all painters.

#include "data/internal/ElementAt.h"

#include <QRect>

#include <algorithm>
#include <cfloat>
#include <climits>
#include <cmath>

namespace TC::detail {

/// Two values within this distance are equal; a value within it of zero is zero.
constexpr double kTolerance = 1e-5;

inline bool isZero(double value)
{
    return std::abs(value) <= kTolerance;
}

inline bool isEqual(double a, double b)
{
    return std::abs(a - b) <= kTolerance;
}

/// The marker that the engine writes for a missing number.
inline bool isMissingMarker(double value)
{
    return value >= DBL_MAX && !std::isinf(value);
}

/// Not finite, or the missing marker.
inline bool isMissing(double value)
{
    return !(value < DBL_MAX && value >= -DBL_MAX);
}

/// Pixel of a coordinate: truncated toward zero, saturating at the int limits. A NaN has no pixel;
/// painters test for it with hasPixel before they draw.
inline int toPixel(double coordinate)
{
    constexpr double lowest = INT_MIN, highest = INT_MAX;
    return std::isnan(coordinate) ? 0 : static_cast<int>(std::clamp(coordinate, lowest, highest));
}

inline bool hasPixel(double coordinate)
{
    return !std::isnan(coordinate);
}

/// An int sum that saturates instead of overflowing.
inline int saturatedSum(int a, long long b)
{
    return static_cast<int>(std::clamp<long long>(a + b, INT_MIN, INT_MAX));
}

/// A rectangle whose edges stay where Qt's int arithmetic cannot overflow.
inline QRect paintableRect(long long x, long long y, long long width, long long height)
{
    static constexpr long long limit = 1'000'000'000;
    const auto bounded = [](long long v) { return static_cast<int>(std::clamp(v, -limit, limit)); };
    return QRect(bounded(x), bounded(y), bounded(width), bounded(height));
}

} // namespace TC::detail
