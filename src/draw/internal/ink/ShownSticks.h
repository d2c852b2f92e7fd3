// SPDX-License-Identifier: MIT
#pragma once
/// @file Volume sticks of one pixel that later ones leave in sight.

#include "data/internal/RecordViews.h"
#include "draw/internal/BarLayout.h"
#include "draw/internal/ink/Fetch.h"
#include "draw/internal/ink/Peaks.h"
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
    const std::vector<double>& closes;
    const ValueScale& scale;
    int lowestTop; ///< a stick whose top is no lower than this row reaches the base as one line
    bool hides;    ///< lines of one pixel, which hide what lies beneath

    std::size_t count() const { return std::min({ values.size(), opens.size(), closes.size() }); }
};

/// What the ink of one stick is made from.
struct StandingStick
{
    int bar;
    double value, open, close;
};

/// Bars of one pixel column.
struct ColumnBars
{
    int first = 0, end = 0;
    std::vector<StandingStick> shown; ///< those that later ones leave in sight, the last one first
};

/// Finds the sticks of a pixel column that later ones leave in sight.
class ShownInColumn
{
public:
    ShownInColumn(const se::RPCFormulaResult& result, const StandingValues& sticks)
        : m_flags(result.barValid.data())
        , m_sticks(sticks)
    {
    }

    /// Few flags are read: every bar counts as valid until one that shows turns out not to be.
    void find(ColumnBars& column)
    {
        find(column, false);
        if (!readPrices(column.shown)) {
            find(column, true);
            readPrices(column.shown);
        }
    }

private:
    bool isValid(int bar) const { return m_flags[static_cast<std::size_t>(bar)] != 0; }

    /// Reads together what is scattered in memory, so that it is waited for once; answers whether all bars
    /// are valid.
    bool readPrices(std::vector<StandingStick>& sticks) const
    {
        bool areValid = true;
        for (StandingStick& stick : sticks) {
            const auto place = static_cast<std::size_t>(stick.bar);
            stick.open = m_sticks.opens[place];
            stick.close = m_sticks.closes[place];
            areValid &= isValid(stick.bar);
        }
        return areValid;
    }

    /// All numbers are read forward, a block at a time, and only blocks that rise above what is painted
    /// behind them are searched.
    void find(ColumnBars& column, bool readsFlags)
    {
        constexpr int block = 64; // bars
        column.shown.clear();
        m_peaks.clear();
        m_covered = -1.0;
        m_coveredRow = INT_MAX;
        const auto lengthFrom = [&](int bar) {
            return static_cast<std::size_t>(std::min(block, column.end - bar));
        };
        for (int bar = column.first; bar < column.end; bar += block)
            m_peaks.push_back(peakOf(&valueOf(bar), lengthFrom(bar)));
        for (std::size_t i = m_peaks.size(); i-- > 0;) {
            if (m_peaks[i] <= m_covered)
                continue;
            const int begin = column.first + static_cast<int>(i) * block;
            for (std::size_t left = lengthFrom(begin), found = left;; left = found) {
                found = lastOutside(&valueOf(begin), left, m_covered);
                if (found == left)
                    break;
                const int bar = begin + static_cast<int>(found);
                if (!readsFlags || isValid(bar))
                    look(bar, column.shown);
            }
        }
    }

    const double& valueOf(int bar) const { return m_sticks.values[static_cast<std::size_t>(bar)]; }

    void look(int bar, std::vector<StandingStick>& shown)
    {
        const double value = valueOf(bar);
        if (isMissing(value))
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
        shown.push_back({ bar, value, 0.0, 0.0 });
        const auto place = static_cast<std::size_t>(bar);
        fetch(&m_flags[place]);
        fetch(&m_sticks.opens[place]);
        fetch(&m_sticks.closes[place]);
    }

    const int* m_flags;
    const StandingValues& m_sticks;
    double m_covered = -1.0;    ///< values from zero up to this one are hidden
    int m_coveredRow = INT_MAX; ///< their highest row
    std::vector<double> m_peaks;
};

/// Visits the sticks of valid bars in order; where sticks hide one another, those in sight only.
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
        forEachValidBar(result, bars.first, end - 1, [&](int bar) {
            const auto place = static_cast<std::size_t>(bar);
            visit({ bar, sticks.values[place], sticks.opens[place], sticks.closes[place] });
        });
        return;
    }
    ShownInColumn search(result, sticks);
    ColumnBars column;
    for (int bar = std::max(bars.first, 0); bar < end; bar = column.end) {
        column.first = bar;
        column.end = columns.endOf(bar);
        search.find(column);
        std::for_each(column.shown.rbegin(), column.shown.rend(), visit);
    }
}

} // namespace TC::detail
