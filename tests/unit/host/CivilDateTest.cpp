// SPDX-License-Identifier: MIT
#include "host/utils/CivilDate.h"

#include <gtest/gtest.h>

namespace {

using utils::CivilDate;

/// The day after, by the rules that children learn.
CivilDate dayAfter(CivilDate date)
{
    const bool isLeapYear = (date.year % 4 == 0 && date.year % 100 != 0) || date.year % 400 == 0;
    const int days[] = { 31, isLeapYear ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31 };
    if (++date.day > days[date.month - 1]) {
        date.day = 1;
        ++date.month;
    }
    if (date.month > 12) {
        date.month = 1;
        ++date.year;
    }
    return date;
}

TEST(CivilDate, CountsEveryDayOfThreeThousandYearsOnce)
{
    CivilDate date { -400, 1, 1 };
    int weekday = 6; // the calendar repeats after 400 years, weekdays included, and 2000 began on a Saturday
    for (std::int64_t day = utils::daysFromCivil(date); date.year < 2600; ++day) {
        ASSERT_EQ(utils::daysFromCivil(date), day) << date.year << '-' << date.month << '-' << date.day;
        const CivilDate back = utils::civilFromDays(day);
        ASSERT_TRUE(back.year == date.year && back.month == date.month && back.day == date.day) << day;
        ASSERT_EQ(utils::weekdayFromDays(day), weekday) << day;
        date = dayAfter(date);
        weekday = (weekday + 1) % 7;
    }
}

TEST(CivilDate, BeginsOnTheFirstDayOf1970)
{
    EXPECT_EQ(utils::daysFromCivil({ 1970, 1, 1 }), 0);
    EXPECT_EQ(utils::daysFromCivil({ 2024, 3, 5 }), 19'787);
}

} // namespace
