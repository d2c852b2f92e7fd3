// SPDX-License-Identifier: MIT
/// @file Values of formulas on bars of another period.

#include "engine/evaluation/FormulaEvaluation.h"
#include "engine/kernels/PeriodGroups.h"
#include "tests/support/EngineBars.h"
#include "tests/support/TimeZone.h"

#include <gmock/gmock.h>

namespace {

using Series = std::vector<double>;
using testing::ElementsAre;

constexpr std::int64_t kMinute = 60'000, kDay = 1440 * kMinute;
constexpr std::int64_t kMonday = 1'704'067'200'000; // 1 January 2024, UTC

engine::BarSeries barsAt(const std::vector<std::int64_t>& times)
{
    Series closes;
    for (std::size_t bar = 0; bar < times.size(); ++bar)
        closes.push_back(static_cast<double>(bar + 1));
    engine::BarSeries bars = test::barsOf(closes);
    bars.timeMs = times;
    return bars;
}

engine::FoundFormula called(const std::string& text)
{
    return { engine::readFormula(text).formula, {}, {} };
}

/// The output X of a text that may call the formula F, over bars.
Series valuesOf(const std::string& text, const std::string& f, const engine::BarSeries& bars)
{
    const auto reading = engine::readFormula(text, [&](const std::string&) { return called(f); });
    EXPECT_TRUE(reading.formula) << text;
    const auto records = engine::computeFormula(reading.formula, bars);
    return records ? test::seriesOf(*records, "X") : Series();
}

std::vector<std::size_t> groups(const std::vector<std::int64_t>& times, const char* period)
{
    return engine::language::groupsOf(times, *engine::language::findPeriod(period));
}

class OtherPeriod : public testing::Test
{
    test::TimeZone m_zone { "UTC" };
};

TEST_F(OtherPeriod, WeeksBeginOnMondayAndMonthsWithTheCalendar)
{
    std::vector<std::int64_t> days;
    for (int day = -3; day < 12; ++day) // from Friday, 29 December
        days.push_back(kMonday + day * kDay);
    EXPECT_THAT(groups(days, "WEEK"), ElementsAre(0, 0, 0, 1, 1, 1, 1, 1, 1, 1, 2, 2, 2, 2, 2));
    EXPECT_THAT(groups(days, "MONTH"), ElementsAre(0, 0, 0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1));
    EXPECT_EQ(groups(days, "YEAR"), groups(days, "MONTH"));
    EXPECT_EQ(groups(days, "QUARTER"), groups(days, "SEASON"));
    EXPECT_EQ(groups(days, "DAY").back(), 14u);
    EXPECT_TRUE(groups(days, "MIN60").empty()) << "days are no part of an hour";
}

TEST_F(OtherPeriod, MinutesAreCountedFromTheFirstBarOfADayAndOverItsBreaks)
{
    std::vector<std::int64_t> times; // 9:30 to 11:30 and 13:00 to 15:00, ten minutes each
    for (int day = 0; day < 2; ++day) {
        for (int bar = 0; bar < 24; ++bar)
            times.push_back(kMonday + day * kDay + (570 + bar * 10 + (bar >= 12 ? 90 : 0)) * kMinute);
    }
    std::vector<std::size_t> hours;
    for (std::size_t bar = 0; bar < times.size(); ++bar)
        hours.push_back(bar / 6);
    EXPECT_EQ(groups(times, "MIN60"), hours);
    EXPECT_TRUE(groups(times, "MIN5").empty());
    EXPECT_EQ(groups(times, "DAY").back(), 1u);
}

TEST_F(OtherPeriod, LongerBarsHoldWhatHappenedInThem)
{
    std::vector<std::int64_t> times;
    for (int day = 0; day < 14; ++day)
        times.push_back(kMonday + day * kDay);
    engine::BarSeries bars = barsAt(times);
    bars.close[6] = DBL_MAX; // missing: the close before it counts
    const std::string prices = "P:O*1000000+H*10000+L*100+C; N:V;";
    EXPECT_THAT(valuesOf("X:\"F.P#WEEK\";", prices, bars),
                ElementsAre(1070106, 1070106, 1070106, 1070106, 1070106, 1070106, 1070106, 8140814, 8140814,
                            8140814, 8140814, 8140814, 8140814, 8140814));
    EXPECT_EQ(valuesOf("X:\"F.N#week\";", prices, bars), Series(14, 700.0));
}

TEST_F(OtherPeriod, AnswersAsTheFormulaDoesOverTheLongerBars)
{
    const engine::BarSeries days = test::sampleBars("SH600030");
    const auto weekOf = groups(days.timeMs, "WEEK");
    const engine::BarSeries weeks = engine::language::gathered(days, weekOf);
    EXPECT_GT(weeks.size(), 1100u);
    const Series expected = test::seriesOf(test::computed("KDJ", weeks, { 5 }), "K");
    const auto reading = engine::readFormula("X:\"KDJ.K#WEEK\"(5);");
    ASSERT_TRUE(reading.formula);
    ASSERT_EQ(reading.hints.size(), 1u);
    EXPECT_THAT(reading.hints[0].english, testing::HasSubstr("looks into the future"));
    const Series values = test::seriesOf(*engine::computeFormula(reading.formula, days), "X");
    for (std::size_t bar = 0; bar < days.size(); ++bar)
        ASSERT_EQ(values[bar], expected[weekOf[bar]]) << bar;
}

TEST_F(OtherPeriod, FollowsBarsThatAreAppended)
{
    const engine::BarSeries all = test::sampleBars("SFCU00");
    const auto formula = engine::readFormula("X:\"MACD.DIF#MONTH\"+C;").formula;
    engine::FormulaEvaluation evaluation(formula);
    for (const std::size_t count : { 300u, 301u, 303u, 330u }) {
        engine::BarSeries bars = all;
        for (auto* column :
             { &bars.open, &bars.high, &bars.low, &bars.close, &bars.volume, &bars.openInterest })
            column->resize(count);
        bars.timeMs.resize(count);
        ASSERT_TRUE(evaluation.update(bars));
        EXPECT_EQ(test::seriesOf(evaluation.records(), "X"),
                  test::seriesOf(*engine::computeFormula(formula, bars), "X"));
    }
}

TEST_F(OtherPeriod, ComparesWithTheIndexOfTheSameDays)
{
    std::vector<std::int64_t> times { kMonday + kDay, kMonday + 2 * kDay, kMonday + 7 * kDay };
    engine::BarSeries bars = barsAt(times);
    engine::BarSeries index = barsAt({ kMonday, kMonday + kDay, kMonday + 2 * kDay, kMonday + 3 * kDay });
    bars.index = std::make_shared<const engine::BarSeries>(index);
    EXPECT_THAT(valuesOf("X:\"F.I#WEEK\";", "I:INDEXC;", bars), ElementsAre(3, 3, DBL_MAX));
}

TEST_F(OtherPeriod, IsBoundedAndNotNested)
{
    const auto fault = [](const std::string& text, const std::string& f) {
        const auto reading = engine::readFormula(text, [&](const std::string& name) {
            return name == "F" ? called(f) : engine::findBuiltInFormula(name);
        });
        return reading.problems.empty() ? "" : reading.problems.front().english;
    };
    EXPECT_EQ(fault("X:\"F.A#WEEK\";", "A:\"KDJ.K#MONTH\";"),
              "the formula that is called uses another period itself");
    EXPECT_EQ(fault("X:F.A;", "A:\"KDJ.K#MONTH\";"), "");
    std::string many = "X:0";
    for (int call = 1; call < 2000; ++call)
        many += "+\"KDJ.K#WEEK\"(" + std::to_string(call) + ")";
    EXPECT_EQ(fault(many + ";", ""), "the formula is too long");
    EXPECT_EQ(valuesOf("X:\"F.A#WEEK\";", "A:AMOUNT;", barsAt({ kMonday, kMonday + kDay })),
              Series(2, DBL_MAX));
    EXPECT_EQ(valuesOf("X:\"F.A#WEEK\";", "A:C;", {}), Series());
}

} // namespace
