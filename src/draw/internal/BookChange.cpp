#include "draw/internal/BookChange.h"

#include "draw/CDrawStyle.h"
#include "draw/internal/Numbers.h"

#include <algorithm>
#include <climits>

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

constexpr double kLeastDepth = 1e-5;   ///< volume behind the best levels from which on a trade has a book
constexpr double kTradeShare = 1.5;    ///< the trade times this covers what was removed
constexpr double kSideShare = 6.0;     ///< one side lost more than this many times the other
constexpr double kLargeVolume = 500.0; ///< in lots
constexpr double kSharesPerLot = 100.0;
constexpr double kLargeAmount = 500000.0; ///< in units of money

bool isLarge(double removed, double price)
{
    return removed >= kLargeVolume || removed * kSharesPerLot * price >= kLargeAmount;
}

/// Volume that left one side.
/// @param movedAway  whether the side now shows a price beyond the given one.
template <class MovedAway>
double removedFrom(const BookSide& previous, const BookSide& current, const BookSide& otherSide,
                   MovedAway movedAway)
{
    double removed = 0.0;
    for (const BookSide::Entry& level : previous) {
        if (const double* left = current.volumeAt(level.key)) {
            if (level.volume > *left)
                removed += level.volume - *left;
        } else if (otherSide.volumeAt(level.key) || !movedAway(level.key * 0.001)) {
            removed += level.volume;
        }
    }
    return removed;
}

} // namespace

BookSide::BookSide(const std::array<BookLevel, kBookLevels>& levels)
{
    for (std::size_t level = 0; level < levels.size(); ++level) {
        m_prices[level] = levels[level].price;
        assign(buildQuoteKey(levels[level].price), levels[level].volume);
    }
}

void BookSide::assign(int key, double volume)
{
    Entry* const last = m_entries.data() + m_count;
    Entry* const place = std::find_if(m_entries.data(), last, [&](const Entry& e) { return e.key >= key; });
    if (place == last || place->key != key) {
        std::move_backward(place, last, last + 1);
        ++m_count;
    }
    *place = { key, volume };
}

const double* BookSide::volumeAt(int key) const
{
    const Entry* const found = std::find_if(begin(), end(), [&](const Entry& e) { return e.key == key; });
    return found == end() ? nullptr : &found->volume;
}

bool BookSide::hasPriceAbove(double price) const
{
    return m_count > 0 && std::any_of(m_prices.begin(), m_prices.end(), [&](double p) { return p > price; });
}

bool BookSide::hasPriceBelow(double price) const
{
    return m_count > 0 && std::any_of(m_prices.begin(), m_prices.end(), [&](double p) { return p < price; });
}

RemovedVolume removedVolume(const OrderBook& previous, const OrderBook& current)
{
    return { removedFrom(previous.side1, current.side1, current.side2,
                         [&](double price) { return current.side1.hasPriceAbove(price); }),
             removedFrom(previous.side2, current.side2, current.side1,
                         [&](double price) { return current.side2.hasPriceBelow(price); }) };
}

bool risesByBook(const RemovedVolume& removed, double volume, double price, bool rises)
{
    const double covered = kTradeShare * volume;
    if (covered >= removed.side1 && removed.side1 > kSideShare * removed.side2
        && isLarge(removed.side1, price))
        return true;
    // Side 2 decides only where side 1 did not.
    if (covered >= removed.side2 && isLarge(removed.side2, price))
        return removed.side2 > kSideShare * removed.side1 ? false : rises;
    return rises;
}

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
