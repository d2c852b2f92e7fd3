// SPDX-License-Identifier: MIT
#pragma once
/// @file The order books of a result, trade by trade.

#include "draw/internal/BookRule.h"
#include "host/se/RPCFormulaResult.h"

#include <array>
#include <optional>

namespace TC::detail {

/// The books of a result: five levels a side at fixed positions of its number series.
class BookSeries
{
public:
    /// The result must outlive the object. One with too few series has no books.
    explicit BookSeries(const se::RPCFormulaResult& result);

    /// The book at a trade; empty where a series has no value for it, and where nothing stands on the
    /// levels behind the best ones.
    std::optional<OrderBook> at(int bar) const;

private:
    /// Values of one level over the trades.
    struct LevelSeries
    {
        const double* price = nullptr;
        const double* volume = nullptr;
    };
    using SideSeries = std::array<LevelSeries, kBookLevels>;

    static BookSide sideAt(const SideSeries& side, int bar);
    double depthBehindBest(int bar) const;

    SideSeries m_side1, m_side2;
    int m_tradeCount = 0; ///< trades that every series reaches
};

/// Follows the book over a run of trades.
class BookWalk
{
public:
    explicit BookWalk(const se::RPCFormulaResult& result)
        : m_books(result)
    {
    }

    /// Direction of the next trade of the run; see risesByBook. The first one with a book only fills it.
    bool rises(int bar, double volume, double price, bool risesByPrice);

private:
    BookSeries m_books;
    OrderBook m_previous;
};

} // namespace TC::detail
