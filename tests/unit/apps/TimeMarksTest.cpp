// SPDX-License-Identifier: MIT
#include "apps/chart/TimeMarks.h"
#include "tests/support/Trace.h"

#include <QDateTime>

#include <gtest/gtest.h>

namespace {

std::vector<std::int64_t> days(const QDate& first, int count)
{
    std::vector<std::int64_t> times;
    for (int day = 0; day < count; ++day)
        times.push_back(QDateTime(first.addDays(day), QTime(0, 0)).toMSecsSinceEpoch());
    return times;
}

} // namespace

TEST(TimeMarks, StandWhereMonthsBegin)
{
    const auto times = days(QDate(2024, 1, 10), 120); // to 2024-05-08
    const auto marks = chart::timeMarks(times, { 0, 119, 600 }, 70);
    ASSERT_EQ(marks.size(), 4u);
    EXPECT_EQ(marks[0].bar, 22); // 1 February
    EXPECT_EQ(marks[0].text, QStringLiteral("2024-02"));
    EXPECT_EQ(marks[3].text, QStringLiteral("2024-05"));
}

TEST(TimeMarks, AreYearsWhenManyAreShown)
{
    const auto times = days(QDate(2000, 6, 1), 4000);
    const auto marks = chart::timeMarks(times, { 0, 3999, 1000 }, 70);
    ASSERT_FALSE(marks.empty());
    EXPECT_EQ(marks[0].text, QStringLiteral("2001"));
}

TEST(TimeMarks, KeepTheirDistance)
{
    const auto times = days(QDate(1991, 1, 1), 9000);
    for (int count : { 20, 60, 250, 1000, 9000 }) {
        const chart::BarView view { 0, count - 1, 1500 };
        const auto marks = chart::timeMarks(times, view, 70);
        for (std::size_t i = 1; i < marks.size(); ++i)
            EXPECT_GE(view.centre(marks[i].bar) - view.centre(marks[i - 1].bar), 70) << count;
    }
}

TEST(TimeMarks, StopAtTheLastBarThatHasATime)
{
    const auto times = days(QDate(2024, 1, 1), 40);
    for (const auto& mark : chart::timeMarks(times, { 0, 5000, 5000 }, 1))
        EXPECT_LT(mark.bar, 40);
}

TEST(TimeText, ShowsTheTimeOfDayOnlyInsideADay)
{
    std::vector<std::int64_t> times = days(QDate(2024, 3, 5), 1);
    times.push_back(times[0] + 34'200'000);
    EXPECT_EQ(chart::timeText(times, 0), QStringLiteral("2024-03-05"));
    EXPECT_EQ(chart::timeText(times, 1), QStringLiteral("2024-03-05 09:30:00"));
    EXPECT_EQ(chart::timeText(times, -1), QString());
    EXPECT_EQ(chart::timeText(times, 2), QString());
}
