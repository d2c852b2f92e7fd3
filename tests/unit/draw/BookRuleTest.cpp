// SPDX-License-Identifier: MIT
#include "draw/internal/BookSeries.h"
#include "tests/support/BookFormula.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>

using namespace TC::detail;
using test::bookFormula;
using test::BookTrade;

namespace {

/// Levels that the test names; the rest stand at price 0 without volume.
test::BookLevels levels(std::initializer_list<BookLevel> named)
{
    test::BookLevels all {};
    std::copy(named.begin(), named.end(), all.begin());
    return all;
}

/// All five levels at one price, so that no other price plays a part.
test::BookLevels onePrice(double price, double volume)
{
    test::BookLevels all {};
    all.fill({ price, volume });
    return all;
}

OrderBook book(const test::BookLevels& side1, const test::BookLevels& side2)
{
    return { BookSide(side1), BookSide(side2) };
}

std::vector<std::pair<int, double>> entries(const BookSide& side)
{
    std::vector<std::pair<int, double>> all;
    for (const BookSide::Entry& entry : side)
        all.emplace_back(entry.key, entry.volume);
    return all;
}

using Entries = std::vector<std::pair<int, double>>;

} // namespace

TEST(BookSideOfATrade, SortsItsLevelsByPriceKey)
{
    const BookSide side(levels({ { 10.0, 1 }, { 9.9, 2 }, { 10.2, 3 }, { 9.8, 4 }, { 10.1, 5 } }));

    EXPECT_EQ(entries(side),
              (Entries { { 9800, 4 }, { 9900, 2 }, { 10000, 1 }, { 10100, 5 }, { 10200, 3 } }));
}

TEST(BookSideOfATrade, KeepsTheLastOfTwoLevelsAtOnePrice)
{
    const BookSide side(levels({ { 10.0, 1 }, { 9.9, 2 }, { 10.0004, 3 }, { 9.8, 4 }, { 9.9, 5 } }));

    EXPECT_EQ(entries(side), (Entries { { 9800, 4 }, { 9900, 5 }, { 10000, 3 } }));
}

TEST(BookSideOfATrade, TellsWhetherAPriceLiesBeyondAnother)
{
    const BookSide side(onePrice(10.0, 1));

    EXPECT_TRUE(side.hasPriceAbove(9.999));
    EXPECT_FALSE(side.hasPriceAbove(10.0));
    EXPECT_TRUE(side.hasPriceBelow(10.001));
    EXPECT_FALSE(side.hasPriceBelow(10.0));
}

TEST(BookSideOfATrade, ComparesUnroundedPrices)
{
    const BookSide side(onePrice(10.0004, 1)); // key 10000

    EXPECT_TRUE(side.hasPriceAbove(10.0));
    EXPECT_FALSE(side.hasPriceBelow(10.0));
}

TEST(BookSideOfATrade, WithoutLevelsHasNoPrice)
{
    const BookSide side {};

    EXPECT_TRUE(entries(side).empty());
    EXPECT_EQ(side.volumeAt(0), nullptr);
    EXPECT_FALSE(side.hasPriceAbove(-1.0));
    EXPECT_FALSE(side.hasPriceBelow(1.0));
}

TEST(BookSideOfATrade, KeepsLevelsWithoutAPriceAtTheLimitKeys)
{
    const BookSide side(levels({ { DBL_MAX, 1 }, { NAN, 2 }, { -INFINITY, 3 } }));

    EXPECT_EQ(entries(side),
              (Entries { { INT_MIN, 3 }, { 0, 0 }, { INT_MAX, 1 } })); // NaN, 0 and 0 share a key
}

TEST(RemovedVolumeOfSide1, CountsWhatShrankAndNotWhatGrew)
{
    const auto side2 = onePrice(1.0, 0);
    const OrderBook before = book(onePrice(10.0, 300), side2);

    EXPECT_EQ(removedVolume(before, book(onePrice(10.0, 100), side2)).side1, 200.0);
    EXPECT_EQ(removedVolume(before, book(onePrice(10.0, 300), side2)).side1, 0.0);
    EXPECT_EQ(removedVolume(before, book(onePrice(10.0, 400), side2)).side1, 0.0);
}

TEST(RemovedVolumeOfSide1, CountsWholeWhatMovedToTheOtherSide)
{
    // A higher price on side 1 does not matter then.
    const OrderBook before = book(onePrice(10.0, 300), onePrice(9.0, 0));
    const OrderBook after = book(onePrice(11.0, 50), onePrice(10.0, 5));

    EXPECT_EQ(removedVolume(before, after).side1, 300.0);
}

