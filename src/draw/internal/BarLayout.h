// SPDX-License-Identifier: MIT
#pragma once
/// @file Where bars stand: the layouts that several painters share.

#include "draw/internal/Layout.h"

#include <algorithm>

namespace TC::detail {

/// Layout of the broken and unbroken line: the newest bar at the right edge. The start offset is truncated
/// with the pixel offset inside it; client type 3 takes the pixel offset alone.
inline SlotLayout rightAligned(const BarWindow& bars, const QRect& rect, int xOffset)
{
    const double width = slotWidth(rect, bars.divisor());
    const int start = isClientType3() ? xOffset : toPixel(bars.rightShift() * width + xOffset);
    return { bars.first, width, static_cast<double>(rect.left()) + start, 0.0 };
}

/// Layout of bars counted from bar 0: the first shown bar stands in its own slot.
inline SlotLayout alignedByIndex(const BarWindow& bars, const QRect& rect)
{
    const double width = slotWidth(rect, bars.divisor());
    return { bars.first, width, static_cast<double>(rect.left()) + toPixel(bars.first * width), 0.0 };
}

/// Layout that begins at column `offset` of the painter's coordinates.
inline SlotLayout beginningAt(const BarWindow& bars, const QRect& rect, double offset, double shift)
{
    return { bars.first, slotWidth(rect, bars.divisor()), offset, shift };
}

/// Where volume bars and tick marks stand: a body reaches `halfWidth` to both sides of the bar's column. The
/// terms are added in the order of at(); another grouping may round to the next pixel.
struct BodyLayout
{
    int firstBar = 0;
    double slotWidth = 0.0; ///< fractional pixels
    int left = 0;           ///< left edge of the pane, pixels
    int start = 0;          ///< start of the run, pixels
    int halfWidth = 0;      ///< pixels

    /// Centre of a bar, untruncated; NaN when the layout has no place for it.
    double at(int bar) const
    {
        const double slots = (static_cast<double>(bar) - firstBar) * slotWidth;
        return left + (slots + start + halfWidth);
    }

    /// Left edge of the body of a bar.
    int bodyLeft(int bar) const { return saturatedSum(toPixel(at(bar)), -static_cast<long long>(halfWidth)); }

    /// Width of every body: at least one pixel.
    long long bodyWidth() const { return std::max(2LL * halfWidth, 1LL); }
};

} // namespace TC::detail
