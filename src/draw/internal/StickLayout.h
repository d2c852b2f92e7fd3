#pragma once
/// @file Where sticks and volume bars stand.

#include "draw/internal/Layout.h"

#include "host/TC/CAppConfig.h"
#include "host/utils/CSingletonT.h"

namespace TC::detail {

/// Client type 3 starts its runs at the left edge of the pane instead of aligning them to the right.
inline bool runsStartAtPaneLeft()
{
    return utils::CSingletonT<TC::CAppConfig>::instance()->isClientType(3);
}

/// The scale of everything that stands on the zero level. Deliberate: the range's minimum is not read, so
/// that a volume bar keeps its length when the axis does not start at zero.
inline ValueScale standingOnZero(const QRect& rect, const QPair<double, double>& range)
{
    return { static_cast<double>(rect.bottom()), 0.0, rect.height() / range.first };
}

/// Where volume bars stand: their body reaches `halfWidth` to both sides of the bar's column. The terms are
/// added in the order of at(); another grouping may round to the next pixel.
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
