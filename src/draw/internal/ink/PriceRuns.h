// SPDX-License-Identifier: MIT
#pragma once
/// @file The prices of a run of bars merged into one candle, at the speed of memory.

#include "draw/internal/CandleBuilder.h"

#include <cstddef>
#include <optional>

namespace TC::detail {

/// Bars that share a pixel column; `count` of each.
struct PriceRun
{
    const double *open, *high, *low, *close;
    const int* flags; ///< 0: the bar is not valid
    std::size_t count;
};

/// What a CandleBuilder comes to that is given the bars one by one, times `factor`: empty where it would have
/// more to decide, because a bar is not valid, lacks a price or jumps, or because the factor is not positive.
std::optional<Prices> mergePrices(const PriceRun& run, double factor, int period);

/// The same bar by bar: what a machine without vector instructions runs.
std::optional<Prices> mergePricesPlainly(const PriceRun& run, double factor, int period);

} // namespace TC::detail
