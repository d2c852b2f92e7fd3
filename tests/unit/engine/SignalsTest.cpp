// SPDX-License-Identifier: MIT
#include "tests/support/EngineBars.h"

#include <cfloat>

namespace {

using test::barsOf;
using test::computed;
using test::outputOf;
using test::seriesOf;
using Series = std::vector<double>;

const std::vector<std::string>& textsOf(const engine::FormulaRecords& records, const std::string& output,
                                        std::size_t k)
{
    const int column =
        records.meta.outputColumns.at(static_cast<std::size_t>(outputOf(records, output))).at(k);
    EXPECT_EQ(records.result.columnType.at(static_cast<std::size_t>(column)), 3);
    return records.result.textSeries.at(
        static_cast<std::size_t>(records.result.columnSeries.at(static_cast<std::size_t>(column))));
}

/// Closes 4 2 6 2 of MA1 against MA2: below from bar 1, above at 2, below at 3.
engine::BarSeries crossingBars()
{
    auto bars = barsOf({ 4, 2, 6, 2 });
    bars.high = { 5, 5, 7, 7 };
    bars.low = { 3, 1, 1, 1 };
    return bars;
}

TEST(CrossSignal, HasTwoTextsAndTwoIcons)
{
    const auto records = computed("CROSSSIGNAL", crossingBars(), { 1, 2 });
    EXPECT_EQ(records.meta.outputNames, (std::vector<std::string> { "买点", "卖点", "金叉", "死叉" }));
    EXPECT_EQ(records.meta.drawType, (std::vector<int> { 13, 13, 19, 19 }));
}

TEST(CrossSignal, MarksTheGoldenCrossBelowTheCandle)
{
    const auto records = computed("CROSSSIGNAL", crossingBars(), { 1, 2 });
    EXPECT_EQ(seriesOf(records, "买点", 0), (Series { 0, 0, 1, 0 }));
    EXPECT_EQ(textsOf(records, "买点", 2), (std::vector<std::string> { "", "", "买", "" }));
    // Heights of bars 1 and 2 are 4 and 6, mean 5: 1 - 1.4 * 5 and 1 - 0.4 * 5.
    EXPECT_EQ(seriesOf(records, "买点", 1), (Series { DBL_MAX, DBL_MAX, -6, DBL_MAX }));
    EXPECT_EQ(seriesOf(records, "金叉", 1), (Series { DBL_MAX, DBL_MAX, -1, DBL_MAX }));
    EXPECT_EQ(seriesOf(records, "金叉", 2), Series(4, 1.0)) << "an ellipse";
}

TEST(CrossSignal, MarksTheDeathCrossAboveTheCandle)
{
    const auto records = computed("CROSSSIGNAL", crossingBars(), { 1, 2 });
    EXPECT_EQ(seriesOf(records, "死叉", 0), (Series { 0, 0, 0, 1 }));
    EXPECT_EQ(textsOf(records, "卖点", 2), (std::vector<std::string> { "", "", "", "卖" }));
    // Heights of bars 2 and 3 are 6 and 6: 7 + 0.75 * 6 and 7 + 0.4 * 6.
    EXPECT_DOUBLE_EQ(seriesOf(records, "卖点", 1)[3], 11.5);
    EXPECT_DOUBLE_EQ(seriesOf(records, "死叉", 1)[3], 9.4);
    EXPECT_EQ(seriesOf(records, "死叉", 2), Series(4, 0.0)) << "a rectangle";
}

TEST(CrossSignal, OnlyThePricesOfMarksCountForTheAxis)
{
    const auto records = computed("CROSSSIGNAL", crossingBars(), { 1, 2 });
    EXPECT_EQ(records.result.columnNeedsAxis, (std::vector<int> { 0, 1, 0, 0, 1, 0, 0, 1, 0, 0, 1, 0 }));
}

TEST(CrossSignal, FindsAsManyDeathsAsGoldenCrossesInTheIndexGiveOrTakeOne)
{
    const auto records = computed("CROSSSIGNAL", test::sampleBars("SH000001"));
    double golden = 0, death = 0;
    for (const double flag : seriesOf(records, "买点", 0))
        golden += flag;
    for (const double flag : seriesOf(records, "卖点", 0))
        death += flag;
    EXPECT_GT(golden, 100);
    EXPECT_NEAR(golden, death, 1);
}

TEST(RisingDays, CountsRisesInARowAndShowsThemFromThreeOn)
{
    auto bars = barsOf({ 1, 2, 3, 4, 5, 5, 6 });
    bars.high = { 2, 3, 4, 5, 6, 6, 7 };
    const auto records = computed("RISINGDAYS", bars);
    EXPECT_EQ(records.meta.drawType[0], 26);
    EXPECT_EQ(seriesOf(records, "连涨", 0), (Series { 0, 0, 0, 1, 1, 0, 0 }));
    EXPECT_EQ(seriesOf(records, "连涨", 2), (Series { 0, 1, 2, 3, 4, 0, 1 }))
        << "an unchanged close ends the run";
    EXPECT_EQ(seriesOf(records, "连涨", 1)[4], 6.0) << "on the high until twenty bars give a usual height";
    EXPECT_EQ(seriesOf(records, "连涨", 3), Series(7, 0.0)) << "no decimals";
}

TEST(RisingDays, GivesTheLegendTheNumberOnEveryBar)
{
    const auto records = computed("RISINGDAYS", barsOf({ 1, 2, 3 }));
    const auto output = static_cast<std::size_t>(outputOf(records, "连涨天数"));
    EXPECT_EQ(records.meta.lineWidth[output], 0);
    EXPECT_EQ(records.meta.valueKind[output], 1);
    EXPECT_EQ(seriesOf(records, "连涨天数"), (Series { 0, 1, 2 }));
}

TEST(RisingDays, KeepsTheNumberAQuarterOfAUsualHeightAboveTheCandle)
{
    Series closes;
    for (int day = 0; day < 25; ++day)
        closes.push_back(day);
    auto bars = barsOf(closes);
    for (double& high : bars.high)
        high += 2.0; // every candle is 2 high
    EXPECT_EQ(seriesOf(computed("RISINGDAYS", bars), "连涨", 1)[24], 26.5);
}

TEST(Note, StandsAtAPlaceInPerMille)
{
    const auto records = computed("NOTE", barsOf({ 1, 2 }), { 250, 900 });
    EXPECT_EQ(records.meta.drawType, std::vector<int> { 31 });
    EXPECT_EQ(seriesOf(records, "注", 0).back(), 1.0) << "shown";
    EXPECT_EQ(seriesOf(records, "注", 1).back(), 1.0) << "per mille";
    EXPECT_EQ(seriesOf(records, "注", 2).back(), 250.0);
    EXPECT_EQ(seriesOf(records, "注", 3).back(), 900.0);
    EXPECT_EQ(textsOf(records, "注", 4).back(), "信号仅供参考");
}

} // namespace