TEST(RemovedVolumeOfSide1, CountsAVanishedPriceOnlyWithoutAHigherOne)
{
    const auto side2 = onePrice(1.0, 0);
    const OrderBook before = book(onePrice(10.0, 300), side2);

    EXPECT_EQ(removedVolume(before, book(onePrice(9.9, 50), side2)).side1, 300.0);
    EXPECT_EQ(removedVolume(before, book(onePrice(10.1, 50), side2)).side1, 0.0);
}

TEST(RemovedVolumeOfSide2, CountsWhatShrankAndNotWhatGrew)
{
    const auto side1 = onePrice(20.0, 0);
    const OrderBook before = book(side1, onePrice(10.0, 300));

    EXPECT_EQ(removedVolume(before, book(side1, onePrice(10.0, 100))).side2, 200.0);
    EXPECT_EQ(removedVolume(before, book(side1, onePrice(10.0, 400))).side2, 0.0);
}

TEST(RemovedVolumeOfSide2, CountsWholeWhatMovedToTheOtherSide)
{
    const OrderBook before = book(onePrice(11.0, 0), onePrice(10.0, 300));
    const OrderBook after = book(onePrice(10.0, 5), onePrice(9.0, 50));

    EXPECT_EQ(removedVolume(before, after).side2, 300.0);
}

TEST(RemovedVolumeOfSide2, CountsAVanishedPriceOnlyWithoutALowerOne)
{
    const auto side1 = onePrice(20.0, 0);
    const OrderBook before = book(side1, onePrice(10.0, 300));

    EXPECT_EQ(removedVolume(before, book(side1, onePrice(10.1, 50))).side2, 300.0);
    EXPECT_EQ(removedVolume(before, book(side1, onePrice(9.9, 50))).side2, 0.0);
}

TEST(RemovedVolumeOfBothSides, IsZeroAfterAnEmptyBook)
{
    const RemovedVolume removed = removedVolume({}, book(onePrice(10.0, 300), onePrice(9.0, 300)));

    EXPECT_EQ(removed.side1, 0.0);
    EXPECT_EQ(removed.side2, 0.0);
}

TEST(RisesByBook, RisesAfterALargeRemovalOnSide1)
{
    EXPECT_TRUE(risesByBook({ 600.0, 0.0 }, 400.0, 1.0, false)); // 1.5 * 400 = 600
    EXPECT_TRUE(risesByBook({ 600.0, 99.0 }, 400.0, 1.0, false));
}

TEST(RisesByBook, KeepsTheDirectionWhenTheTradeDoesNotCoverTheRemoval)
{
    EXPECT_FALSE(risesByBook({ 600.0, 0.0 }, 399.0, 1.0, false));
    EXPECT_TRUE(risesByBook({ 0.0, 600.0 }, 399.0, 1.0, true));
}

TEST(RisesByBook, KeepsTheDirectionWhenTheOtherSideLostTooMuch)
{
    EXPECT_FALSE(risesByBook({ 600.0, 100.0 }, 400.0, 1.0, false)); // 600 is not above 6 * 100
    EXPECT_TRUE(risesByBook({ 100.0, 600.0 }, 400.0, 1.0, true));
}

TEST(RisesByBook, TakesASmallRemovalOnlyWhenItsAmountIsLarge)
{
    EXPECT_TRUE(risesByBook({ 500.0, 0.0 }, 400.0, 1.0, false));
    EXPECT_FALSE(risesByBook({ 499.0, 0.0 }, 400.0, 1.0, false));
    EXPECT_TRUE(risesByBook({ 50.0, 0.0 }, 400.0, 100.0, false)); // 50 * 100 * 100 = 500000
    EXPECT_FALSE(risesByBook({ 50.0, 0.0 }, 400.0, 99.0, false));
    EXPECT_FALSE(risesByBook({ 0.0, 500.0 }, 400.0, 1.0, true));
    EXPECT_TRUE(risesByBook({ 0.0, 499.0 }, 400.0, 1.0, true));
    EXPECT_FALSE(risesByBook({ 0.0, 50.0 }, 400.0, 100.0, true));
    EXPECT_TRUE(risesByBook({ 0.0, 50.0 }, 400.0, 99.0, true));
}

