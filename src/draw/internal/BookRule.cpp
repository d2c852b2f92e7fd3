// SPDX-License-Identifier: MIT
#include "draw/internal/BookRule.h"

#include "draw/CDrawStyle.h"
#include "draw/internal/Numbers.h"

#include <algorithm>
#include <climits>

namespace TC::detail {

namespace {

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

} // namespace TC::detail
