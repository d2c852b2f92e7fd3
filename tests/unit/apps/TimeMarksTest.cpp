// SPDX-License-Identifier: MIT
#include "apps/chart/TimeMarks.h"
#include "tests/support/Trace.h"

#include <QDateTime>

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>

namespace {

std::vector<std::int64_t> days(const QDate& first, int count)
{
    std::vector<std::int64_t> times;
    for (int day = 0; day < count; ++day)
        times.push_back(QDateTime(first.addDays(day), QTime(0, 0)).toMSecsSinceEpoch());
    return times;
}

std::int64_t at(const char* time)
{
    return QDateTime::fromString(QString::fromLatin1(time), Qt::ISODate).toMSecsSinceEpoch();
}

/// Bars of one minute, named by their ends as data services do: 9:31 to 11:30 and 13:01 to 15:00.
std::vector<std::int64_t> minutesOfDays(const std::vector<const char*>& dates)
{
    std::vector<std::int64_t> times;
    for (const char* date : dates) {
        const std::int64_t midnight = at(date);
        for (int minute = 9 * 60 + 31; minute <= 15 * 60; ++minute) {
            if (minute <= 11 * 60 + 30 || minute > 13 * 60)
                times.push_back(midnight + std::int64_t { minute } * 60'000);
        }
    }
    return times;
}

QString textsOf(const std::vector<chart::TimeMark>& marks)
{
    QStringList texts;
    for (const chart::TimeMark& mark : marks)
        texts << mark.text;
    return texts.join(QStringLiteral(", "));
}

/// Half the distance that the tests ask for: a mark further left has no room for its text.
constexpr int kReadable = 37;

} // namespace

TEST(TimeMarks, InsideADayStandAtRoundTimesWithTheDateWhereTheDayChanges)
{
    const auto times = minutesOfDays({ "2024-01-02T00:00:00", "2024-01-03T00:00:00" });
    const auto marks = chart::timeMarks(times, { 120, 359, 1200 }, 74); // afternoon and morning
    EXPECT_EQ(textsOf(marks),
              QStringLiteral("13:15, 13:30, 13:45, 14:00, 14:15, 14:30, 14:45, 01-03, 10:00, 10:15, 10:30, "
                             "10:45, 11:00, 11:15, 11:30"));
    for (const chart::TimeMark& mark : marks)
        EXPECT_TRUE(chart::timeText(times, mark.bar).contains(mark.text)) << mark.text.toStdString();
}

TEST(TimeMarks, WithinOneDayTheFirstReadableOneTellsTheDay)
{
    const auto times = minutesOfDays({ "2024-01-02T00:00:00" });
    const auto marks = chart::timeMarks(times, { 60, 119, 600 }, 74);
    EXPECT_EQ(textsOf(marks), QStringLiteral("01-02 10:40, 10:50, 11:00, 11:10, 11:20, 11:30"));
}

TEST(TimeMarks, OfTradesStandAtTheFirstTradeOfARoundMinute)
{
    const std::vector<std::int64_t> times = { at("2024-01-02T10:28:59"), at("2024-01-02T10:29:59"),
                                              at("2024-01-02T10:30:03"), at("2024-01-02T10:32:10"),
                                              at("2024-01-02T10:35:40"), at("2024-01-02T10:36:00") };
    EXPECT_EQ(textsOf(chart::timeMarks(times, { 0, 5, 250 }, 74)), QStringLiteral("01-02 10:30, 10:35"));
}

TEST(TimeMarks, NameDaysWithTheYearWhenAFewDaysAreShown)
{
    const auto times = days(QDate(2023, 12, 25), 20);
    EXPECT_EQ(
        textsOf(chart::timeMarks(times, { 4, 13, 1000 }, 74)),
        QStringLiteral("2023-12-29, 12-30, 12-31, 2024-01-01, 01-02, 01-03, 01-04, 01-05, 01-06, 01-07"));
}

TEST(TimeMarks, AreTwoAtLeastAtEveryZoomOfEveryPeriod)
{
    std::vector<std::vector<std::int64_t>> series = {
        days(QDate(1991, 1, 1), 9000),
        minutesOfDays({ "2024-01-02T00:00:00", "2024-01-03T00:00:00", "2024-02-05T00:00:00" })
    };
    series.emplace_back();
    for (int month = 0; month < 200; ++month)
        series.back().push_back(
            QDateTime(QDate(2001, 1, 31).addMonths(month), QTime(0, 0)).toMSecsSinceEpoch());
    for (const auto& times : series) {
        const int total = static_cast<int>(times.size());
        for (int count = 10; count < total; count = count * 5 / 4) {
            for (int width : { 260, 700, 1500 }) {
                for (int first : { 0, (total - count) / 3, total - count }) {
                    const chart::BarView view { first, first + count - 1, width };
                    const auto marks = chart::timeMarks(times, view, 74);
                    EXPECT_GE(
                        std::count_if(marks.begin(), marks.end(),
                                      [&](const auto& mark) { return view.centre(mark.bar) >= kReadable; }),
                        2)
                        << total << " bars, " << count << " from " << first << " on " << width << " pixels";
                }
            }
        }
    }
}

TEST(TimeMarks, TakeNoLongerForAMillionBarsThanForFew)
{
    std::vector<std::int64_t> times(1'000'000);
    for (std::size_t bar = 0; bar < times.size(); ++bar)
        times[bar] = static_cast<std::int64_t>(bar) * 60'000;
    const auto elapsed = [&](int count) {
        const std::clock_t start = std::clock();
        for (int run = 0; run < 20; ++run)
            EXPECT_FALSE(chart::timeMarks(times, { 0, count - 1, 1500 }, 74).empty());
        return static_cast<double>(std::clock() - start);
    };
    elapsed(250);                                     // the zone's rules are read
    EXPECT_LT(elapsed(1'000'000), 50 * elapsed(250)); // every bar would cost four thousand times as much
}

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
