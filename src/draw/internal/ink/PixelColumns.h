#pragma once
/// @file Which bars share a pixel column.

#include "draw/internal/Layout.h"

#include <cmath>

namespace TC::detail {

/// The runs of bars of a layout that stand on one pixel column each.
class PixelColumns
{
public:
    /// @param rightmost  bars further right stand on this column.
    /// @param end  first bar past the walk.
    PixelColumns(const SlotLayout& layout, int rightmost, int end)
        : m_layout(layout)
        , m_rightmost(rightmost)
        , m_end(end)
    {
    }

    /// Whether so many bars share a column that finding its borders pays. Bars then run from left to right.
    bool areDense() const
    {
        return m_layout.width > 0.0 && m_layout.width < 0.15 && std::isfinite(m_layout.origin);
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
        const double slots = (border - m_layout.shift - m_layout.origin) / m_layout.width;
        int next =
            toPixel(std::clamp(m_layout.firstBar + std::ceil(slots), bar + 1.0, static_cast<double>(m_end)));
        while (next > bar + 1 && x(next - 1) != column)
            --next;
        while (next < m_end && x(next) == column)
            ++next;
        return next;
    }

private:
    SlotLayout m_layout;
    int m_rightmost;
    int m_end;
};

} // namespace TC::detail
