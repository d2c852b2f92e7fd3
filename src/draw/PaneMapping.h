// SPDX-License-Identifier: MIT
#pragma once
/// @file Where the painters put bars and values, and back: for grids, axes, crosshairs and a host's own ink.
///
/// A crosshair on a pane whose candles and lines stand in the same slots:
/// @code
/// const QRect pane(0, 0, width, height);
/// const TC::SlotLayout slots = TC::candleSlots(pane, firstBar, barsShown);
/// const TC::ValueScale scale = TC::valueScale(pane, { max, min });
/// const int bar = slots.barAt(mouse.x());      // limit it to the bars shown
/// const int x = slots.x(bar) + halfWidth;      // centre of its candle
/// const double price = scale.valueAt(mouse.y());
/// painter.drawLine(0, scale.row(close), pane.right(), scale.row(close));
/// @endcode
///
/// Plain values without state; any thread.

#include "indicatorui_export.h"

#include <QPair>
#include <QRect>

#include <algorithm>
#include <climits>
#include <cmath>

namespace TC {

/// Pixel of a coordinate as every painter takes it: truncated toward zero, saturating at the int limits. A
/// NaN has no pixel and answers 0; painters draw nothing there.
inline int toPixel(double coordinate)
{
    constexpr double lowest = INT_MIN, highest = INT_MAX;
    return std::isnan(coordinate) ? 0 : static_cast<int>(std::clamp(coordinate, lowest, highest));
}

/// Where each bar stands across a pane. The terms are added in this order, as each painter states it:
/// another grouping may round to the next pixel.
struct SlotLayout
{
    int firstBar = 0;    ///< bar that stands on the origin
    double width = 0.0;  ///< slot width, fractional pixels; infinite or NaN when nothing divides the pane
    double origin = 0.0; ///< pixels: every whole-pixel term that precedes the slots
    double shift = 0.0;  ///< pixels: the painter's own nudge, added last

    /// Untruncated; NaN when the layout has no place for the bar.
    double at(int bar) const { return origin + (static_cast<double>(bar) - firstBar) * width + shift; }
    /// Column of a bar's left edge.
    int x(int bar) const { return toPixel(at(bar)); }

    /// Bar under a column: the last one that stands on it or left of it, so that barAt(x(bar)) is `bar`
    /// wherever slots are a pixel wide or wider. Not limited to any bars; saturates at the int limits.
    /// `firstBar` when slots have no width.
    int barAt(int column) const
    {
        if (!(width > 0.0) || std::isinf(width))
            return firstBar;
        // Truncation toward zero: column 0 holds what lies up to a pixel left of it as well.
        const double edge = column < 0 ? column : column + 1.0;
        const int bar = toPixel(std::floor((edge - origin - shift) / width) + firstBar);
        // The quotient may fall on an edge, or round to its other side.
        if (bar > INT_MIN && x(bar) > column)
            return bar - 1;
        return bar < INT_MAX && x(bar + 1) <= column ? bar + 1 : bar;
    }
};

/// Where a value stands; rows grow downward, nothing is clamped.
struct ValueScale
{
    double baseRow = 0.0;       ///< row of `baseValue`, pixels
    double baseValue = 0.0;     ///< in units of the value axis
    double pixelsPerUnit = 0.0; ///< infinite or NaN on a flat range

    /// Untruncated; NaN when the value has no row.
    double at(double value) const { return baseRow - (value - baseValue) * pixelsPerUnit; }
    /// Pixel row of a value.
    int row(double value) const { return toPixel(at(value)); }

    /// Value of a row's upper edge: the inverse of at(). Infinite or NaN where every value has the same row.
    double valueAt(int row) const { return baseValue + (baseRow - row) / pixelsPerUnit; }
};

/// Slots of drawKLine: as many as bars, from the pane's left edge. Candles are centred `halfWidth` to the
/// right of their column.
inline SlotLayout candleSlots(const QRect& rect, int startIndex, int barCount)
{
    return { startIndex, rect.width() / static_cast<double>(barCount), static_cast<double>(rect.left()),
             0.0 };
}

/// Slots of drawSimpleLine, which its points stand on unless they are limited to the pane's right edge;
/// drawSegmentLine's points are one pixel further left. Arguments as for those painters.
INDICATORUI_EXPORT SlotLayout lineSlots(const QRect& rect, int startIndex, int endIndex, int barCount,
                                        int xOffset, bool fullWidth, bool alignByIndex);

/// The scale of every painter but the candles (see dataToYAxis) and the volumes: the minimum on the bottom
/// row. Deliberate: the height, not the height less one, spans the range, so that the maximum lands one row
/// above the rectangle. On a flat range each painter has its own answer.
/// @param range  (maximum, minimum).
inline ValueScale valueScale(const QRect& rect, const QPair<double, double>& range)
{
    return { static_cast<double>(rect.bottom()), range.second, rect.height() / (range.first - range.second) };
}

/// The scale of volume bars and tick sticks, which stand on the zero level. Deliberate: the range's minimum
/// is not read, so that a volume bar keeps its length when the axis does not start at zero.
inline ValueScale volumeScale(const QRect& rect, const QPair<double, double>& range)
{
    return { static_cast<double>(rect.bottom()), 0.0, rect.height() / range.first };
}

} // namespace TC
