// SPDX-License-Identifier: MIT
#pragma once
/// @file The beginning of a series.

#include "engine/EngineExport.h"
#include "engine/series/BarSeries.h"
#include "engine/series/TickSeries.h"

namespace engine {

/// The first bars, no more than so many; numbers of shares and the second instrument stay.
ENGINE_EXPORT BarSeries headOf(const BarSeries& bars, std::size_t count);

/// The first trades, no more than so many.
ENGINE_EXPORT TickSeries headOf(const TickSeries& ticks, std::size_t count);

} // namespace engine
