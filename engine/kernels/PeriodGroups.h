// SPDX-License-Identifier: MIT
#pragma once
/// @file Bars gathered into longer ones.

#include "engine/EngineExport.h"
#include "engine/series/BarSeries.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace engine::language {

/// A period that bars can be gathered into.
struct Period
{
    enum class Unit { Minutes, Day, Week, Month, Quarter, Year };

    const char* name; ///< in capitals
    Unit unit;
    std::int64_t minutes; ///< the longest that it may take; of Minutes its length
};

/// The period of a name in capitals: MIN5, MIN15, MIN30, MIN60, DAY, WEEK, MONTH, QUARTER (also SEASON),
/// YEAR; null when there is none.
ENGINE_EXPORT const Period* findPeriod(const std::string& key);

/// The median distance between neighbouring bars in minutes; nothing for fewer than two.
std::optional<std::int64_t> usualMinutes(const std::vector<std::int64_t>& timeMs);

/// Which of the longer bars each bar belongs to: 0, 1, 2, ... Weeks begin on Monday, all else with the local
/// calendar. Minutes are those of trading: they are counted from the first bar of the day, and a break of a
/// quarter of an hour or more counts as one bar.
/// @return empty when the bars themselves are longer than the period.
ENGINE_EXPORT std::vector<std::size_t> groupsOf(const std::vector<std::int64_t>& timeMs,
                                                const Period& period);

/// The longer bars: first open, highest high, lowest low, last close, sums of volume and turnover, last open
/// interest, each over the values that are there. The second instrument is gathered in the same way, over
/// its bars that answer those of the first.
ENGINE_EXPORT BarSeries gathered(const BarSeries& bars, const std::vector<std::size_t>& groups);

} // namespace engine::language
