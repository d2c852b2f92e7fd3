// SPDX-License-Identifier: MIT
#pragma once
/// @file Bars of one instrument on the times of another.

#include "engine/series/BarSeries.h"

namespace chart {

/// `other` with one bar per time of `times`: the bar of that time; where there is none, a bar that stands
/// still on the last close with volume 0; before the first bar the first open. Empty when `other` is empty.
engine::BarSeries alignedTo(const std::vector<std::int64_t>& times, const engine::BarSeries& other);

} // namespace chart
