// SPDX-License-Identifier: MIT
#include "apps/chart/PaneScale.h"
#include "apps/chart/ValueMarks.h"
#include "tests/support/FormulaBuilder.h"
#include "tests/support/Trace.h"

#include <QSet>

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <deque>
#include <random>

namespace {

/// A pane with one formula; the records live until the end of the test program.
chart::PaneContent paneOf(test::FormulaBuilder builder, bool prices)
{
    static std::deque<TC::RPCFormulaResultCache> records;
    records.push_back(builder.build());
    chart::PaneContent pane;
    pane.formulas.push_back({ {}, &records.back() });
    pane.showsPrices = prices;
    return pane;
}

} // namespace

TEST(VisibleRange, LeavesAirAboveAndBelowPrices)
{
    const auto pane = paneOf(test::FormulaBuilder().line({ 100.0, 200.0 }), true);
    const auto range = chart::visibleRange(pane, { 0, 1, 100 });
    EXPECT_DOUBLE_EQ(range.first, 206.0); // 6 % of the extent of 100
    EXPECT_DOUBLE_EQ(range.second, 94.0);
}

TEST(VisibleRange, StandsVolumeOnZero)
{
    const auto pane =
        paneOf(test::FormulaBuilder().output("VOL", 27, { { 50, 100 }, { 1, 1 }, { 1, 1 } }), false);
    const auto range = chart::visibleRange(pane, { 0, 1, 100 });
    EXPECT_DOUBLE_EQ(range.first, 106.0);
    EXPECT_DOUBLE_EQ(range.second, 0.0);
}

TEST(VisibleRange, IsOneToZeroWhenNothingCounts)
{
    const auto pane = paneOf(test::FormulaBuilder().line({ DBL_MAX, DBL_MAX }), false);
    EXPECT_EQ(chart::visibleRange(pane, { 0, 1, 100 }), qMakePair(1.0, 0.0));
}

TEST(VisibleRange, CoversAllFormulasOfThePane)
{
    auto pane = paneOf(test::FormulaBuilder().line({ 0.0, 10.0 }), false);
    pane.formulas.push_back(paneOf(test::FormulaBuilder().line({ -90.0, 5.0 }), false).formulas.front());
    const auto range = chart::visibleRange(pane, { 0, 1, 100 });
    EXPECT_DOUBLE_EQ(range.first, 16.0);
    EXPECT_DOUBLE_EQ(range.second, -96.0);
}

TEST(ValueMarks, StandAtRoundValuesInsideTheRange)
{
    chart::PaneContent pane;
    pane.showsPrices = true;
    pane.priceTick = 0.01;
    const auto marks = chart::valueMarks({ 10.4, 9.7 }, 280, 40, pane); // 40 of 280 rows are 0.1
    ASSERT_EQ(marks.size(), 8u);
    EXPECT_EQ(marks.front().text, QStringLiteral("9.70"));
    EXPECT_EQ(marks.back().text, QStringLiteral("10.40"));
}

TEST(ValueMarks, AreNeverFinerThanThePriceTick)
{
    chart::PaneContent pane;
    pane.showsPrices = true;
    pane.priceTick = 1.0;
    const auto marks = chart::valueMarks({ 102.0, 100.0 }, 400, 20, pane);
    ASSERT_EQ(marks.size(), 3u);
    EXPECT_EQ(marks[1].text, QStringLiteral("101"));
}

TEST(ValueMarks, AreShortForLargeNumbers)
{
    const auto marks = chart::valueMarks({ 5e8, 0.0 }, 100, 20, chart::PaneContent());
    ASSERT_FALSE(marks.empty());
    EXPECT_EQ(marks.back().text, QStringLiteral("5亿"));
}

TEST(ValueMarks, AreThreeToEightAtAnyHeightOfAnyRange)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> exponent(-6.0, 10.0), share(-2.0, 2.0);
    for (int run = 0; run < 3000; ++run) {
        const double extent = std::pow(10.0, exponent(random)), lowest = extent * share(random);
        const QPair<double, double> range(lowest + extent, lowest);
        for (int height : { 72, 80, 90, 140, 300, 700, 2000 }) {
            int labels = 0;
            for (const chart::AxisMark& mark : chart::valueMarks(range, height, 38, chart::PaneContent()))
                labels += chart::hasLabelRoom(chart::rowOf(mark.value, range, height), height);
            ASSERT_GE(labels, 3) << lowest << " + " << extent << " on " << height << " rows";
            ASSERT_LE(labels, 8) << lowest << " + " << extent << " on " << height << " rows";
        }
    }
}

TEST(ValueMarks, HaveTextsOfTheirOwn)
{
    std::mt19937 random(8);
    std::uniform_real_distribution<double> exponent(-5.0, 3.9);
    for (int run = 0; run < 1000; ++run) {
        const double extent = std::pow(10.0, exponent(random));
        QSet<QString> texts;
        const auto marks = chart::valueMarks({ extent, -0.3 * extent }, 80, 38, chart::PaneContent());
        for (const chart::AxisMark& mark : marks)
            texts << mark.text;
        EXPECT_EQ(texts.size(), static_cast<int>(marks.size())) << extent;
    }
}

TEST(ValueMarks, StandAtNumbersHoweverFarThePricesReach)
{
    const auto pane = paneOf(test::FormulaBuilder().line({ -1.7e308, 1e308, 1.7e308 }), false);
    const auto marks = chart::valueMarks(chart::visibleRange(pane, { 0, 2, 100 }), 100, 90, pane);
    ASSERT_FALSE(marks.empty());
    for (const chart::AxisMark& mark : marks)
        EXPECT_TRUE(std::isfinite(mark.value)) << mark.text.toStdString();
}

TEST(ValueMarks, AreAbsentOnRangesThatHaveNoExtent)
{
    const chart::PaneContent pane;
    EXPECT_TRUE(chart::valueMarks({ 1.0, 1.0 }, 100, 20, pane).empty());
    EXPECT_TRUE(chart::valueMarks({ DBL_MAX, -DBL_MAX }, 100, 20, pane).empty());
    EXPECT_TRUE(chart::valueMarks({ 1.0, 0.0 }, 10, 20, pane).empty());
}

TEST(RowOf, IsTheRowOfThePainters)
{
    EXPECT_EQ(chart::rowOf(0.0, { 10.0, 0.0 }, 100), 99);
    EXPECT_EQ(chart::rowOf(5.0, { 10.0, 0.0 }, 100), 49);
    EXPECT_NEAR(chart::valueAt(49, { 10.0, 0.0 }, 100), 5.0, 1e-9);
}
