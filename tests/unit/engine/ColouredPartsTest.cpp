// SPDX-License-Identifier: MIT
/// @file PARTLINE with colours, and BETA against the index.

#include "engine/evaluation/FormulaEvaluation.h"
#include "tests/support/EngineBars.h"

#include <gmock/gmock.h>

#include <set>

namespace {

using Series = std::vector<double>;

engine::FormulaRecords recordsOf(const std::string& text, const engine::BarSeries& bars)
{
    const auto reading = engine::readFormula(text);
    EXPECT_TRUE(reading.formula) << text;
    auto records = engine::computeFormula(reading.formula, bars);
    EXPECT_TRUE(records) << text;
    return std::move(records).value_or(engine::FormulaRecords());
}

/// The bars whose step from the bar before is drawn in each colour.
std::map<int, std::multiset<std::size_t>> stepsByColor(const engine::FormulaRecords& records)
{
    std::map<int, std::multiset<std::size_t>> steps;
    for (std::size_t output = 0; output < records.meta.outputNames.size(); ++output) {
        const Series values = test::seriesOf(records, records.meta.outputNames[output]);
        for (std::size_t bar = 1; bar < values.size(); ++bar) {
            if (values[bar] != DBL_MAX && values[bar - 1] != DBL_MAX)
                steps[records.meta.color[output]].insert(bar);
        }
    }
    return steps;
}

TEST(ColouredParts, TakeTheColourOfTheFirstConditionThatHolds)
{
    const engine::BarSeries bars = test::randomBars(7, 400);
    const auto records = recordsOf(
        "PARTLINE(C,C>O,COLORRED,C>REF(C,1),RGB(1,2,3),C<REF(C,1)*0.999,COLORBLUE),LINETHICK3;", bars);
    EXPECT_EQ(records.meta.lineWidth, std::vector<int>(6, 3));
    std::map<int, std::multiset<std::size_t>> expected;
    for (std::size_t bar = 1; bar < bars.size(); ++bar) {
        const double close = bars.close[bar], before = bars.close[bar - 1];
        if (close > bars.open[bar])
            expected[0x0000FF].insert(bar);
        else if (close > before)
            expected[0x030201].insert(bar);
        else if (close < before * 0.999)
            expected[0xFF0000].insert(bar);
    }
    EXPECT_EQ(expected.size(), 3u);
    EXPECT_EQ(stepsByColor(records), expected);
}

TEST(ColouredParts, FollowBarsOneByOne)
{
    const engine::BarSeries all = test::randomBars(8, 120);
    const auto formula = engine::readFormula("PARTLINE(C,C>O,COLORRED,C<REF(C,2),COLORGREEN);").formula;
    engine::FormulaEvaluation evaluation(formula);
    for (std::size_t count = 1; count <= all.size(); ++count) {
        engine::BarSeries bars = all;
        for (auto* column : { &bars.open, &bars.high, &bars.low, &bars.close, &bars.volume })
            column->resize(count);
        bars.timeMs.resize(count);
        ASSERT_TRUE(evaluation.update(bars));
        ASSERT_EQ(stepsByColor(evaluation.records()), stepsByColor(*engine::computeFormula(formula, bars)))
            << count;
    }
}

TEST(ColouredParts, AreNoNewsForTheLegendAndNeedColours)
{
    const auto records = recordsOf("P:PARTLINE(C,C>O,COLORRED);", test::randomBars(8, 20));
    for (const std::string& name : records.meta.outputNames)
        EXPECT_THAT(name, testing::HasSubstr("__noshow"));
    for (const char* text : { "PARTLINE(C,C>O,VOL);", "PARTLINE(C,C>O,COLORRED,C<O);", "PARTLINE(C);" })
        EXPECT_EQ(engine::readFormula(text).problems.size(), 1u) << text;
}

TEST(Beta, OfOneArgumentComparesTheMovesWithThoseOfTheIndex)
{
    engine::BarSeries bars = test::randomBars(9, 100);
    bars.index = std::make_shared<const engine::BarSeries>(test::randomBars(10, 100));
    const Series values = test::seriesOf(recordsOf("X:BETA(20);", bars), "X");
    for (std::size_t bar = 20; bar < bars.size(); ++bar) {
        double x = 0.0, y = 0.0, xy = 0.0, yy = 0.0;
        const auto move = [](const Series& closes, std::size_t at) {
            return closes[at] / closes[at - 1] - 1;
        };
        for (std::size_t at = bar - 19; at <= bar; ++at) {
            const double own = move(bars.close, at), others = move(bars.index->close, at);
            x += own / 20;
            y += others / 20;
            xy += own * others;
            yy += others * others;
        }
        ASSERT_NEAR(values[bar], (xy - 20 * x * y) / (yy - 20 * y * y), 1e-9) << bar;
    }
    EXPECT_EQ(values[19], DBL_MAX) << "twenty moves need twenty-one bars";
    EXPECT_EQ(engine::readFormula("X:BETA(C,20);").problems.size(), 1u);
}

} // namespace
