// SPDX-License-Identifier: MIT
#include "draw/CDrawStyle.h"
#include "draw/internal/BookSeries.h"
#include "tests/support/BookFormula.h"
#include "tests/support/Seeds.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstring>
#include <map>
#include <random>

using namespace TC::detail;
using test::BookTrade;

namespace {

/// The rule of the book told once more, with maps and without any thought for speed.
class PlainBookWalk
{
public:
    using Book = std::map<int, double>;

    explicit PlainBookWalk(const se::RPCFormulaResult& result)
        : m_table(result.numberSeries)
    {
    }

    double removed1 = 0.0, removed2 = 0.0; ///< of the trade asked for last

    bool rises(int bar, double volume, double price, bool plain)
    {
        double depth = 0.0;
        for (int series : { 9, 13, 17, 21, 10, 14, 18, 22 })
            depth += value(series, bar);
        if (!(depth > 1e-5))
            return plain;

        Book side1, side2;
        std::vector<double> prices1, prices2;
        fill(side1, prices1, test::kSide1Prices, test::kSide1Volumes, bar);
        fill(side2, prices2, test::kSide2Prices, test::kSide2Volumes, bar);
        removed1 =
            removed(m_previous1, side1, side2, prices1, [](double p, double gone) { return p > gone; });
        removed2 =
            removed(m_previous2, side2, side1, prices2, [](double p, double gone) { return p < gone; });
        const bool isFirst = m_isFirst;
        m_isFirst = false;
        m_previous1 = side1;
        m_previous2 = side2;
        if (isFirst)
            return plain;

        if (1.5 * volume >= removed1 && removed1 > 6 * removed2
            && (removed1 >= 500 || removed1 * 100 * price >= 500000.0))
            return true;
        if (1.5 * volume >= removed2 && (removed2 >= 500 || removed2 * 100 * price >= 500000.0)) {
            if (removed2 > 6 * removed1)
                return false;
        }
        return plain;
    }

private:
    using Positions = std::array<int, kBookLevels>;

    double value(int series, int bar) const
    {
        return m_table[static_cast<std::size_t>(series)][static_cast<std::size_t>(bar)];
    }

    void fill(Book& side, std::vector<double>& prices, const Positions& price, const Positions& volume,
              int bar)
    {
        for (std::size_t level = 0; level < price.size(); ++level) {
            side[TC::buildQuoteKey(value(price[level], bar))] = value(volume[level], bar);
            prices.push_back(value(price[level], bar));
        }
    }

    template <class Beyond>
    static double removed(const Book& previous, const Book& current, const Book& other,
                          const std::vector<double>& prices, Beyond beyond)
    {
        double sum = 0.0;
        for (const auto& [key, volume] : previous) {
            if (current.count(key)) {
                if (volume > current.at(key))
                    sum += volume - current.at(key);
            } else if (other.count(key)) {
                sum += volume;
            } else {
                bool hasBeyond = false;
                for (double price : prices)
                    hasBeyond = hasBeyond || beyond(price, key * 0.001);
                if (!hasBeyond)
                    sum += volume;
            }
        }
        return sum;
    }

    const std::vector<std::vector<double>>& m_table;
    Book m_previous1, m_previous2;
    bool m_isFirst = true;
};

/// A day of books whose prices move by few ticks, so that keys meet, move over and vanish.
class RandomBooks
{
public:
    explicit RandomBooks(unsigned seed)
        : m_random(seed)
        , m_isDamaged(seed % 4 == 0)
    {
    }

    std::vector<BookTrade> trades(int count)
    {
        std::vector<BookTrade> all;
        int best = 10000;
        for (int trade = 0; trade < count; ++trade) {
            best += pick(-2, 2);
            BookTrade next { best * 0.001, pick(0, 3) * 300.0, {}, {} };
            for (int level = 0; level < kBookLevels; ++level) {
                const auto at = static_cast<std::size_t>(level);
                next.side1[at] = { price(best + pick(0, 1) + level), volume() };
                next.side2[at] = { price(best - pick(0, 1) - level), volume() };
            }
            if (pick(0, 9) == 0)
                hollowOut(next);
            all.push_back(next);
        }
        return all;
    }

private:
    int pick(int lowest, int highest)
    {
        return std::uniform_int_distribution<int>(lowest, highest)(m_random);
    }

    double wild()
    {
        static const double values[] = { NAN, INFINITY, -INFINITY, DBL_MAX, -DBL_MAX, 0.0, -10.0, 3e6 };
        return values[pick(0, static_cast<int>(std::size(values)) - 1)];
    }
    double price(int thousandths)
    {
        return m_isDamaged && pick(0, 19) == 0 ? wild() : thousandths / 1000.0 + pick(-1, 1) * 0.0002;
    }
    double volume()
    {
        return m_isDamaged && pick(0, 19) == 0 ? wild() : pick(0, 3) == 0 ? pick(0, 12) * 50.1 : 0.7;
    }
    static void hollowOut(BookTrade& trade)
    {
        for (std::size_t level = 1; level < kBookLevels; ++level)
            trade.side1[level].volume = trade.side2[level].volume = 0.0;
    }

    std::mt19937 m_random;
    bool m_isDamaged;
};

/// Equal to the last bit, NaN included.
bool isSame(double a, double b)
{
    return (a == b && std::signbit(a) == std::signbit(b)) || (std::isnan(a) && std::isnan(b));
}

} // namespace

TEST(BookWalkOnRandomBooks, AgreesWithThePlainRuleOverMaps)
{
    constexpr int tradeCount = 60;
    int overridden = 0;
    for (const unsigned seed : test::seedsFor("book_change", 2000)) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        const std::vector<BookTrade> trades = RandomBooks(seed).trades(tradeCount);
        const auto cache = test::bookFormula(trades);
        BookWalk walk(cache.result);
        PlainBookWalk plain(cache.result);
        const BookSeries books(cache.result);
        OrderBook previous;
        for (int bar = 0; bar < tradeCount; ++bar) {
            const BookTrade& trade = trades[static_cast<std::size_t>(bar)];
            const bool byPrice = bar % 2 == 0;
            const bool expected = plain.rises(bar, trade.volume, trade.price, byPrice);
            ASSERT_EQ(walk.rises(bar, trade.volume, trade.price, byPrice), expected) << "trade " << bar;
            overridden += expected != byPrice;
            if (const auto book = books.at(bar)) {
                const RemovedVolume removed = removedVolume(previous, *book);
                ASSERT_TRUE(isSame(removed.side1, plain.removed1)) << "trade " << bar;
                ASSERT_TRUE(isSame(removed.side2, plain.removed2)) << "trade " << bar;
                previous = *book;
            }
        }
    }
    EXPECT_GT(overridden, 1000); // the rule is at work
}
