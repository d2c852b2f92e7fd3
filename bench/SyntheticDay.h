// SPDX-License-Identifier: MIT
#pragma once
/// @file A day of trades for benchmarks: the same in every run.

#include "data/RPCFormulaResultCache.h"

#include <cstddef>
#include <random>
#include <vector>

namespace bench {

constexpr int kBookSeries = 23;

/// A synthetic day: prices walk by ticks of 0.01, most trades at the best bid or ask, five book levels a
/// side whose volumes change from trade to trade.
inline TC::RPCFormulaResultCache syntheticDay(int tradeCount)
{
    std::mt19937 random(20250407);
    const auto pick = [&](int lowest, int highest) {
        return std::uniform_int_distribution<int>(lowest, highest)(random);
    };
    const auto count = static_cast<std::size_t>(tradeCount);
    using Values = std::vector<double>;
    TC::RPCFormulaResultCache cache;
    auto& table = cache.result.numberSeries;
    table.assign(kBookSeries + 2, Values(count)); // the book, then price and volume
    static constexpr int bidPrices[] = { 0, 8, 12, 16, 20 }, bidVolumes[] = { 6, 10, 14, 18, 22 };
    static constexpr int askPrices[] = { 1, 7, 11, 15, 19 }, askVolumes[] = { 5, 9, 13, 17, 21 };
    int bid = 5000;
    for (std::size_t trade = 0; trade < count; ++trade) {
        bid += pick(0, 9) == 0 ? pick(-1, 1) : 0;
        for (int level = 0; level < 5; ++level) {
            table[static_cast<std::size_t>(bidPrices[level])][trade] = (bid - level) * 0.01;
            table[static_cast<std::size_t>(askPrices[level])][trade] = (bid + 1 + level) * 0.01;
            table[static_cast<std::size_t>(bidVolumes[level])][trade] = pick(1, 900);
            table[static_cast<std::size_t>(askVolumes[level])][trade] = pick(1, 900);
        }
        table[2][trade] = bid * 0.01;
        table[3][trade] = (bid + 1) * 0.01;
        table[kBookSeries][trade] = (bid + pick(0, 1)) * 0.01;
        table[kBookSeries + 1][trade] = pick(1, 1000);
    }
    cache.result.barTimes.resize(count);
    cache.result.barValid.assign(count, 1);
    cache.result.columnSeries = { kBookSeries, kBookSeries + 1, kBookSeries + 1, kBookSeries };
    cache.result.columnType.assign(4, 0);
    cache.result.columnNeedsAxis.assign(4, 1);
    cache.meta.outputCount = 2;
    cache.meta.outputColumns = { { 0 }, { 1, 2, 3 } }; // price; volume, (unused), price
    return cache;
}

} // namespace bench
