// SPDX-License-Identifier: MIT
#include "apps/chart/ValueMarks.h"

#include "apps/chart/PaneScale.h"
#include "draw/CDrawStyle.h"

#include <algorithm>
#include <cmath>

namespace chart {

namespace {

constexpr int kFewest = 3, kMost = 8; // labels
constexpr int kClosest = 12;          // rows from one label to the next: digits reach up nine
constexpr int kLeastHeight = 20;      // rows of an axis with marks
constexpr double kExact = 1e-9;       // of a step: rounding of round values

/// A distance between two marks: `factor` times a power of ten.
struct Step
{
    double value = 0.0;
    int decimals = 0; ///< that tell its multiples apart
};

Step stepOf(double factor, int power)
{
    const int own = factor == std::floor(factor) ? 0 : 1;
    return { factor * std::pow(10.0, power), std::clamp(own - power, 0, 12) };
}

/// Steps of the factors from the coarsest that marks the range once to a hundredth of it.
std::vector<Step> stepsFrom(std::initializer_list<double> factors, double extent)
{
    std::vector<Step> steps;
    const int highest = static_cast<int>(std::floor(std::log10(extent)));
    for (int power = highest; power > highest - 3; --power) {
        for (auto factor = std::rbegin(factors); factor != std::rend(factors); ++factor)
            steps.push_back(stepOf(*factor, power));
    }
    return steps;
}

/// An axis and what it can take.
struct Axis
{
    const QPair<double, double>& range;
    int height;
    const PaneContent& pane;

    double rowsOf(const Step& step) const { return step.value / (range.first - range.second) * height; }

    bool canShow(const Step& step) const
    {
        if (!pane.showsPrices)
            return !pane.countsWhole || step.value > 1.0 - kExact;
        const double ticks = step.value / pane.priceTick;
        return ticks > 1.0 - kExact && (ticks > 1e6 || std::abs(ticks - std::round(ticks)) < 1e-6);
    }

    std::vector<double> valuesOf(const Step& step) const
    {
        std::vector<double> values;
        const double first = std::ceil(range.second / step.value),
                     last = std::floor(range.first / step.value);
        for (double n = first; n <= last && values.size() < 1000; n += 1.0)
            values.push_back(n * step.value);
        return values;
    }

