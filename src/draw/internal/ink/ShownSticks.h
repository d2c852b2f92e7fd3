#pragma once
/// @file Volume sticks of one pixel that later ones leave in sight.

#include "data/internal/RecordViews.h"
#include "draw/internal/BarLayout.h"
#include "draw/internal/ink/PixelColumns.h"

#include <vector>

namespace TC::detail {

/// Sticks that stand on zero, from values as high as they are.
struct StandingValues
{
    const std::vector<double>& values;
    int count; ///< bars that every column reaches
    const ValueScale& scale;
    int lowestTop; ///< a stick whose top is no lower than this row reaches the base as one line
    bool hides;    ///< lines of one pixel, which hide what lies beneath
};

/// Visits valid bars in order. Where sticks hide one another, the bars of a pixel column are looked at from
/// the last one back, and those no higher than a line that was painted behind them are left out.
template <class Visit>
void forEachShownStick(const se::RPCFormulaResult& result, const BarWindow& bars, const BodyLayout& layout,
                       const StandingValues& sticks, Visit visit)
{
    const int total = std::min(barTotal(result), sticks.count);
    const int end = bars.last < total ? bars.last + 1 : total;
    const PixelColumns<BodyLayout> columns(layout, layout.slotWidth, INT_MAX, end);
    const double unit = sticks.scale.pixelsPerUnit;
    if (!sticks.hides || !columns.areDense() || !(unit > 0.0) || !std::isfinite(unit)) {
        forEachValidBar(result, bars.first, bars.last, visit);
        return;
    }
    std::vector<int> shown;
    for (int bar = std::max(bars.first, 0); bar < end;) {
        const int next = columns.endOf(bar);
        double covered = -1.0; // values from zero up to this one are hidden
        for (int i = next - 1; i >= bar; --i) {
            const double value = sticks.values[static_cast<std::size_t>(i)];
            if ((value >= 0.0 && value <= covered) || !isValidBar(result, i))
                continue;
            shown.push_back(i);
            if (!isMissing(value) && value > kTolerance && sticks.scale.row(value) <= sticks.lowestTop)
                covered = value;
        }
        for (; !shown.empty(); shown.pop_back())
            visit(shown.back());
        bar = next;
    }
}

} // namespace TC::detail
