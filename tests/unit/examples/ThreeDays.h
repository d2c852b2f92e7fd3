// SPDX-License-Identifier: MIT
#pragma once
/// @file The bars that the examples of the reference paint and compute from.

#include "engine/series/BarSeries.h"

namespace test {

//! [BarSeries]
inline engine::BarSeries threeDays()
{
    engine::BarSeries bars;
    bars.timeMs = { 0, 86'400'000, 172'800'000 };
    bars.open = { 10.0, 11.0, 10.5 };
    bars.high = { 11.5, 11.5, 12.5 };
    bars.low = { 9.5, 10.0, 10.5 };
    bars.close = { 11.0, 10.5, 12.0 };
    bars.volume = { 100.0, 90.0, 160.0 };
    return bars;
}
//! [BarSeries]

} // namespace test
