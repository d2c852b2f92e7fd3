#pragma once
/// @file Where the line painters' bars stand.

#include "draw/internal/Layout.h"

#include "host/TC/CAppConfig.h"
#include "host/utils/CSingletonT.h"

namespace TC::detail {

/// Client type 3: the second visual variant, blue and left-aligned.
inline bool isSecondVariant()
{
    return utils::CSingletonT<CAppConfig>::instance()->isClientType(3);
}

/// Layout of the broken and unbroken line: the newest bar at the right edge. The start offset is truncated
/// with the pixel offset inside it; client type 3 takes the pixel offset alone.
inline SlotLayout rightAligned(const BarWindow& bars, const QRect& rect, int xOffset)
{
    const double width = slotWidth(rect, bars.divisor());
    const int start = isSecondVariant() ? xOffset : toPixel(bars.rightShift() * width + xOffset);
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

/// Row of a value for painters whose scale falls back to the height over the maximum on a flat range.
inline ValueScale spanningOrToMaximum(const QRect& rect, const QPair<double, double>& range)
{
    ValueScale scale = spanning(rect, range);
    if (isFlat(range))
        scale.pixelsPerUnit = rect.height() / range.first;
    return scale;
}

} // namespace TC::detail
