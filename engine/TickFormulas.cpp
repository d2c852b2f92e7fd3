// SPDX-License-Identifier: MIT
#include "engine/TickFormulas.h"

#include "engine/records/RecordBuilder.h"

#include <algorithm>

namespace engine {

namespace {

/// Where the order book stands in the number series of the tick volumes, level by level.
struct BookSeries
{
    int price[kBookLevels];
    int volume[kBookLevels];
};
constexpr BookSeries kAskSeries { { 1, 7, 11, 15, 19 }, { 5, 9, 13, 17, 21 } };
constexpr BookSeries kBidSeries { { 0, 8, 12, 16, 20 }, { 6, 10, 14, 18, 22 } };
constexpr std::size_t kSeriesWithoutDepth = 5, kSeriesWithDepth = 23;

/// One entry per trade, the marker, or zero for volumes of the book, where a value is missing.
Series cleaned(const Series& values, std::size_t count, double whenMissing = kMissingMarker)
{
    Series clean(count, whenMissing);
    for (std::size_t trade = 0; trade < std::min(count, values.size()); ++trade)
        clean[trade] = isMissing(valueOrMissing(values[trade])) ? whenMissing : values[trade];
    return clean;
}

/// Price times volume, where there are both.
Series turnoverOf(const Series& prices, const Series& volumes)
{
    Series turnover(prices.size(), kMissingMarker);
    for (std::size_t trade = 0; trade < prices.size(); ++trade) {
        const double product = valueOrMissing(prices[trade]) * valueOrMissing(volumes[trade]);
        if (!isMissing(valueOrMissing(product)))
            turnover[trade] = product;
    }
    return turnover;
}

void putSide(std::vector<Series>& table, const BookSide& side, const BookSeries& places, std::size_t count)
{
    for (std::size_t level = 0; level < kBookLevels; ++level) {
        table[static_cast<std::size_t>(places.price[level])] = cleaned(side.price[level], count);
        table[static_cast<std::size_t>(places.volume[level])] = cleaned(side.volume[level], count, 0.0);
    }
}

FormulaRecords pricesOf(const TickSeries& ticks)
{
    const std::size_t count = ticks.size();
    RecordBuilder records;
    Series price = cleaned(ticks.price, count);
    records.setBars(ticks.timeMs, price);
    const int prices = records.series(std::move(price)),
              volume = records.series(cleaned(ticks.volume, count));
    const int bid = records.series(cleaned(ticks.bid.price[0], count));
    const int ask = records.series(cleaned(ticks.ask.price[0], count));
    records.output("最新价", se::DrawType::Tick).column(prices, Axis::Yes);
    records.legendOnly("成交量", volume).legendOnly("买一", bid).legendOnly("卖一", ask);
    return records.take();
}

FormulaRecords volumesOf(const TickSeries& ticks)
{
    enum : std::size_t { BestBid, BestAsk, Volume, Price, Turnover };
    const std::size_t count = ticks.size();
    std::vector<Series> table(ticks.hasDepth() ? kSeriesWithDepth : kSeriesWithoutDepth);
    table[BestBid] = cleaned(ticks.bid.price[0], count);
    table[BestAsk] = cleaned(ticks.ask.price[0], count);
    table[Volume] = cleaned(ticks.volume, count);
    table[Price] = cleaned(ticks.price, count);
    table[Turnover] = turnoverOf(table[Price], table[Volume]);
    if (ticks.hasDepth()) {
        putSide(table, ticks.ask, kAskSeries, count);
        putSide(table, ticks.bid, kBidSeries, count);
    }

    RecordBuilder records;
    records.setBars(ticks.timeMs, table[Price]);
    for (Series& values : table)
        records.series(std::move(values));
    records.output("成交量", se::DrawType::TickVolume).column(Volume, Axis::Yes);
    records.column(Turnover, Axis::No).column(Price, Axis::No);
    return records.take();
}

} // namespace

TickRecords computeTicks(const TickSeries& ticks)
{
    return { pricesOf(ticks), volumesOf(ticks) };
}

} // namespace engine
