// SPDX-License-Identifier: MIT
#include "apps/chart/LongerBars.h"

#include "engine/Formulas.h"

#include <QDateTime>

#include <gtest/gtest.h>

#include <cmath>

namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

std::int64_t at(int year, int month, int day, int hour = 0, int minute = 0)
{
    return QDateTime(QDate(year, month, day), QTime(hour, minute)).toMSecsSinceEpoch();
}

/// Bars whose prices are built around a close each: open one below, high two above, low two below.
engine::BarSeries bars(const std::vector<std::int64_t>& times, const std::vector<double>& closes)
{
    engine::BarSeries series;
    series.timeMs = times;
    for (double close : closes) {
        series.open.push_back(close - 1);
        series.high.push_back(close + 2);
        series.low.push_back(close - 2);
        series.close.push_back(close);
        series.volume.push_back(100);
        series.amount.push_back(1000);
        series.openInterest.push_back(close * 10);
    }
    return series;
}

engine::BarSeries gathered(const engine::BarSeries& source, const char* key)
{
    const auto* period = chart::offeredPeriod(QString::fromLatin1(key));
    EXPECT_NE(period, nullptr);
    auto longer = chart::longerBars(source, *period);
    EXPECT_TRUE(longer);
    return longer.value_or(engine::BarSeries());
}

/// Two whole weeks of January 2024, Monday the 8th to Friday the 19th, and the Monday behind them.
engine::BarSeries elevenDays()
{
    std::vector<std::int64_t> times;
    std::vector<double> closes;
    for (int day : { 8, 9, 10, 11, 12, 15, 16, 17, 18, 19, 22 }) {
        times.push_back(at(2024, 1, day));
        closes.push_back(day);
    }
    return bars(times, closes);
}

} // namespace

TEST(LongerBars, GathersDaysIntoWeeksWithTheirLastDayAsTheirTime)
{
    const engine::BarSeries weeks = gathered(elevenDays(), "WEEK");
    EXPECT_EQ(weeks.timeMs,
              (std::vector<std::int64_t> { at(2024, 1, 12), at(2024, 1, 19), at(2024, 1, 22) }));
    EXPECT_EQ(weeks.open, (std::vector<double> { 7, 14, 21 }));
    EXPECT_EQ(weeks.high, (std::vector<double> { 14, 21, 24 }));
    EXPECT_EQ(weeks.low, (std::vector<double> { 6, 13, 20 }));
    EXPECT_EQ(weeks.close, (std::vector<double> { 12, 19, 22 }));
    EXPECT_EQ(weeks.volume, (std::vector<double> { 500, 500, 100 }));
    EXPECT_EQ(weeks.amount, (std::vector<double> { 5000, 5000, 1000 }));
    EXPECT_EQ(weeks.openInterest, (std::vector<double> { 120, 190, 220 }));
}

TEST(LongerBars, AMissingPriceDoesNotSpoilItsPeriod)
{
    engine::BarSeries days = elevenDays();
    days.open[0] = days.high[4] = days.low[0] = days.close[4] = days.volume[2] = kNone;
    const engine::BarSeries weeks = gathered(days, "WEEK");
    EXPECT_EQ(weeks.open[0], 8);
    EXPECT_EQ(weeks.high[0], 13);
    EXPECT_EQ(weeks.low[0], 7);
    EXPECT_EQ(weeks.close[0], 11);
    EXPECT_EQ(weeks.volume[0], 400);
}

TEST(LongerBars, APeriodWithoutAnyPriceHasNone)
{
    engine::BarSeries days = elevenDays();
    for (std::size_t bar = 0; bar < 5; ++bar)
        days.close[bar] = kNone;
    EXPECT_TRUE(std::isnan(gathered(days, "WEEK").close[0]));
}

TEST(LongerBars, GathersMinutesOfTradingByTheirLastMinute)
{
    std::vector<std::int64_t> times;
    std::vector<double> closes;
    for (int minute = 31; minute <= 47; ++minute) {
        times.push_back(at(2024, 1, 8, 9, minute));
        closes.push_back(minute);
    }
    const engine::BarSeries fives = gathered(bars(times, closes), "MIN5");
    EXPECT_EQ(fives.timeMs,
              (std::vector<std::int64_t> { at(2024, 1, 8, 9, 35), at(2024, 1, 8, 9, 40),
                                           at(2024, 1, 8, 9, 45), at(2024, 1, 8, 9, 47) }));
    EXPECT_EQ(fives.close, (std::vector<double> { 35, 40, 45, 47 }));
    EXPECT_EQ(fives.volume, (std::vector<double> { 500, 500, 500, 200 }));
}

TEST(LongerBars, DaysOfMinuteBarsHaveTheirDate)
{
    const engine::BarSeries minutes =
        bars({ at(2024, 1, 8, 9, 31), at(2024, 1, 8, 9, 32), at(2024, 1, 8, 15, 0), at(2024, 1, 9, 9, 31) },
             { 1, 2, 3, 4 });
    const engine::BarSeries days = gathered(minutes, "DAY");
    EXPECT_EQ(days.timeMs, (std::vector<std::int64_t> { at(2024, 1, 8), at(2024, 1, 9) }));
    EXPECT_EQ(days.close, (std::vector<double> { 3, 4 }));
}

TEST(LongerBars, BarsThatAreAsLongAreNotGathered)
{
    for (const char* key : { "MIN5", "MIN60", "DAY" })
        EXPECT_FALSE(chart::longerBars(elevenDays(), *chart::offeredPeriod(QString::fromLatin1(key)))) << key;
    EXPECT_FALSE(chart::longerBars({}, *chart::offeredPeriod(QStringLiteral("WEEK"))));
}

TEST(LongerBars, TellFormulasTheirPeriodHoweverFewTheyAre)
{
    const auto formula = engine::readFormula("P:PERIOD;").formula;
    ASSERT_TRUE(formula);
    const std::pair<const char*, double> codes[] = {
        { "WEEK", 6 }, { "MONTH", 7 }, { "QUARTER", 10 }, { "YEAR", 11 }
    };
    for (const auto& [key, code] : codes) {
        const auto records = engine::computeFormula(formula, gathered(elevenDays(), key));
        ASSERT_TRUE(records);
        EXPECT_EQ(records->result.numberSeries.front().front(), code) << key;
    }
}

TEST(LongerBars, TheSecondInstrumentIsGatheredOntoTheSameTimes)
{
    engine::BarSeries days = elevenDays();
    days.index = std::make_shared<const engine::BarSeries>(elevenDays());
    const engine::BarSeries weeks = gathered(days, "WEEK");
    ASSERT_TRUE(weeks.index);
    EXPECT_EQ(weeks.index->timeMs, weeks.timeMs);
    EXPECT_EQ(weeks.index->close, weeks.close);
}
