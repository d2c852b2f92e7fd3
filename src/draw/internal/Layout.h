// SPDX-License-Identifier: MIT
#pragma once
/// @file What the painters share of a pane's geometry: the window of bars, the answers on a flat range, the
/// client's variant.

#include "draw/PaneMapping.h"
#include "draw/internal/Numbers.h"
#include "host/TC/CAppConfig.h"
#include "host/utils/CSingletonT.h"

#include <QPair>
#include <QRect>

#include <cstdlib>
#include <optional>

namespace TC::detail {

/// The second visual variant of the client: some painters start their runs at the pane's left edge, or take
/// its blue.
inline bool isClientType3()
{
    return utils::CSingletonT<CAppConfig>::instance()->isClientType(3);
}

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

/// A (maximum, minimum) pair without extent.
inline bool isFlat(const QPair<double, double>& range)
{
    return isEqual(range.first, range.second);
}

/// The painters' own scale; on a flat range the height spans the maximum itself, as if the axis started at
/// zero.
/// @param atZero  pixels per unit of a flat range on zero; empty: infinite, as the division gives it.
inline ValueScale spanningOrToMaximum(const QRect& rect, const QPair<double, double>& range,
                                      std::optional<double> atZero = std::nullopt)
{
    ValueScale scale = valueScale(rect, range);
    if (isFlat(range))
        scale.pixelsPerUnit = atZero && isZero(range.first) ? *atZero : rect.height() / range.first;
    return scale;
}

} // namespace TC::detail
