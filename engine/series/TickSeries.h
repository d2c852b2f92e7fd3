// SPDX-License-Identifier: MIT
#pragma once
/// @file Trades of one day with the order book around them.

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace engine {

/// Most levels that a book has on each side.
constexpr std::size_t kBookLevels = 5;

/// One side of the order book, per level and trade; level 0 is the best.
struct BookSide
{
    std::array<std::vector<double>, kBookLevels> price; ///< kMissingMarker where nobody quotes
    std::array<std::vector<double>, kBookLevels>
        volume; ///< empty vectors when only the best prices are known
};

/// Trades in time order; the vectors have one entry per trade, except those of levels that are not known,
/// which are empty. Several trades may share a time.
struct TickSeries
{
    std::vector<std::int64_t> timeMs; ///< milliseconds since 1970-01-01 UTC
    std::vector<double> price;        ///< kMissingMarker where there is none
    std::vector<double> volume;       ///< in the unit of the source: shares, or lots
    BookSide bid;                     ///< the book around each trade: those who buy
    BookSide ask;                     ///< those who sell

    /// Number of trades.
    std::size_t size() const { return timeMs.size(); }
    /// Whether all five levels and their volumes are known.
    bool hasDepth() const { return !bid.volume[0].empty(); }
};

} // namespace engine
