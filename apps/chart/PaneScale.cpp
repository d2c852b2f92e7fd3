// SPDX-License-Identifier: MIT
#include "apps/chart/PaneScale.h"

#include "draw/CDrawStyle.h"
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

} // namespace

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
        double max = 0.0, min = 0.0;
        if (formula.ownScale)
            continue;
        if (!TC::CDrawStyle::calcMaxMin(max, min, view.first, view.last, *formula.records, QRect(),
                                        !pane.showsPrices, formula.overlaid, formula.scale))
            continue;
        highest = counted ? std::max(highest, max) : max;
        lowest = counted ? std::min(lowest, min) : min;
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
