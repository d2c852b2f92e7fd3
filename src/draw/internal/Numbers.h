// SPDX-License-Identifier: MIT
#pragma once
/// @file The one truncation and the one tolerance of all painters.

#include "data/internal/MissingNumbers.h"
#include "draw/PaneMapping.h"

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

using TC::toPixel;

/// A NaN has no pixel; painters ask before they draw.
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
