// SPDX-License-Identifier: MIT
#include "draw/internal/CandleBuilder.h"

#include <gtest/gtest.h>

#include <vector>

using TC::detail::Candle;
using TC::detail::CandleBuilder;
using TC::detail::Prices;

namespace {

constexpr int kDay = 86400, kMinute = 60;

struct Bar
{
    int column;
    Prices prices;
};

/// A bar that stands still at its close.
Bar still(int column, double close)
{
    return { column, { close, close, close, close } };
}

std::vector<Candle> built(const std::vector<Bar>& bars, int period = kDay)
{
    std::vector<Candle> candles;
    CandleBuilder builder(period);
    for (const Bar& bar : bars) {
        if (const auto closed = builder.add(bar.column, bar.prices))
            candles.push_back(*closed);
    }
    if (const auto last = builder.finish())
        candles.push_back(*last);
    return candles;
}

std::vector<int> columns(const std::vector<Candle>& candles)
{
    std::vector<int> xs;
    for (const Candle& candle : candles)
        xs.push_back(candle.x);
    return xs;
}

} // namespace

TEST(CandleBuilder, GivesNothingWithoutBars)
{
    EXPECT_TRUE(built({}).empty());
}

TEST(CandleBuilder, GivesACandlePerPixelColumn)
{
    EXPECT_EQ(columns(built({ still(0, 1.0), still(1, 1.0), still(5, 1.0) })),
              (std::vector<int> { 0, 1, 5 }));
}

TEST(CandleBuilder, MergesBarsOfOneColumn)
{
    const auto candles = built({ { 3, { 10.0, 12.0, 9.5, 11.0 } },
                                 { 3, { 11.0, 11.5, 9.0, 10.5 } },
                                 { 3, { 10.5, 12.5, 10.0, 12.0 } } });
    ASSERT_EQ(candles.size(), 1u);
    EXPECT_EQ(candles[0].x, 3);
    EXPECT_DOUBLE_EQ(candles[0].prices.open, 10.0);
    EXPECT_DOUBLE_EQ(candles[0].prices.high, 12.5);
    EXPECT_DOUBLE_EQ(candles[0].prices.low, 9.0);
    EXPECT_DOUBLE_EQ(candles[0].prices.close, 12.0);
}

TEST(CandleBuilder, ClosesACandleAtAFallToLessThanFiveSixths)
{
    // 12.1 is more than 1.2 times 10; 12 is not
    EXPECT_EQ(columns(built({ still(0, 12.1), still(0, 10.0) })), (std::vector<int> { 0, 1 }));
    EXPECT_EQ(columns(built({ still(0, 12.0), still(0, 10.0) })), (std::vector<int> { 0 }));
}

TEST(CandleBuilder, AJumpMustExceedTheToleranceToo)
{
    EXPECT_EQ(built({ still(0, 12.0 + 0.9e-5), still(0, 10.0) }).size(), 1u);
    EXPECT_EQ(built({ still(0, 12.0 + 1.1e-5), still(0, 10.0) }).size(), 2u);
}

TEST(CandleBuilder, ARiseIsNoJumpExceptForMinuteBars)
{
    EXPECT_EQ(built({ still(0, 10.0), still(0, 20.0) }).size(), 1u);
    EXPECT_EQ(built({ still(0, 10.0), still(0, 20.0) }, kMinute).size(), 2u);
}

TEST(CandleBuilder, MinuteBarsJumpAtTwoPercentEitherWay)
{
    EXPECT_EQ(built({ still(0, 102.1), still(0, 100.0) }, kMinute).size(), 2u);
    EXPECT_EQ(built({ still(0, 101.9), still(0, 100.0) }, kMinute).size(), 1u);
    EXPECT_EQ(built({ still(0, 97.9), still(0, 100.0) }, kMinute).size(), 2u);
    EXPECT_EQ(built({ still(0, 98.1), still(0, 100.0) }, kMinute).size(), 1u);
}

TEST(CandleBuilder, OtherPeriodsDoNotJumpAtTwoPercent)
{
    for (int period : { 0, 59, 61, 300, kDay })
        EXPECT_EQ(built({ still(0, 97.0), still(0, 100.0) }, period).size(), 1u) << period;
}

TEST(CandleBuilder, ComparesClosesNotOpens)
{
    // opens far below the close before, but closes where that closed
    EXPECT_EQ(built({ still(0, 12.0), { 0, { 5.0, 12.0, 5.0, 12.0 } } }).size(), 1u);
}

TEST(CandleBuilder, TheJumpingBarOpensACandleOnePixelToTheRight)
{
    const auto candles = built({ { 4, { 20.0, 21.0, 19.0, 20.0 } }, { 4, { 9.0, 11.0, 8.0, 10.0 } } });
    ASSERT_EQ(candles.size(), 2u);
    EXPECT_EQ(candles[1].x, 5);
    EXPECT_DOUBLE_EQ(candles[1].prices.open, 9.0);
    EXPECT_DOUBLE_EQ(candles[1].prices.high, 11.0);
    EXPECT_DOUBLE_EQ(candles[0].prices.low, 19.0);
}

TEST(CandleBuilder, TheShiftedCandleAbsorbsTheRestOfItsColumnOnly)
{
    // the bar of column 5 opens a candle of its own on the pixel of the shifted one
    const auto candles = built({ still(4, 20.0), still(4, 10.0), still(4, 11.0), still(5, 12.0) });
    EXPECT_EQ(columns(candles), (std::vector<int> { 4, 5, 5 }));
    EXPECT_DOUBLE_EQ(candles[1].prices.close, 11.0);
    EXPECT_DOUBLE_EQ(candles[2].prices.open, 12.0);
}

TEST(CandleBuilder, ASecondJumpInOneColumnStandsOnTheSamePixelAsTheFirst)
{
    EXPECT_EQ(columns(built({ still(4, 40.0), still(4, 20.0), still(4, 10.0) })),
              (std::vector<int> { 4, 5, 5 }));
}

TEST(CandleBuilder, ANewColumnIsNoJump)
{
    EXPECT_EQ(columns(built({ still(4, 40.0), still(5, 10.0) })), (std::vector<int> { 4, 5 }));
}

TEST(CandleBuilder, FinishEmptiesTheBuilder)
{
    CandleBuilder builder(kDay);
    builder.add(0, {});
    EXPECT_TRUE(builder.finish().has_value());
    EXPECT_FALSE(builder.finish().has_value());
    EXPECT_FALSE(builder.add(0, {}).has_value()); // and starts afresh
}
