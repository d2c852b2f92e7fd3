// SPDX-License-Identifier: MIT
#include "tests/support/EngineBars.h"

#include <cmath>
#include <limits>

namespace {

using Series = std::vector<double>;
constexpr double gone = DBL_MAX;
constexpr double infinity = std::numeric_limits<double>::infinity();

/// A function of the close and numbers, as formulas call it.
template <class... Numbers>
Series called(const char* function, const Series& closes, Numbers... numbers)
{
    std::string expression = std::string(function) + "(C";
    ((expression += "," + std::to_string(numbers)), ...);
    return test::valuesOf(expression + ")", closes);
}

Series movingAverage(const Series& values, int period)
{
    return called("MA", values, period);
}

Series standardDeviation(const Series& values, int period)
{
    return called("STD", values, period);
}

Series exponentialAverage(const Series& values, int period)
{
    return called("EMA", values, period);
}

Series smoothedAverage(const Series& values, int period, int weight)
{
    return called("SMA", values, period, weight);
}

Series highestOf(const Series& values, int period)
{
    return called("HHV", values, period);
}

Series lowestOf(const Series& values, int period)
{
    return called("LLV", values, period);
}

/// 1 where the first rises through the second, -1 where it falls.
Series crossingsOf(const Series& first, const Series& second)
{
    return test::valuesOf("CROSS(C,V)-CROSS(V,C)", first, second);
}

TEST(MovingAverage, NeedsAWholeWindow)
{
    EXPECT_EQ(movingAverage({ 1, 2, 6, 4 }, 3), (Series { gone, gone, 3, 4 }));
}

TEST(MovingAverage, OfOneBarIsTheValue)
{
    EXPECT_EQ(movingAverage({ 1, 2, 6 }, 1), (Series { 1, 2, 6 }));
}

TEST(MovingAverage, LongerThanTheSeriesIsMissingThroughout)
{
    EXPECT_EQ(movingAverage({ 1, 2 }, 100'000), (Series { gone, gone }));
    EXPECT_EQ(movingAverage({}, 3), Series());
}

TEST(MovingAverage, HasNoValueWhileAMissingNumberIsInTheWindow)
{
    EXPECT_EQ(movingAverage({ 1, 1, gone, 3, 5, 7 }, 2), (Series { gone, 1, gone, gone, 4, 6 }));
    EXPECT_EQ(movingAverage({ 1, NAN, 3, infinity, 5, 7 }, 2), (Series { gone, gone, gone, gone, gone, 6 }));
}

TEST(MovingAverage, ForgetsAHugeValueOnceItHasLeftTheWindow)
{
    // A running sum would have lost the small values beside 1e300.
    EXPECT_EQ(movingAverage({ 1e300, 1, 3, 5, 7 }, 2), (Series { gone, 5e299, 2, 4, 6 }));
}

TEST(MovingAverage, OfEqualValuesIsEqualFromBarToBar)
{
    const Series averages = movingAverage(Series(200, 0.1), 7);
    for (std::size_t bar = 6; bar < averages.size(); ++bar)
        EXPECT_EQ(averages[bar], averages[6]) << bar;
}

TEST(MovingAverage, OfATotalBeyondTheDoublesIsMissing)
{
    EXPECT_EQ(movingAverage({ 1.5e308, 1.5e308, 1, 3 }, 2), (Series { gone, gone, 1.5e308 / 2, 2 }));
}

TEST(StandardDeviation, DividesByOneLessThanThePeriod)
{
    // Mean 4, squares 9 + 1 + 0 + 4 + 4 = 18 over 5 - 1 = 4.5.
    const Series deviations = standardDeviation({ 1, 3, 4, 6, 6 }, 5);
    EXPECT_EQ(deviations[3], gone);
    EXPECT_DOUBLE_EQ(deviations[4], std::sqrt(4.5));
}

TEST(StandardDeviation, OfEqualValuesIsExactlyZero)
{
    EXPECT_EQ(standardDeviation({ 0.1, 0.1, 0.1, 0.1 }, 3), (Series { gone, gone, 0, 0 }));
}

TEST(StandardDeviation, OfOneBarIsZero)
{
    EXPECT_EQ(standardDeviation({ 5, 6 }, 1), (Series { 0, 0 }));
}

TEST(StandardDeviation, SurvivesALargeOffset)
{
    // The mean of the squares less the square of the mean would be all rounding here.
    const Series deviations = standardDeviation({ 1e9 + 1, 1e9 + 2, 1e9 + 3 }, 3);
    EXPECT_DOUBLE_EQ(deviations[2], 1.0);
}

TEST(ExponentialAverage, StartsWithTheFirstValue)
{
    // Period 3: half of the new, half of the old.
    EXPECT_EQ(exponentialAverage({ 8, 4, 4 }, 3), (Series { 8, 6, 5 }));
}

TEST(ExponentialAverage, SkipsMissingBarsAndGoesOnFromWhereItWas)
{
    EXPECT_EQ(exponentialAverage({ gone, 8, NAN, 4 }, 3), (Series { gone, 8, gone, 6 }));
}

TEST(ExponentialAverage, OfEqualValuesIsExactlyThatValue)
{
    for (const double average : exponentialAverage(Series(50, 0.1), 12))
        EXPECT_EQ(average, 0.1);
}

TEST(ExponentialAverage, OutlivesAStepBeyondTheDoubles)
{
    const Series averages = exponentialAverage({ 1.7e308, -1.7e308, 0.0 }, 3);
    EXPECT_EQ(averages[1], 0.0);
    EXPECT_EQ(averages[2], 0.0);
}

TEST(SmoothedAverage, WeighsTheNewValueAgainstThePeriod)
{
    // SMA(x, 4, 1): (1 x + 3 S') / 4.
    EXPECT_EQ(smoothedAverage({ 8, 4, 11 }, 4, 1), (Series { 8, 7, 8 }));
    // SMA(x, 4, 3): (3 x + 1 S') / 4.
    EXPECT_EQ(smoothedAverage({ 8, 4, 9 }, 4, 3), (Series { 8, 5, 8 }));
}

TEST(HighestOf, SlidesOverTheWindow)
{
    EXPECT_EQ(highestOf({ 5, 1, 2, 3, 1, 1 }, 3), (Series { 5, 5, 5, 3, 3, 3 }));
}

TEST(LowestOf, SlidesOverTheWindow)
{
    EXPECT_EQ(lowestOf({ 1, 5, 4, 3, 7, 8 }, 3), (Series { 1, 1, 1, 3, 3, 3 }));
}

TEST(HighestOf, PassesOverMissingNumbers)
{
    EXPECT_EQ(highestOf({ 5, NAN, 2, 3, 1 }, 2), (Series { 5, gone, 2, 3, 3 }));
    EXPECT_EQ(highestOf({ NAN, 5, NAN, 2 }, 3), (Series { gone, 5, gone, 5 }));
}

TEST(HighestOf, TakesTheBarsOfAListingThatIsShorterThanTheWindow)
{
    EXPECT_EQ(highestOf({ 5, 1, 7 }, 250), (Series { 5, 5, 7 }));
    EXPECT_EQ(called("SUM", { 5, 1, 7 }, 250), (Series { 5, 6, 13 }));
    EXPECT_EQ(called("HHVBARS", { 5, 1, 1 }, 250), (Series { 0, 1, 2 }));
}

TEST(Slope, OfAFlatWindowIsExactlyZero)
{
    for (const double slope : test::valuesOf("SLOPE(C,7)+SLOPE(C,V)", Series(60, 0.1), Series(60, 5.0)))
        EXPECT_TRUE(slope == 0.0 || slope == gone) << slope;
}

TEST(CrossingsOf, NamesTheBarAfterWhichTheOtherSideHolds)
{
    EXPECT_EQ(crossingsOf({ 1, 3, 3, 1 }, { 2, 2, 2, 2 }), (Series { 0, 1, 0, -1 }));
}

TEST(CrossingsOf, SeesTheCrossingAcrossEqualBars)
{
    EXPECT_EQ(crossingsOf({ 1, 2, 2, 3 }, { 2, 2, 2, 2 }), (Series { 0, 0, 0, 1 }));
}

TEST(CrossingsOf, TouchingIsNoCrossing)
{
    EXPECT_EQ(crossingsOf({ 3, 2, 3 }, { 2, 2, 2 }), (Series { 0, 0, 0 }));
}

TEST(CrossingsOf, TheFirstComparableBarIsNoCrossing)
{
    EXPECT_EQ(crossingsOf({ gone, 3, 4 }, { 2, 2, 2 }), (Series { 0, 0, 0 }));
}

} // namespace
