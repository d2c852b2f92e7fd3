// SPDX-License-Identifier: MIT
#include "draw/internal/BookSeries.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <vector>

namespace TC::detail {

namespace {

/// Positions of one side's series in the number-series table, best level first.
struct SidePositions
{
    std::array<int, kBookLevels> price, volume;
};
constexpr SidePositions kSide1 { { 1, 7, 11, 15, 19 }, { 5, 9, 13, 17, 21 } };
constexpr SidePositions kSide2 { { 0, 8, 12, 16, 20 }, { 6, 10, 14, 18, 22 } };
constexpr std::size_t kBookSeriesCount = 23;

constexpr double kLeastDepth = 1e-5; ///< volume behind the best levels from which on a trade has a book

} // namespace

BookSeries::BookSeries(const se::RPCFormulaResult& result)
{
    const auto& table = result.numberSeries;
    if (table.size() < kBookSeriesCount)
        return;
    std::size_t shortest = INT_MAX;
    const auto valuesAt = [&](int position) {
        const std::vector<double>& series = table[static_cast<std::size_t>(position)];
        shortest = std::min(shortest, series.size());
        return series.data();
    };
    for (std::size_t level = 0; level < kBookLevels; ++level) {
        m_side1[level] = { valuesAt(kSide1.price[level]), valuesAt(kSide1.volume[level]) };
        m_side2[level] = { valuesAt(kSide2.price[level]), valuesAt(kSide2.volume[level]) };
    }
    m_tradeCount = static_cast<int>(shortest);
}

double BookSeries::depthBehindBest(int bar) const
{
    double volume = 0.0;
    for (const SideSeries* side : { &m_side1, &m_side2 }) {
        for (std::size_t level = 1; level < side->size(); ++level)
            volume += (*side)[level].volume[bar];
    }
    return volume;
}

BookSide BookSeries::sideAt(const SideSeries& side, int bar)
{
    std::array<BookLevel, kBookLevels> levels;
    for (std::size_t level = 0; level < side.size(); ++level)
        levels[level] = { side[level].price[bar], side[level].volume[bar] };
    return BookSide(levels);
}

std::optional<OrderBook> BookSeries::at(int bar) const
{
    if (bar < 0 || bar >= m_tradeCount || !(depthBehindBest(bar) > kLeastDepth))
        return std::nullopt;
    return OrderBook { sideAt(m_side1, bar), sideAt(m_side2, bar) };
}

bool BookWalk::rises(int bar, double volume, double price, bool risesByPrice)
{
    const std::optional<OrderBook> book = m_books.at(bar);
    if (!book)
        return risesByPrice;
    // The book before the first trade is empty; nothing can be removed from it.
    const RemovedVolume removed = removedVolume(m_previous, *book);
    m_previous = *book;
    return risesByBook(removed, volume, price, risesByPrice);
}

} // namespace TC::detail
