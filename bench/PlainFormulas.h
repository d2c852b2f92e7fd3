// SPDX-License-Identifier: MIT
#pragma once
/// @file Formulas as loops written by hand: one loop over the bars each, with no thought of missing values.
/// What the engine is measured against; compiled with -O2. The lines alone are less than what the engine
/// delivers: sameWork() hands out as much as it does.

#include "engine/series/BarSeries.h"

#include "engine/records/FormulaRecords.h"

#include <vector>

namespace bench {

/// The lines of a formula in the order of its outputs; kMissingMarker before their first values.
using Lines = std::vector<std::vector<double>>;

Lines plainMacd(const engine::BarSeries& bars);    ///< EMA 12, 26, 9
Lines plainKdj(const engine::BarSeries& bars);     ///< 9, 3, 3
Lines plainBands(const engine::BarSeries& bars);   ///< 20 bars, 2 deviations, added up anew on each bar
Lines plainMeans(const engine::BarSeries& bars);   ///< 5, 10, 20, 60, running sums
Lines exactMeans(const engine::BarSeries& bars);   ///< the same, sums with their rounding errors
Lines plainSar(const engine::BarSeries& bars);     ///< 4, 2 %, 20 %, and what is below and above the close
Lines plainDmi(const engine::BarSeries& bars);     ///< 14, 6, running sums
Lines exactDmi(const engine::BarSeries& bars);     ///< the same, sums with their rounding errors
Lines plainHighest(const engine::BarSeries& bars); ///< 20 bars

/// What the engine delivers: the lines as records, with a time and a flag for every bar and the marker where
/// a line has no finite value.
engine::FormulaRecords sameWork(Lines (*lines)(const engine::BarSeries&), const engine::BarSeries& bars);

} // namespace bench
