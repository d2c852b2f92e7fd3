// SPDX-License-Identifier: MIT
#pragma once
/// @file Names under which the tick pages keep their results.

namespace chart {

/// Trade prices: a main-chart series of the library, whose legend stands in the first row without a heading.
constexpr const char* kTickPrices = "TICKDATA";
/// Trade volumes: the name is shown in the legend.
constexpr const char* kTickVolumes = "成交量";

/// Makes both names known to the formula manager, so that legends can show them.
void registerTickFormulas();

} // namespace chart
