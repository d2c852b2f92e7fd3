// SPDX-License-Identifier: MIT
#pragma once
/// @file Volume sticks of one pixel that later ones leave in sight.

#include "data/internal/RecordViews.h"
#include "draw/internal/BarLayout.h"
#include "draw/internal/ink/Extremes.h"
#include "draw/internal/ink/Fetch.h"
#include "draw/internal/ink/PixelColumns.h"

#include <algorithm>
#include <climits>
#include <vector>

namespace TC::detail {

/// Sticks that stand on zero, from values as high as they are.
struct StandingValues
{
    const std::vector<double>& values;
    const std::vector<double>& opens;
    const std::vector<double>& closes; ///< with `opens`, what the visit reads besides
    const ValueScale& scale;
    int lowestTop; ///< a stick whose top is no lower than this row reaches the base as one line
    bool hides;    ///< lines of one pixel, which hide what lies beneath

    std::size_t count() const { return std::min({ values.size(), opens.size(), closes.size() }); }
};

/// Finds the sticks of one pixel column that later ones leave in sight.
class ShownInColumn
{
public:
    ShownInColumn(const se::RPCFormulaResult& result, const StandingValues& sticks)
        : m_flags(result.barValid.data())
        , m_sticks(sticks)
    {
    }

    /// Bars of the column, the last one first. All numbers are read forward, a block at a time, and only
    /// blocks that rise above what is painted behind them are looked at bar by bar.
    void find(int first, int end, std::vector<int>& shown)
    {
        constexpr int block = 64; // bars
        shown.clear();
        m_blocks.clear();
        m_covered = -1.0;
        m_coveredRow = INT_MAX;
        for (int bar = first; bar < end; bar += block)
            m_blocks.push_back(extremesOf(m_sticks.values.data() + bar, m_flags + bar,
                                          static_cast<std::size_t>(std::min(block, end - bar))));
        for (std::size_t i = m_blocks.size(); i-- > 0;) {
            if (m_blocks[i].lowest >= 0.0 && m_blocks[i].highest <= m_covered)
                continue; // the bars without a number have no stick either
            const int begin = first + static_cast<int>(i) * block;
            for (int bar = std::min(begin + block, end) - 1; bar >= begin; --bar)
                look(bar, shown);
        }
    }

private:
    void look(int bar, std::vector<int>& shown)
    {
        const auto place = static_cast<std::size_t>(bar);
        const double value = m_sticks.values[place];
        if ((value >= 0.0 && value <= m_covered) || m_flags[place] == 0 || isMissing(value))
            return;
        if (value > kTolerance) {
            const int row = m_sticks.scale.row(value);
            if (row <= m_sticks.lowestTop) {
                m_covered = value;
                if (row == m_coveredRow)
                    return;
                m_coveredRow = row;
            }
        }
        shown.push_back(bar);
        fetch(&m_sticks.opens[place]);
        fetch(&m_sticks.closes[place]);
    }

    const int* m_flags;
    const StandingValues& m_sticks;
    double m_covered = -1.0;    ///< values from zero up to this one are hidden
    int m_coveredRow = INT_MAX; ///< their highest row
    std::vector<Extremes> m_blocks;
};

/// Visits valid bars in order; where sticks hide one another, those in sight only.
template <class Visit>
void forEachShownStick(const se::RPCFormulaResult& result, const BarWindow& bars, const BodyLayout& layout,
                       const StandingValues& sticks, Visit visit)
{
    const std::size_t flagged = std::min(result.barValid.size(), sticks.count());
    const int total = std::min(barTotal(result), static_cast<int>(std::min<std::size_t>(flagged, INT_MAX)));
    const int end = bars.last < total ? bars.last + 1 : total;
    const PixelColumns<BodyLayout> columns(layout, layout.slotWidth, INT_MAX, end);
    const double unit = sticks.scale.pixelsPerUnit;
    if (!sticks.hides || !columns.areDense() || !(unit > 0.0) || !std::isfinite(unit)) {
        forEachValidBar(result, bars.first, bars.last, visit);
        return;
    }
    ShownInColumn column(result, sticks);
    // Each column waits for the search of the next one: until then what it reads has been fetched.
    std::vector<int> found, waiting;
    for (int bar = std::max(bars.first, 0); bar < end;) {
        const int next = columns.endOf(bar);
        column.find(bar, next, found);
        std::for_each(waiting.rbegin(), waiting.rend(), visit);
        waiting.swap(found);
        bar = next;
    }
    std::for_each(waiting.rbegin(), waiting.rend(), visit);
}

} // namespace TC::detail
