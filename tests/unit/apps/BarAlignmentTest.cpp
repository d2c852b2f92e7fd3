// SPDX-License-Identifier: MIT
#include "apps/chart/BarAlignment.h"

#include <gtest/gtest.h>

namespace {

engine::BarSeries bars(const std::vector<std::int64_t>& times, const std::vector<double>& closes)
{
    engine::BarSeries series;
    series.timeMs = times;
    series.open = series.high = series.low = series.close = closes;
    series.volume.assign(times.size(), 7.0);
    return series;
}

} // namespace

TEST(AlignedTo, TakesTheBarsOfTheSameTimes)
{
    const auto aligned = chart::alignedTo({ 20, 30 }, bars({ 10, 20, 30 }, { 1, 2, 3 }));
    EXPECT_EQ(aligned.timeMs, (std::vector<std::int64_t> { 20, 30 }));
    EXPECT_EQ(aligned.close, (std::vector<double> { 2, 3 }));
    EXPECT_EQ(aligned.volume, (std::vector<double> { 7, 7 }));
}

TEST(AlignedTo, StandsStillWhereABarIsMissing)
{
    const auto aligned = chart::alignedTo({ 10, 20, 30, 40 }, bars({ 20, 40 }, { 2, 4 }));
    EXPECT_EQ(aligned.close, (std::vector<double> { 2, 2, 2, 4 }));
    EXPECT_EQ(aligned.volume, (std::vector<double> { 0, 7, 0, 7 }));
}

TEST(AlignedTo, LeavesOutBarsBetweenTheTimes)
{
    const auto aligned = chart::alignedTo({ 10, 40 }, bars({ 10, 20, 30 }, { 1, 2, 3 }));
    EXPECT_EQ(aligned.close, (std::vector<double> { 1, 3 }));
}

TEST(AlignedTo, IsEmptyWithoutBars)
{
    EXPECT_EQ(chart::alignedTo({ 10 }, engine::BarSeries()).size(), 0u);
}
