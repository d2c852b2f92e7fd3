// SPDX-License-Identifier: MIT
/// @file Formulas that call one another.

#include "tests/support/EngineBars.h"

#include <gmock/gmock.h>

namespace {

using Series = std::vector<double>;

/// The output X of a text over a random walk.
Series valuesOver(const std::string& text)
{
    const auto reading = engine::readFormula(text);
    EXPECT_TRUE(reading.formula) << text << (reading.problems.empty() ? "" : reading.problems[0].english);
    const auto records = engine::computeFormula(reading.formula, test::randomBars(3, 80));
    return records ? test::seriesOf(*records, "X") : Series();
}

std::string faultOf(const std::string& text, const engine::FormulaLookup& lookup = engine::findBuiltInFormula)
{
    const auto problems = engine::readFormula(text, lookup).problems;
    return problems.empty() ? "" : problems.front().english;
}

TEST(FormulaCalls, AnswerAsTheFormulaItself)
{
    const auto bars = test::randomBars(3, 80);
    EXPECT_EQ(valuesOver("X:KDJ.K;"), test::seriesOf(test::computed("KDJ", bars), "K"));
    EXPECT_EQ(valuesOver("X:\"kdj.j\";"), test::seriesOf(test::computed("KDJ", bars), "J"));
    EXPECT_EQ(valuesOver("X:MACD.DIF(5,10,3);"),
              test::seriesOf(test::computed("MACD", bars, { 5, 10, 3 }), "DIF"));
    EXPECT_EQ(valuesOver("X:MACD.DIF(5);"), test::seriesOf(test::computed("MACD", bars, { 5 }), "DIF"));
    EXPECT_EQ(valuesOver("PARAM N(7,1,9); X:MA.MA5(N);"), valuesOver("X:MA(C,7);"));
    EXPECT_EQ(valuesOver("X:MA.MA5(0);"), valuesOver("X:C;")) << "moved into the range";
}

TEST(FormulaCalls, NameWhatCannotBeCalled)
{
    EXPECT_EQ(faultOf("X:NOSUCH.K;"), "unknown formula NOSUCH");
    EXPECT_EQ(faultOf("X:KDJ.Q;"), "the formula KDJ has no value Q");
    EXPECT_EQ(faultOf("X:KLINE.KLINE;"), "the formula KLINE has no value KLINE") << "a drawing";
    EXPECT_EQ(faultOf("X:KDJ.K(C);"),
              "expected a number or a parameter, which does not change from bar to bar");
    EXPECT_EQ(faultOf("X:KDJ.K(1,2,3,4);"), "an argument too many for the formula");
    EXPECT_EQ(faultOf("X:\"KDJ.Q#WEEK\";"), "the formula KDJ has no value Q");
    EXPECT_EQ(faultOf("X:\"KDJ.K#FORTNIGHT\";"),
              "unknown period, expected MIN5, MIN15, MIN30, MIN60, DAY, WEEK, MONTH, QUARTER or YEAR");
}

TEST(FormulaCalls, FindWhatTheLookupFindsAndSayWhyNot)
{
    const engine::FormulaLookup lookup = [](const std::string& name) {
        if (name == "MINE")
            return engine::FoundFormula { engine::readFormula("A:C*2;").formula, {}, {} };
        return engine::FoundFormula { nullptr, "环", "a circle" };
    };
    EXPECT_EQ(faultOf("X:MINE.A;", lookup), "");
    EXPECT_EQ(faultOf("X:OTHER.A;", lookup), "a circle");
}

TEST(FormulaCalls, AreBoundedHoweverOftenTheyDouble)
{
    auto formula = engine::readFormula("A:C+1;").formula;
    std::string fault;
    for (int round = 0; round < 40 && fault.empty(); ++round) {
        const auto reading = engine::readFormula("A:F.A*F.A+F.A;", [&](const std::string&) {
            return engine::FoundFormula { formula, {}, {} };
        });
        fault = reading.problems.empty() ? "" : reading.problems.front().english;
        formula = reading.formula;
    }
    EXPECT_THAT(fault, testing::HasSubstr("the formula is too long"));
}

} // namespace
