// SPDX-License-Identifier: MIT
#pragma once
/// @file Prices for benchmarks: the same random walk in every run.

#include "data/RPCFormulaResultCache.h"

#include <algorithm>
#include <cstddef>
#include <random>
#include <vector>

namespace bench {

/// Bars of a random walk around 1000.
struct RandomWalk
{
    explicit RandomWalk(std::size_t bars)
    {
        std::mt19937 random(42);
        std::normal_distribution<double> step(0.0, 1.0);
        double price = 1000.0;
        for (std::size_t bar = 0; bar < bars; ++bar) {
            open.push_back(price);
            price = std::max(1.0, price + step(random));
            close.push_back(price);
            high.push_back(std::max(open.back(), close.back()) + 0.5);
            low.push_back(std::min(open.back(), close.back()) - 0.5);
            volume.push_back(1000.0 + 100.0 * std::abs(step(random)));
        }
    }

    std::vector<double> open, high, low, close, volume;
};

/// A record with one output that is drawn from the given columns.
inline TC::RPCFormulaResultCache recordOf(int drawType, const std::vector<std::vector<double>>& columns)
{
    TC::RPCFormulaResultCache cache;
    cache.meta.outputCount = 1;
    cache.meta.outputNames = { "out" };
    cache.meta.drawType = { drawType };
    cache.meta.color = { 0x00FFFF };
    cache.meta.colorSet = { 1 };
    cache.meta.lineStyle = { 0 };
    cache.meta.lineWidth = { 1 };
    cache.meta.position = { 0 };
    cache.meta.valueKind = { 0 };
    cache.meta.outputColumns.emplace_back();
    for (const std::vector<double>& column : columns) {
        const int index = static_cast<int>(cache.result.columnSeries.size());
        cache.meta.outputColumns.front().push_back(index);
        cache.result.columnSeries.push_back(index);
        cache.result.columnType.push_back(0);
        cache.result.columnNeedsAxis.push_back(1);
        cache.result.numberSeries.push_back(column);
    }
    cache.result.barTimes.resize(columns.front().size());
    cache.result.barValid.assign(columns.front().size(), 1);
    return cache;
}

} // namespace bench
