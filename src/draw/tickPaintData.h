// SPDX-License-Identifier: MIT
#pragma once
/// @file One classified trade of a tick pane.

#include <cfloat>

namespace TC {

/// A trade as drawTick paints it. A plain record: copyable and movable.
struct tickPaintData
{
    bool rise = false;      ///< painted in the rise colour; false: in the fall colour
    double price = DBL_MAX; ///< trade price in units of the value axis; DBL_MAX: none

    /// Returns to the state of a new record: not rising, without a price.
    void clear() { *this = tickPaintData(); }
};

} // namespace TC