    int labelsOf(const Step& step) const
    {
        const std::vector<double> values = valuesOf(step);
        return static_cast<int>(std::count_if(values.begin(), values.end(), [&](double value) {
            return hasLabelRoom(rowOf(value, range, height), height);
        }));
    }
};

/// The finest of the steps, which come coarsest first, that keeps the distance and makes no more labels than
/// there may be.
Step finest(const std::vector<Step>& steps, const Axis& axis, int spacing)
{
    Step best = steps.front();
    for (const Step& step : steps) {
        if (axis.rowsOf(step) < spacing * (1.0 - kExact) || !axis.canShow(step)
            || axis.labelsOf(step) > kMost)
            break;
        best = step;
    }
    return best;
}

/// The coarsest step that makes enough labels, which may stand as close as their heights allow.
Step sufficient(const std::vector<Step>& steps, const Axis& axis, const Step& otherwise)
{
    for (const Step& step : steps) {
        if (axis.rowsOf(step) < kClosest)
            break;
        const int labels = axis.labelsOf(step);
        if (labels >= kFewest && labels <= kMost && axis.canShow(step))
            return step;
    }
    return otherwise;
}

QString textOf(double value, const PaneContent& pane, int decimals)
{
    constexpr int largeStyle = -2;
    if (pane.showsPrices)
        return TC::CDrawStyle::toStringByPrec(TC::CDrawStyle::priceTick2Precision(pane.priceTick), value,
                                              0.0);
    if (std::abs(value) >= 1e4)
        return TC::CDrawStyle::toStringByPrec(largeStyle, value, 0.0);
    return TC::CDrawStyle::toStringByPrec(pane.countsWhole ? 0 : decimals, value, 0.0);
}

std::vector<AxisMark> linearMarks(const QPair<double, double>& range, int height, int spacing,
                                  const PaneContent& pane)
{
    const double extent = range.first - range.second;
    const Axis axis { range, height, pane };
    Step step = finest(stepsFrom({ 1, 2, 5 }, extent), axis, spacing);
    if (axis.labelsOf(step) < kFewest) {
        step = sufficient(stepsFrom({ 1, 2, 5 }, extent), axis, step);
        if (axis.labelsOf(step) < kFewest)
            step = sufficient(stepsFrom({ 1, 1.5, 2, 2.5, 3, 4, 5, 6, 8 }, extent), axis, step);
    }
    std::vector<AxisMark> marks;
    for (double value : axis.valuesOf(step))
        marks.push_back({ value, textOf(value, pane, step.decimals) });
    return marks;
}

/// What a relative axis says of a number that it tells.
QString relativeText(const ValueAxis& axis, double number, const QString& digits)
{
    if (axis.kind != AxisKind::Percent)
        return digits;
    return (number > 0.0 ? QStringLiteral("+") : QString()) + digits + QLatin1Char('%');
}

/// Marks where percent, or points of the index, are round.
std::vector<AxisMark> relativeMarks(const QPair<double, double>& range, int height, int spacing,
                                    const ValueAxis& axis)
{
    std::vector<AxisMark> marks =
        linearMarks({ axis.told(range.first), axis.told(range.second) }, height, spacing, PaneContent());
    for (AxisMark& mark : marks)
        mark = { axis.valueOfTold(mark.value), relativeText(axis, mark.value, mark.text) };
    return marks;
}

/// The next round price above one that stands at least `spacing` rows above it.
double nextRound(double value, const QPair<double, double>& range, int height, int spacing,
                 const PaneContent& pane)
{
    const double distance = (range.first - range.second) / height * spacing;
    const double least = std::max(pane.axis.valueAt(pane.axis.placeOf(value) + distance) - value,
                                  pane.showsPrices ? pane.priceTick : 0.0);
    double step = std::pow(10.0, std::floor(std::log10(least)));
    for (double factor : { 2.0, 2.5, 2.0 }) { // 1, 2, 5, 10
        if (step >= least * (1.0 - kExact))
            break;
        step *= factor;
    }
    const double next = (std::floor(value / step + kExact) + 1.0) * step;
    return next - value >= least * (1.0 - kExact) ? next : next + step;
}

/// Marks at round prices, whose distances grow with them; one more than there may be at most.
std::vector<AxisMark> roundPrices(const QPair<double, double>& range, int height, int spacing,
                                  const PaneContent& pane)
{
    const double lowest = pane.axis.valueAt(range.second), highest = pane.axis.valueAt(range.first);
    std::vector<AxisMark> marks;
    if (!(lowest > 0.0) || !std::isfinite(highest))
        return marks;
    double value = nextRound(lowest, range, height, 1, pane);
    while (value <= highest && marks.size() <= kMost) {
        marks.push_back({ value, textOf(value, pane, 2) });
        value = nextRound(value, range, height, spacing, pane);
    }
    return marks;
}

std::vector<AxisMark> logarithmicMarks(const QPair<double, double>& range, int height, int spacing,
                                       const PaneContent& pane)
{
    std::vector<AxisMark> marks = roundPrices(range, height, spacing, pane);
    for (int closer = spacing * 3 / 4; marks.size() < kFewest && closer >= kClosest; closer = closer * 3 / 4)
        marks = roundPrices(range, height, closer, pane);
    for (int wider = spacing; marks.size() > kMost && wider < height; wider += spacing / 2)
        marks = roundPrices(range, height, wider, pane);
    return marks;
}

} // namespace

std::vector<AxisMark> valueMarks(const QPair<double, double>& range, int height, int spacing,
                                 const PaneContent& pane)
{
    const double extent = range.first - range.second;
    if (!(extent > 0.0) || !std::isfinite(extent) || height < kLeastHeight)
        return {};
    if (pane.axis.isLogarithmic())
        return logarithmicMarks(range, height, spacing, pane);
    if (pane.axis.isRelative())
        return relativeMarks(range, height, spacing, pane.axis);
    return linearMarks(range, height, spacing, pane);
}

QString valueText(double value, const PaneContent& pane, double step)
{
    if (pane.axis.isRelative()) {
        constexpr int decimals = 2;
        const double number = pane.axis.told(value);
        return relativeText(pane.axis, number, TC::CDrawStyle::toStringByPrec(decimals, number, 0.0));
    }
    const int decimals = step > 0.0 ? static_cast<int>(std::ceil(-std::log10(step) - kExact)) : 0;
    return textOf(value, pane, std::clamp(decimals, 0, 8));
}

} // namespace chart
