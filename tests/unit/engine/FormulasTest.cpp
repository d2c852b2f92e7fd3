// SPDX-License-Identifier: MIT
#include "engine/Formulas.h"

#include "tests/support/EngineBars.h"

#include <cfloat>
#include <cmath>
#include <set>

namespace {

using test::barsOf;
using test::computed;
using test::outputOf;
using test::seriesOf;
using Series = std::vector<double>;

TEST(BuiltInFormulas, AreKnownByTheirExactName)
{
    std::vector<std::string> names;
    for (const auto& formula : engine::builtInFormulas()) {
        names.push_back(formula.name);
        EXPECT_EQ(engine::findBuiltIn(formula.name), &formula);
    }
    EXPECT_EQ(names,
              (std::vector<std::string> { "KLINE", "MA", "EXPMA", "BOLL", "SAR", "VOL", "MACD", "KDJ", "RSI",
                                          "WR", "BIAS", "CCI", "DMI", "OBV", "TRIX", "CROSSSIGNAL",
                                          "RISINGDAYS", "NOTE" }));
    EXPECT_EQ(engine::findBuiltIn("ma"), nullptr);
    EXPECT_EQ(engine::findBuiltIn(""), nullptr);
}

TEST(BuiltInFormulas, OnlyTheCandlesAreTheMainChartItself)
{
    for (const auto& formula : engine::builtInFormulas()) {
        const std::set<std::string> overIt {
            "MA", "EXPMA", "BOLL", "SAR", "CROSSSIGNAL", "RISINGDAYS", "NOTE"
        };
        ASSERT_TRUE(formula.formula) << formula.name;
        EXPECT_EQ(formula.formula->kind(), formula.name == "KLINE" ? 2 : overIt.count(formula.name))
            << formula.name;
    }
}

TEST(ComputeFormula, AnswersNothingForAnUnknownName)
{
    EXPECT_FALSE(engine::computeFormula("NOSUCH", barsOf({ 1, 2 })));
}

TEST(ComputeFormula, AnswersNothingWhenCancelled)
{
    const std::atomic<bool> cancelled { true };
    for (const auto& formula : engine::builtInFormulas())
        EXPECT_FALSE(engine::computeFormula(formula.name, barsOf({ 1, 2, 3 }), {}, &cancelled))
            << formula.name;
}

TEST(ComputeFormula, CarriesTimesAndMarksBarsWithoutPricesInvalid)
{
    auto bars = barsOf({ 1, 2, 3 });
    bars.open[1] = DBL_MAX;
    bars.high[1] = NAN;
    bars.low[1] = bars.close[1] = -INFINITY;
    const auto records = computed("MA", bars);
    EXPECT_EQ(records.result.barValid, (std::vector<int> { 1, 0, 1 }));
    EXPECT_EQ(records.result.barTimes[2].msecs, 2 * 86'400'000);
}

TEST(ComputeFormula, MissingParametersTakeTheirDefaults)
{
    EXPECT_EQ(computed("MA", barsOf({ 1 }), { 3, NAN }).meta.outputNames,
              (std::vector<std::string> { "MA3", "MA10", "MA20", "MA60" }));
}

TEST(ComputeFormula, ParametersAreMovedIntoTheirRangeAndPeriodsLoseTheirFraction)
{
    EXPECT_EQ(computed("MA", barsOf({ 1 }), { 0, -5, 1e300, 7.9, 12 }).meta.outputNames,
              (std::vector<std::string> { "MA1", "MA1", "MA100000", "MA7" }));
    EXPECT_EQ(computed("MA", barsOf({ 1 }), { INFINITY, -INFINITY }).meta.outputNames,
              (std::vector<std::string> { "MA100000", "MA1", "MA20", "MA60" }));
}

TEST(Kline, HasOneOutputOfFourPricesAndTheLegendsFigures)
{
    const auto records = computed("KLINE", barsOf({ 1, 2 }));
    EXPECT_EQ(records.meta.outputNames,
              (std::vector<std::string> { "KLINE", "开", "高", "低", "收", "成交量", "涨跌", "涨跌百分比",
                                          "振幅" }));
    EXPECT_EQ(records.meta.drawType[0], 12);
    EXPECT_EQ(records.meta.outputColumns[0].size(), 4u);
}

TEST(Kline, OnlyTheCandlesAreDrawnAndScaled)
{
    const auto records = computed("KLINE", barsOf({ 1, 2 }));
    EXPECT_EQ(records.meta.lineWidth, (std::vector<int> { 1, 0, 0, 0, 0, 0, 0, 0, 0 }));
    EXPECT_EQ(records.result.columnNeedsAxis, (std::vector<int> { 1, 1, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0 }));
}

TEST(Kline, ShowsTurnoverAndOpenInterestWhereTheBarsHaveThem)
{
    auto bars = barsOf({ 1, 2 });
    bars.amount = { 10, 20 };
    bars.openInterest = { 7, 8 };
    const auto records = computed("KLINE", bars);
    EXPECT_EQ(seriesOf(records, "成交额"), (Series { 10, 20 }));
    EXPECT_EQ(seriesOf(records, "持仓量"), (Series { 7, 8 }));
    EXPECT_EQ(outputOf(records, "成交额"), 6) << "beside the volume";
    EXPECT_EQ(outputOf(records, "持仓量"), 10) << "last";
}

TEST(Kline, MeasuresChangesAgainstThePreviousClose)
{
    auto bars = barsOf({ 10, 12, 9 });
    bars.high = { 11, 13, 12 };
    bars.low = { 9, 10, 9 };
    const auto records = computed("KLINE", bars);
    EXPECT_EQ(seriesOf(records, "涨跌"), (Series { 0, 2, -3 }));
    EXPECT_EQ(seriesOf(records, "涨跌百分比"), (Series { 0, 0.2, -0.25 })) << "fractions";
    EXPECT_EQ(seriesOf(records, "振幅"), (Series { 0.2, 0.3, 0.25 }));
}

TEST(Kline, MeasuresTheFirstBarAgainstItsOwnOpen)
{
    auto bars = barsOf({ 12 });
    bars.open = { 10 };
    EXPECT_EQ(seriesOf(computed("KLINE", bars), "涨跌"), Series { 2 });
}

TEST(Kline, HasNoRatioToAPriceOfZero)
{
    EXPECT_EQ(seriesOf(computed("KLINE", barsOf({ 0, 1 })), "涨跌百分比"), (Series { DBL_MAX, DBL_MAX }));
}

TEST(Boll, StandsTwoDeviationsAroundTheMiddle)
{
    // Period 5: mean 4, sample deviation sqrt(18 / 4).
    const auto records = computed("BOLL", barsOf({ 1, 3, 4, 6, 6 }), { 5, 2 });
    EXPECT_EQ(records.meta.outputNames, (std::vector<std::string> { "MID", "UPPER", "LOWER" }));
    EXPECT_DOUBLE_EQ(seriesOf(records, "MID")[4], 4.0);
    EXPECT_DOUBLE_EQ(seriesOf(records, "UPPER")[4], 4.0 + 2.0 * std::sqrt(4.5));
    EXPECT_DOUBLE_EQ(seriesOf(records, "LOWER")[4], 4.0 - 2.0 * std::sqrt(4.5));
    EXPECT_EQ(seriesOf(records, "UPPER")[3], DBL_MAX);
}

TEST(Vol, DrawsVolumeOpenAndCloseOnTheScaleOfTheVolume)
{
    auto bars = barsOf({ 5, 6 });
    bars.open = { 4, 7 };
    bars.volume = { 100, 200 };
    const auto records = computed("VOL", bars, { 2, 10 });
    EXPECT_EQ(records.meta.outputNames, (std::vector<std::string> { "VOL", "MA2", "MA10" }));
    EXPECT_EQ(records.meta.drawType, (std::vector<int> { 27, 0, 0 }));
    EXPECT_EQ(seriesOf(records, "VOL", 0), (Series { 100, 200 }));
    EXPECT_EQ(seriesOf(records, "VOL", 1), (Series { 4, 7 }));
    EXPECT_EQ(seriesOf(records, "VOL", 2), (Series { 5, 6 }));
    EXPECT_EQ(records.result.columnNeedsAxis, (std::vector<int> { 1, 0, 0, 1, 1 }));
    EXPECT_EQ(seriesOf(records, "MA2"), (Series { DBL_MAX, 150 }));
}

TEST(Macd, DoublesTheHistogram)
{
    // Periods 1 and 3: DIF = C - EMA3; DEA of period 3.
    const auto records = computed("MACD", barsOf({ 8, 4 }), { 1, 3, 3 });
    EXPECT_EQ(seriesOf(records, "DIF"), (Series { 0, -2 }));
    EXPECT_EQ(seriesOf(records, "DEA"), (Series { 0, -1 }));
    EXPECT_EQ(seriesOf(records, "MACD"), (Series { 0, -2 }));
    EXPECT_EQ(records.meta.drawType, (std::vector<int> { 0, 0, 2 }));
}

TEST(Macd, OfAnUnchangedPriceIsExactlyZero)
{
    for (const char* output : { "DIF", "DEA", "MACD" })
        EXPECT_EQ(seriesOf(computed("MACD", barsOf(Series(40, 12.3))), output), Series(40, 0.0)) << output;
}

TEST(Kdj, FollowsTheStochasticWithWeightOne)
{
    auto bars = barsOf({ 5, 8, 2 });
    bars.high = { 10, 10, 10 };
    bars.low = { 0, 0, 0 };
    // RSV 50, 80, 20; K = (RSV + K') / 2; D = (K + D') / 2.
    const auto records = computed("KDJ", bars, { 1, 2, 2 });
    EXPECT_EQ(seriesOf(records, "K"), (Series { 50, 65, 42.5 }));
    EXPECT_EQ(seriesOf(records, "D"), (Series { 50, 57.5, 50 }));
    EXPECT_EQ(seriesOf(records, "J"), (Series { 50, 80, 27.5 }));
}

TEST(Kdj, StandsInTheMiddleWhilePricesDoNotMove)
{
    EXPECT_EQ(seriesOf(computed("KDJ", barsOf(Series(12, 3.0))), "J")[11], 50.0);
}

TEST(Kdj, BeginsWithTheFirstBar)
{
    auto bars = barsOf({ 2 });
    bars.low = { 1 };
    bars.high = { 5 };
    EXPECT_EQ(seriesOf(computed("KDJ", bars), "K"), (Series { 25 }));
}

TEST(Rsi, ComparesRisesWithAllMoves)
{
    // Changes +2, -2, +1; period 2: up 2, 1, 1; all 2, 2, 1.5.
    const Series rsi = seriesOf(computed("RSI", barsOf({ 10, 12, 10, 11 }), { 2 }), "RSI2");
    EXPECT_EQ(rsi[0], DBL_MAX);
    EXPECT_DOUBLE_EQ(rsi[1], 100.0);
    EXPECT_DOUBLE_EQ(rsi[2], 50.0);
    EXPECT_DOUBLE_EQ(rsi[3], 100.0 / 1.5);
}

TEST(Rsi, IsFiftyWhilePricesDoNotMove)
{
    EXPECT_EQ(seriesOf(computed("RSI", barsOf({ 3, 3, 3 })), "RSI6"), (Series { DBL_MAX, 50, 50 }));
}

} // namespace
