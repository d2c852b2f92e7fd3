// SPDX-License-Identifier: MIT
#pragma once
/// @file The bars that a chart shows.

#include "draw/PaneMapping.h"

#include <algorithm>

namespace chart {

/// A run of bars over the width of a pane, one slot each: the slots of the library's candles. Bar `first` has
/// its left edge on column 0.
struct BarView
{
    int first = 0, last = -1; ///< bars, both inclusive
    int width = 0;            ///< pixels across the plot

    int count() const { return std::max(0, last - first + 1); }
    double slotWidth() const { return count() > 0 ? slots().width : 0.0; }

    /// Half the width of a candle's body in pixels; 0 where only lines fit.
    int halfWidth() const { return std::max(0, static_cast<int>((slotWidth() - 1.0) * 0.42)); }

    /// Columns by which all that is drawn moves to the right, so that candles stand in the middle of their
    /// slots.
    int shift() const { return std::max(0, static_cast<int>((slotWidth() - (2 * halfWidth() + 1)) / 2)); }

    /// Column of a bar's centre.
    int centre(int bar) const { return slots().x(bar) + halfWidth() + shift(); }

    /// Bar under a column; limited to the shown ones. -1 when nothing is shown.
    int barAt(int column) const
    {
        if (count() == 0 || width <= 0)
            return -1;
        return std::clamp(slots().barAt(column), first, last);
    }

private:
    TC::SlotLayout slots() const
    {
        return TC::candleSlots(QRect(0, 0, width, 1), first, std::max(count(), 1));
    }
};

} // namespace chart
