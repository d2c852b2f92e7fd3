// SPDX-License-Identifier: MIT
#pragma once
/// @file Sticks to both sides of zero, of which a pixel column shows the two longest.

#include "data/internal/RecordViews.h"
#include "draw/internal/BarLayout.h"
#include "draw/internal/ink/Extremes.h"
#include "draw/internal/ink/PixelColumns.h"

#include <algorithm>

namespace TC::detail {

/// Sticks of valid bars from the zero row, as a painter walks over them.
struct SignedSticks
{
    const se::RPCFormulaResult& result;
    const std::vector<double>& values;
    const SlotLayout& layout;
    const ValueScale& scale;
    int rightmost; ///< pixel column of all bars that stand further right
    bool hides;    ///< lines of one pixel, which hide what lies beneath
};

/// Whether a bar has a stick: any finite number but zero has one, the missing marker as well.
inline bool hasStick(double value)
{
    return std::isfinite(value) && !isZero(value);
}

/// Hands over the sticks of some bars of one pixel column: the longest one on each side of zero, the last
/// bar's side last, because the zero row is its. @return false, and nothing handed over, where one has no
/// pixel.
template <class Visit>
bool visitFurthest(const SignedSticks& sticks, int first, int end, Visit visit)
{
    const auto begin = static_cast<std::size_t>(first);
    const Extremes extremes = extremesOf(sticks.values.data() + begin, sticks.result.barValid.data() + begin,
                                         static_cast<std::size_t>(end - first), { 1.0, true, kTolerance });
    if (!extremes.exist())
        return true;
    if (!hasPixel(sticks.scale.at(extremes.lowest)) || !hasPixel(sticks.scale.at(extremes.highest)))
        return false;
    int last = end - 1;
    while (!isValidBar(sticks.result, last) || !hasStick(sticks.values[static_cast<std::size_t>(last)]))
        --last;
    const bool lastRises = sticks.values[static_cast<std::size_t>(last)] > 0.0;
    const double others = lastRises ? extremes.lowest : extremes.highest;
    if ((others > 0.0) != lastRises)
        visit(first, others);
    visit(first, lastRises ? extremes.highest : extremes.lowest);
    return true;
}

/// Visits the sticks of valid bars in order, as visit(bar, value); where sticks hide one another, those in
/// sight only, under a bar of the same pixel column.
template <class Visit>
void forEachFurthestStick(const SignedSticks& sticks, int firstBar, int lastBar, Visit visit)
{
    const auto visitAll = [&](int first, int last) {
        forEachValidBar(sticks.result, first, last, [&](int bar) {
            const auto place = static_cast<std::size_t>(bar);
            if (place < sticks.values.size() && hasStick(sticks.values[place]))
                visit(bar, sticks.values[place]);
        });
    };
    const std::size_t flagged = std::min(sticks.result.barValid.size(), sticks.values.size());
    const int total =
        std::min(barTotal(sticks.result), static_cast<int>(std::min<std::size_t>(flagged, INT_MAX)));
    const int end = lastBar < total ? lastBar + 1 : total;
    const PixelColumns<SlotLayout> columns(sticks.layout, sticks.layout.width, sticks.rightmost, end);
    const double unit = sticks.scale.pixelsPerUnit;
    if (!sticks.hides || !columns.areDense() || !(unit > 0.0) || !std::isfinite(unit)) {
        visitAll(firstBar, lastBar);
        return;
    }
    for (int bar = std::max(firstBar, 0), next = bar; bar < end; bar = next) {
        next = columns.endOf(bar);
        const bool arePlaced = hasPixel(sticks.layout.at(bar)) && hasPixel(sticks.layout.at(next - 1));
        if (!arePlaced || !visitFurthest(sticks, bar, next, visit))
            visitAll(bar, next - 1);
    }
}

} // namespace TC::detail
