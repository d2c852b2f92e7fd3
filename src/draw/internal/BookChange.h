#pragma once
/// @file What left the order book between two trades, and what that says about the trade's direction.

#include "host/se/RPCFormulaResult.h"

#include <array>
#include <optional>
#include <vector>

namespace TC::detail {

constexpr int kBookLevels = 5;

/// One price of one side of the book.
struct BookLevel
{
    double price = 0.0;
    double volume = 0.0;
};

/// One side of the book at one trade: volumes by price key (see TC::buildQuoteKey), keys rising. It holds
/// five levels in place, so that a walk over many trades allocates nothing.
class BookSide
{
public:
    struct Entry
    {
        int key = 0;
        double volume = 0.0;
    };

    /// A side without levels.
    BookSide() = default;
    /// Levels in the order of the feed; where two share a key, the last one's volume counts.
    explicit BookSide(const std::array<BookLevel, kBookLevels>& levels);

    /// Volume at a key; null when the side has no such price.
    const double* volumeAt(int key) const;

    /// Whether a level's price, as the feed gave it, lies above or below `price`; no tolerance.
    bool hasPriceAbove(double price) const;
    bool hasPriceBelow(double price) const;

    const Entry* begin() const { return m_entries.data(); }
    const Entry* end() const { return m_entries.data() + m_count; }

private:
    void assign(int key, double volume);

    std::array<Entry, kBookLevels> m_entries;
    std::array<double, kBookLevels> m_prices {}; ///< unrounded; read where there are entries
    int m_count = 0;
};

/// Both sides of the book at one trade. Side 1 is the asking side, side 2 the bidding side.
struct OrderBook
{
    BookSide side1, side2;
};

/// Volume that left each side between two trades.
struct RemovedVolume
{
    double side1 = 0.0;
    double side2 = 0.0;
};

/// Volume of `previous` that `current` no longer shows, per side. What shrank counts by the difference,
/// what moved to the other side counts whole. A price gone from both sides counts whole as well, but only
/// when side 1 shows no higher price any more (side 2: no lower one).
RemovedVolume removedVolume(const OrderBook& previous, const OrderBook& current);

/// Direction of a trade after what left the book: a removal about as large as the trade, far larger than
/// on the other side and large in itself decides it; otherwise `rises` stands.
/// @param rises  direction by the prices alone.
bool risesByBook(const RemovedVolume& removed, double volume, double price, bool rises);

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
