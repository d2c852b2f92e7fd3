// SPDX-License-Identifier: MIT
#pragma once
/// @file Which bars share a pixel column.

#include "draw/internal/Layout.h"

#include <cmath>

namespace TC::detail {

/// The runs of bars of a layout that stand on one pixel column each.
/// Layout: `double at(int bar)`, the untruncated column, and `int firstBar`, the bar that the slots count
/// from.
template <class Layout>
class PixelColumns
{
public:
    /// @param slotWidth  of the layout, fractional pixels.
    /// @param rightmost  bars further right stand on this column.
    /// @param end  first bar past the walk.
    PixelColumns(const Layout& layout, double slotWidth, int rightmost, int end)
        : m_layout(layout)
        , m_slotWidth(slotWidth)
        , m_rightmost(rightmost)
        , m_end(end)
    {
    }

    /// Whether so many bars share a column that finding its borders pays. Bars then run from left to right.
    bool areDense() const
    {
        constexpr double widest = 0.15; // pixels: seven bars a column
        return m_slotWidth > 0.0 && m_slotWidth < widest && std::isfinite(m_layout.at(m_layout.firstBar));
    }

    /// Untruncated; NaN when the layout has no place for the bar.
    double at(int bar) const { return std::min(m_layout.at(bar), static_cast<double>(m_rightmost)); }
    int x(int bar) const { return toPixel(at(bar)); }

    /// First bar past the column of `bar`. The estimate is put right by the very truncation that places bars.
    int endOf(int bar) const
    {
        const int column = x(bar);
        if (column >= m_rightmost)
            return m_end;
        const double border = column >= 0 ? column + 1.0 : column;
        const double estimate =
            m_layout.firstBar + std::ceil((border - m_layout.at(m_layout.firstBar)) / m_slotWidth);
        int next = toPixel(std::clamp(estimate, bar + 1.0, std::max(bar + 1.0, static_cast<double>(m_end))));
        while (next > bar + 1 && x(next - 1) != column)
            --next;
        while (next < m_end && x(next) == column)
            ++next;
        return next;
    }

private:
    Layout m_layout;
    double m_slotWidth;
    int m_rightmost;
    int m_end;
};

} // namespace TC::detail