TEST(RisesByBook, FallsAfterALargeRemovalOnSide2)
{
    EXPECT_FALSE(risesByBook({ 0.0, 600.0 }, 400.0, 1.0, true));
    EXPECT_FALSE(risesByBook({ 99.0, 600.0 }, 400.0, 1.0, true));
}

TEST(RisesByBook, AsksSide1First)
{
    // Both rules can hold at once only in a damaged book, with less than nothing removed: at a price of
    // -500, -60 and -20 are covered, large (60 * 100 * 500), and each above six times the other.
    EXPECT_TRUE(risesByBook({ -60.0, -20.0 }, 400.0, -500.0, false));
    EXPECT_TRUE(risesByBook({ -20.0, -60.0 }, 400.0, -500.0, false));
}

TEST(RisesByBook, KeepsTheDirectionWithoutAnyRemovalOrWithoutNumbers)
{
    for (bool rises : { false, true }) {
        EXPECT_EQ(risesByBook({ 0.0, 0.0 }, 400.0, 10.0, rises), rises);
        EXPECT_EQ(risesByBook({ NAN, 600.0 }, 400.0, 1.0, rises), rises);
        EXPECT_EQ(risesByBook({ 600.0, NAN }, 400.0, 1.0, rises), rises);
        EXPECT_EQ(risesByBook({ 600.0, 0.0 }, NAN, 1.0, rises), rises);
    }
}

TEST(BookSeriesOfAResult, ReadsFiveLevelsOfEachSide)
{
    const auto cache =
        bookFormula({ { 10.0, 1.0, levels({ { 1, 11 }, { 2, 12 }, { 3, 13 }, { 4, 14 }, { 5, 15 } }),
                        levels({ { 6, 16 }, { 7, 17 }, { 8, 18 }, { 9, 19 }, { 10, 20 } }) } });

    const auto read = BookSeries(cache.result).at(0);

    ASSERT_TRUE(read);
    EXPECT_EQ(entries(read->side1),
              (Entries { { 1000, 11 }, { 2000, 12 }, { 3000, 13 }, { 4000, 14 }, { 5000, 15 } }));
    EXPECT_EQ(entries(read->side2),
              (Entries { { 6000, 16 }, { 7000, 17 }, { 8000, 18 }, { 9000, 19 }, { 10000, 20 } }));
}

TEST(BookSeriesOfAResult, HasNoBookWhereOnlyTheBestLevelsHoldVolume)
{
    const auto best = levels({ { 10.0, 900 } });
    EXPECT_FALSE(BookSeries(bookFormula({ { 10.0, 1.0, best, best } }).result).at(0));

    // Any one of the eight levels behind the best ones makes a book, from more than 1e-5 on.
    for (std::size_t level = 1; level < kBookLevels; ++level) {
        auto deep = best;
        deep[level].volume = 2e-5;
        EXPECT_TRUE(BookSeries(bookFormula({ { 10.0, 1.0, deep, best } }).result).at(0)) << level;
        EXPECT_TRUE(BookSeries(bookFormula({ { 10.0, 1.0, best, deep } }).result).at(0)) << level;
        deep[level].volume = 1e-5;
        EXPECT_FALSE(BookSeries(bookFormula({ { 10.0, 1.0, deep, best } }).result).at(0)) << level;
    }
}

TEST(BookSeriesOfAResult, HasNoBookWithFewerThan23Series)
{
    auto cache = bookFormula({ { 10.0, 1.0, onePrice(10.1, 50), onePrice(10.0, 50) } });
    cache.result.numberSeries.resize(23);
    EXPECT_TRUE(BookSeries(cache.result).at(0));

    cache.result.numberSeries.resize(22);
    EXPECT_FALSE(BookSeries(cache.result).at(0));
}

TEST(BookSeriesOfAResult, HasNoBookWhereASeriesEnds)
{
    auto cache = bookFormula({ { 10.0, 1.0, onePrice(10.1, 50), onePrice(10.0, 50) },
                               { 10.0, 1.0, onePrice(10.1, 50), onePrice(10.0, 50) } });
    cache.result.numberSeries[22].resize(1);
    const BookSeries books(cache.result);

    EXPECT_TRUE(books.at(0));
    EXPECT_FALSE(books.at(1));
    EXPECT_FALSE(books.at(-1));
}

