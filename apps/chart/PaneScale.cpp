// SPDX-License-Identifier: MIT
#include "apps/chart/PaneScale.h"

#include "draw/PaneMapping.h"
#include "host/se/RecordCodes.h"

#include <QRect>

#include <algorithm>
#include <cmath>

namespace chart {

namespace {

constexpr double kAir = 0.06; // share of the range that is left free above and below
/// Axes end here, so that their extent times the pixels between two marks is a number; what lies beyond is
/// drawn outside the pane.
constexpr double kGreatest = 1e304;

/// The (maximum, minimum) of what counts of a formula, on the pane's axis.
std::optional<QPair<double, double>> shownRange(const PaneContent& pane, const PaneFormula& formula,
                                                const BarView& view)
{
    const BlockRanges::Rule rule { !pane.showsPrices, formula.overlaid, formula.scale };
    BlockRanges none;
    BlockRanges& ranges = formula.ranges ? *formula.ranges : none;
    auto range = ranges.range(*formula.records, view.first, view.last, rule);
    if (range && !standsOnPlaces(formula))
        range = qMakePair(formula.factor * range->first + formula.offset,
                          formula.factor * range->second + formula.offset);
    return range;
}

} // namespace

bool standsOnPlaces(const PaneFormula& formula)
{
    return formula.factor == 1.0 && formula.offset == 0.0;
}

QPair<double, double> ownRange(const PaneFormula& formula, const QPair<double, double>& range)
{
    if (standsOnPlaces(formula))
        return range;
    return { (range.first - formula.offset) / formula.factor,
             (range.second - formula.offset) / formula.factor };
}

bool standsOnZero(const PaneContent& pane)
{
    for (const PaneFormula& formula : pane.formulas) {
        const auto& types = formula.records->meta.drawType;
        for (int type : { se::DrawType::TickVolume, se::DrawType::Volume, se::DrawType::StackedVolume }) {
            if (std::find(types.begin(), types.end(), type) != types.end())
                return true;
        }
    }
    return false;
}

QPair<double, double> stretched(const QPair<double, double>& range, double factor, bool fromZero)
{
    if (fromZero)
        return { range.first * factor, range.second };
    const double middle = range.first / 2 + range.second / 2;
    return { middle + (range.first - middle) * factor, middle + (range.second - middle) * factor };
}

QPair<double, double> visibleRange(const PaneContent& pane, const BarView& view)
{
    double highest = 0.0, lowest = 0.0;
    bool counted = false;
    for (const PaneFormula& formula : pane.formulas) {
        const auto range = formula.ownScale ? std::nullopt : shownRange(pane, formula, view);
        if (!range)
            continue;
        highest = counted ? std::max(highest, range->first) : range->first;
        lowest = counted ? std::min(lowest, range->second) : range->second;
        counted = true;
    }
    if (!counted)
        return { 1.0, 0.0 };
    highest = std::clamp(highest, -kGreatest, kGreatest);
    lowest = std::clamp(lowest, -kGreatest, kGreatest);
    if (standsOnZero(pane))
        return { highest > 0.0 ? highest * (1.0 + kAir) : 1.0, 0.0 };
    const double extent = highest - lowest;
    const double air = extent > 0.0 ? extent * kAir : std::max(std::abs(highest) * kAir, 1e-3);
    return { highest + air, lowest - air };
}

int rowOf(double value, const QPair<double, double>& range, int height)
{
    constexpr int limit = 1'000'000'000; // far outside any pane, and a pixel that Qt can still reckon with
    return std::clamp(TC::valueScale(QRect(0, 0, 1, height), range).row(value), -limit, limit);
}

double valueAt(int row, const QPair<double, double>& range, int height)
{
    return TC::valueScale(QRect(0, 0, 1, height), range).valueAt(row);
}

} // namespace chart
