#pragma once
/// @file Where bars stand across a pane and where values stand down it.

#include "draw/internal/Numbers.h"
#include "draw/internal/Output.h"

#include <QPair>
#include <QRect>

#include <cstdlib>

namespace TC::detail {

/// The bars to paint: the arguments that travel together.
struct BarWindow
{
    int first = 0; ///< inclusive
    int last = 0;  ///< inclusive
    int slotCount = 0;
    bool fullWidth = false;

    /// Number of slots that the pane's width is divided into: one is left spare at the right unless the
    /// full width is used. May be zero or negative; in double, so that it cannot overflow.
    double divisor() const { return static_cast<double>(slotCount) + (fullWidth ? 0.0 : 1.0); }

    /// Slots by which a right-aligned run is moved. Deliberate: the absolute value, so that more bars than
    /// slots move right as well.
    double rightShift() const
    {
        return static_cast<double>(std::llabs(static_cast<long long>(first) - last + slotCount));
    }
};

/// Width of one slot in fractional pixels; infinite or NaN when nothing divides the pane.
inline double slotWidth(const QRect& rect, double divisor)
{
    return rect.width() / divisor;
}

/// Where each bar stands. The terms are added in this order, as each painter states it.
struct SlotLayout
{
    int firstBar = 0;    ///< bar that stands on the origin
    double width = 0.0;  ///< slot width, fractional pixels
    double origin = 0.0; ///< pixels: every whole-pixel term that precedes the slots
    double shift = 0.0;  ///< pixels: the painter's own nudge, added last

    /// Untruncated; NaN when the layout has no place for the bar.
    double at(int bar) const { return origin + (static_cast<double>(bar) - firstBar) * width + shift; }
    int x(int bar) const { return toPixel(at(bar)); }
};

/// Where a value stands; rows grow downward, nothing is clamped.
struct ValueScale
{
    double baseRow = 0.0;       ///< row of `baseValue`, pixels
    double baseValue = 0.0;     ///< in units of the value axis
    double pixelsPerUnit = 0.0; ///< infinite or NaN on a flat range

    /// Untruncated; NaN when the value has no row.
    double at(double value) const { return baseRow - (value - baseValue) * pixelsPerUnit; }
    int row(double value) const { return toPixel(at(value)); }
};

/// A (maximum, minimum) pair without extent.
inline bool isFlat(const QPair<double, double>& range)
{
    return isEqual(range.first, range.second);
}

/// The painters' own scale: the minimum on the bottom row. Deliberate: the height, not the height less
/// one, spans the range, so that the maximum lands one row above the rectangle.
inline ValueScale spanning(const QRect& rect, const QPair<double, double>& range)
{
    return { static_cast<double>(rect.bottom()), range.second, rect.height() / (range.first - range.second) };
}

/// Bars of the window in order: stops at the result's end, leaves out invalid bars.
template <class Visit>
void forEachValidBar(const se::RPCFormulaResult& result, int first, int last, Visit visit)
{
    const int end = last < barTotal(result) ? last + 1 : barTotal(result);
    for (int bar = std::max(first, 0); bar < end; ++bar) {
        if (isValidBar(result, bar))
            visit(bar);
    }
}

} // namespace TC::detail
