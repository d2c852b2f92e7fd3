// SPDX-License-Identifier: MIT
#include "apps/chart/BarPeriod.h"
#include "host/TC/PeriodNames.h"
#include "tests/support/EngineBars.h"

#include <QDateTime>
#include <QString>

#include <limits>

namespace {

using Times = std::vector<std::int64_t>;

std::int64_t at(const QDate& date, const QTime& time = QTime(0, 0))
{
    return QDateTime(date, time).toMSecsSinceEpoch();
}

/// Bars of one length in a morning and an afternoon session, over three weeks of working days; times are
/// the ends of bars.
Times sessions(int minutes)
{
    Times times;
    for (QDate date(2024, 3, 4); date < QDate(2024, 3, 25); date = date.addDays(1)) {
        if (date.dayOfWeek() > Qt::Friday)
            continue;
        for (int end = minutes; end <= 240; end += minutes)
            times.push_back(at(date, QTime(9, 30).addSecs((end <= 120 ? end : end + 90) * 60)));
    }
    return times;
}

/// The last working day of each of `count` months.
Times monthEnds(int count)
{
    Times times;
    for (int month = 0; month < count; ++month) {
        QDate date = QDate(2020, 2, 1).addMonths(month).addDays(-1);
        while (date.dayOfWeek() > Qt::Friday)
            date = date.addDays(-1);
        times.push_back(at(date));
    }
    return times;
}

QString nameOf(const Times& times)
{
    return TC::getCycleName(TC::getPeriodIndex(chart::barPeriod(times)));
}

} // namespace

TEST(BarPeriod, IsTheBarsLengthInsideADay)
{
    EXPECT_EQ(nameOf(sessions(1)), QStringLiteral("1分钟"));
    EXPECT_EQ(nameOf(sessions(5)), QStringLiteral("5分钟"));
    EXPECT_EQ(nameOf(sessions(15)), QStringLiteral("15分钟"));
    EXPECT_EQ(nameOf(sessions(30)), QStringLiteral("30分钟"));
    EXPECT_EQ(nameOf(sessions(60)), QStringLiteral("60分钟"));
}

TEST(BarPeriod, IsADayForBundledBars)
{
    for (const char* name : { "SH600030", "SH000001", "SFCU00" })
        EXPECT_EQ(chart::barPeriod(test::sampleBars(name).timeMs), TC::EFormulaPeriod_Day) << name;
}

TEST(BarPeriod, IsAWeekAlsoWhereHolidaysMoveTheDay)
{
    Times times;
    for (int week = 0; week < 20; ++week) // Fridays, every fourth week ends on Thursday
        times.push_back(at(QDate(2024, 1, 5).addDays(7 * week - (week % 4 == 3 ? 1 : 0))));
    EXPECT_EQ(chart::barPeriod(times), TC::EFormulaPeriod_Week);
}

TEST(BarPeriod, IsAMonthAlsoWhereMonthsEndOnTheirLastTradingDay)
{
    EXPECT_EQ(chart::barPeriod(monthEnds(24)), TC::EFormulaPeriod_Month);
}

TEST(BarPeriod, IsAYear)
{
    EXPECT_EQ(chart::barPeriod({ at(QDate(2021, 12, 31)), at(QDate(2022, 12, 30)), at(QDate(2023, 12, 29)) }),
              TC::EFormulaPeriod_Year);
}

TEST(BarPeriod, IsTheShorterOfTwoEquallyCommonOnes)
{
    EXPECT_EQ(chart::barPeriod({ 0, 300'000, 360'000 }), TC::EFormulaPeriod_Minute);
    EXPECT_EQ(chart::barPeriod({ 0, 60'000, 360'000 }), TC::EFormulaPeriod_Minute);
}

TEST(BarPeriod, OfAnUnusualLengthHasNoName)
{
    EXPECT_EQ(chart::barPeriod(sessions(10)), static_cast<TC::EFormulaPeriod>(600));
    EXPECT_EQ(nameOf(sessions(10)), QString());
}

TEST(BarPeriod, IsADayWhereTimesDoNotTell)
{
    EXPECT_EQ(chart::barPeriod({}), TC::EFormulaPeriod_Day);
    EXPECT_EQ(chart::barPeriod({ 5 }), TC::EFormulaPeriod_Day);
    EXPECT_EQ(chart::barPeriod({ 5000, 5000, 4000 }), TC::EFormulaPeriod_Day);
    EXPECT_EQ(chart::barPeriod({ 0, 1'000'000'000'000 }), TC::EFormulaPeriod_Day);
}

TEST(BarPeriod, IsDefinedForWildTimes)
{
    using Limits = std::numeric_limits<std::int64_t>;
    EXPECT_EQ(chart::barPeriod({ Limits::min(), Limits::max(), Limits::min() }), TC::EFormulaPeriod_Day);
}
