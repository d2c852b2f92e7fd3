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

bool hasVolume(const PaneContent& pane)
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

/// Smallest 1, 2 or 5 times a power of ten that is at least `least`.
double roundStep(double least)
{
    const double power = std::pow(10.0, std::floor(std::log10(least)));
    for (double factor : { 1.0, 2.0, 5.0 }) {
        if (factor * power >= least * (1.0 - 1e-9))
            return factor * power;
    }
    return 10.0 * power;
}

/// Decimals that tell marks of a step apart.
int decimalsOf(double step)
{
    return std::clamp(static_cast<int>(std::ceil(-std::log10(step) - 1e-9)), 0, 8);
}

} // namespace

QPair<double, double> visibleRange(const PaneContent& pane, const BarView& view)
{
    double highest = 0.0, lowest = 0.0;
    bool counted = false;
    for (const PaneFormula& formula : pane.formulas) {
        double max = 0.0, min = 0.0;
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
    if (hasVolume(pane))
        return { highest > 0.0 ? highest * (1.0 + kAir) : 1.0, 0.0 };
    const double extent = highest - lowest;
    const double air = extent > 0.0 ? extent * kAir : std::max(std::abs(highest) * kAir, 1e-3);
    return { highest + air, lowest - air };
}

std::vector<AxisMark> valueMarks(const QPair<double, double>& range, int height, int spacing,
                                 const PaneContent& pane)
{
    const double extent = range.first - range.second;
    if (!(extent > 0.0) || !std::isfinite(extent) || height < spacing)
        return {};
    double step = roundStep(extent * spacing / height);
    if (pane.showsPrices)
        step = std::max(step, pane.priceTick);
    std::vector<AxisMark> marks;
    const double first = std::ceil(range.second / step), last = std::floor(range.first / step);
    for (double n = first; n <= last && marks.size() < 100; n += 1.0)
        marks.push_back({ n * step, valueText(n * step, pane, step) });
    return marks;
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

QString valueText(double value, const PaneContent& pane, double step)
{
    constexpr int largeStyle = -2;
    if (pane.showsPrices)
        return TC::CDrawStyle::toStringByPrec(TC::CDrawStyle::priceTick2Precision(pane.priceTick), value,
                                              0.0);
    if (std::abs(value) >= 1e4)
        return TC::CDrawStyle::toStringByPrec(largeStyle, value, 0.0);
    return TC::CDrawStyle::toStringByPrec(decimalsOf(step), value, 0.0);
}

} // namespace chart
