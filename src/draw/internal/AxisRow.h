// SPDX-License-Identifier: MIT
#pragma once
/// @file Where candles stand on the value axis.

#include "draw/internal/Numbers.h"

#include <algorithm>

namespace TC::detail {

/// What TC::dataToYAxis answers, for loops over many prices.
inline int axisRow(double value, int top, int bottom, double max, double min)
{
    if (isEqual(max, min)) {
        if (value - min > kTolerance)
            return top;
        if (max - value <= kTolerance)
            return static_cast<int>((static_cast<long long>(top) + 1 + bottom) / 2);
        return bottom;
    }
    const double lowest = std::min(max, min), highest = std::max(max, min);
    const double height = static_cast<double>(static_cast<long long>(bottom) - top);
    const double rows = height * (value - lowest) / (highest - lowest);
    return saturatedSum(bottom, -static_cast<long long>(toPixel(rows)));
}

} // namespace TC::detail
