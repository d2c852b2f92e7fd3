// SPDX-License-Identifier: MIT
#include "engine/series/SeriesHead.h"

#include <algorithm>

namespace engine {

namespace {

template <typename Value>
void takeHead(std::vector<Value>& head, const std::vector<Value>& all, std::size_t count)
{
    head.assign(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(std::min(all.size(), count)));
}

} // namespace

BarSeries headOf(const BarSeries& bars, std::size_t count)
{
    BarSeries head;
    takeHead(head.timeMs, bars.timeMs, count);
    for (const auto column : { &BarSeries::open, &BarSeries::high, &BarSeries::low, &BarSeries::close,
                               &BarSeries::volume, &BarSeries::amount, &BarSeries::openInterest })
        takeHead(head.*column, bars.*column, count);
    head.floatingShares = bars.floatingShares;
    head.totalShares = bars.totalShares;
    head.index = bars.index;
    return head;
}

TickSeries headOf(const TickSeries& ticks, std::size_t count)
{
    TickSeries head;
    takeHead(head.timeMs, ticks.timeMs, count);
    takeHead(head.price, ticks.price, count);
    takeHead(head.volume, ticks.volume, count);
    for (const auto side : { &TickSeries::bid, &TickSeries::ask }) {
        for (std::size_t level = 0; level < kBookLevels; ++level) {
            takeHead((head.*side).price[level], (ticks.*side).price[level], count);
            takeHead((head.*side).volume[level], (ticks.*side).volume[level], count);
        }
    }
    return head;
}

} // namespace engine
