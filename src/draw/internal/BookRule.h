// SPDX-License-Identifier: MIT
#pragma once
/// @file What left the order book between two trades, and what that says about the trade's direction.

#include <array>

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

} // namespace TC::detail