// A purchase of 700 at 10.01, worked by hand. The price fell from 10.02, so the prices alone say "falls".
//
//   side 1 before    after             side 2 before    after
//   10.01 x 300      gone               9.96 x  60      gone
//   10.02 x 700      10.02 x 350        9.97 x 500       9.97 x 500
//   10.03 x 500      10.03 x 500        9.98 x 400       9.98 x 400
//   10.04 x 600      10.04 x 650        9.99 x 300       9.99 x 300
//   10.05 x 100      gone              10.00 x 200      10.00 x 190
//                    10.06 x 900                        10.01 x  50
//                    10.07 x 800
//
// Side 1: 10.01 now stands on side 2: 300. 10.02 shrank by 350. 10.03 stayed, 10.04 grew: 0. 10.05 is gone
// from both sides, but 10.06 is higher: 0. A = 650.
// Side 2: 9.96 is gone from both sides and nothing is lower: 60. 10.00 shrank by 10. B = 70.
// 1.5 * 700 = 1050 covers 650; 650 is more than 6 * 70 = 420; 650 is at least 500: the trade rises.
TEST(BookWalkOverARun, LetsAPurchaseRiseThatEatsIntoSide1)
{
    const std::vector<BookTrade> trades {
        { 10.02, 10.0,
          levels({ { 10.01, 300 }, { 10.02, 700 }, { 10.03, 500 }, { 10.04, 600 }, { 10.05, 100 } }),
          levels({ { 10.00, 200 }, { 9.99, 300 }, { 9.98, 400 }, { 9.97, 500 }, { 9.96, 60 } }) },
        { 10.01, 700.0,
          levels({ { 10.02, 350 }, { 10.03, 500 }, { 10.04, 650 }, { 10.06, 900 }, { 10.07, 800 } }),
          levels({ { 10.01, 50 }, { 10.00, 190 }, { 9.99, 300 }, { 9.98, 400 }, { 9.97, 500 } }) }
    };
    const auto cache = bookFormula(trades);
    const BookSeries books(cache.result);
    const RemovedVolume removed = removedVolume(*books.at(0), *books.at(1));
    EXPECT_EQ(removed.side1, 650.0);
    EXPECT_EQ(removed.side2, 70.0);

    BookWalk walk(cache.result);
    EXPECT_TRUE(walk.rises(0, 10.0, 10.02, true));
    EXPECT_TRUE(walk.rises(1, 700.0, 10.01, false));
}

TEST(BookWalkOverARun, OnlyFillsTheBookAtTheFirstTrade)
{
    const auto cache = bookFormula({ { 10.0, 1e9, onePrice(10.0, 900), onePrice(9.0, 900) } });

    EXPECT_FALSE(BookWalk(cache.result).rises(0, 1e9, 10.0, false));
    EXPECT_TRUE(BookWalk(cache.result).rises(0, 1e9, 10.0, true));
}

TEST(BookWalkOverARun, PassesOverTradesWithoutDepth)
{
    // 900 at trade 0, 300 at trade 2. Trade 1 shows the 300 too, but nothing behind the best level: its book
    // neither moves the direction nor is remembered.
    const auto side2 = onePrice(9.0, 50);
    const auto cache = bookFormula({ { 10.0, 900.0, onePrice(10.0, 900), side2 },
                                     { 10.0, 900.0, levels({ { 10.0, 300 } }), levels({ { 9.0, 50 } }) },
                                     { 10.0, 900.0, onePrice(10.0, 300), side2 } });
    BookWalk walk(cache.result);

    EXPECT_FALSE(walk.rises(0, 900.0, 10.0, false));
    EXPECT_FALSE(walk.rises(1, 900.0, 10.0, false));
    EXPECT_TRUE(walk.rises(2, 900.0, 10.0, false)); // 600 removed since trade 0
}

TEST(BookWalkOverARun, ComparesWithThePreviousTradeAfterAnOverrideToo)
{
    const auto side2 = onePrice(9.0, 50);
    const auto cache = bookFormula({ { 10.0, 900.0, onePrice(10.0, 1500), side2 },
                                     { 10.0, 900.0, onePrice(10.0, 900), side2 },
                                     { 10.0, 900.0, onePrice(10.0, 300), side2 } });
    BookWalk walk(cache.result);

    EXPECT_FALSE(walk.rises(0, 900.0, 10.0, false));
    EXPECT_TRUE(walk.rises(1, 900.0, 10.0, false));
    EXPECT_TRUE(walk.rises(2, 900.0, 10.0, false));
}
