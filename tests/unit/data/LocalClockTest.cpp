// SPDX-License-Identifier: MIT
#include "data/internal/LocalClock.h"
#include "tests/support/FormulaBuilder.h"
#include "tests/support/Pane.h"
#include "tests/support/TimeZone.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

constexpr std::int64_t kSecond = 1000, kHour = 3'600'000;

std::string shown(std::int64_t msecs, bool withTime = true)
{
    std::string text;
    TC::detail::LocalClock().append(text, msecs, withTime);
    return text;
}

} // namespace

TEST(TimeSlide, ShowsDateAndTimeOfABar)
{
    auto cache = test::FormulaBuilder().line({ 1.0 }).times({ 1'709'602'259'999 }).build();
    test::Pane pane;
    // 1709602259 = 2024-03-05 01:30:59 UTC; seconds are never shown
    EXPECT_EQ(pane.getTimeSlide(0, cache.result, true), "2024/03/05 09:30");
    EXPECT_EQ(pane.getTimeSlide(0, cache.result, false), "2024/03/05");
}

TEST(TimeSlide, IsEmptyForABarThatDoesNotExist)
{
    auto cache = test::FormulaBuilder().line({ 1.0 }).build();
    for (const int bar : { INT_MIN, -1, 1, INT_MAX })
        EXPECT_EQ(test::Pane().getTimeSlide(bar, cache.result, true), "") << bar;
}

TEST(LocalClock, CutsMillisecondsTowardZero)
{
    const test::TimeZone utc("UTC");
    EXPECT_EQ(shown(-1), "1970/01/01 00:00");
    EXPECT_EQ(shown(-999), "1970/01/01 00:00");
    EXPECT_EQ(shown(-1000), "1969/12/31 23:59");
    EXPECT_EQ(shown(59'999), "1970/01/01 00:00");
}

TEST(LocalClock, ShowsYearsBefore1970AndBeyond9999)
{
    const test::TimeZone utc("UTC");
    EXPECT_EQ(shown(-2'208'988'800 * kSecond), "1900/01/01 00:00");
    EXPECT_EQ(shown(253'402'300'800 * kSecond), "10000/01/01 00:00");
    EXPECT_EQ(shown(-62'167'219'200 * kSecond), "0000/01/01 00:00");
    EXPECT_EQ(shown(-62'198'755'200 * kSecond), "00-1/01/01 00:00");
}

TEST(LocalClock, ShowsTheExtremesOfItsRange)
{
    const test::TimeZone utc("UTC");
    EXPECT_EQ(shown(INT64_MAX), "292278994/08/17 07:12");
    EXPECT_EQ(shown(INT64_MIN), "-292275055/05/16 16:47");
}

TEST(LocalClock, KnowsLeapDays)
{
    const test::TimeZone utc("UTC");
    EXPECT_EQ(shown(951'782'400 * kSecond, false), "2000/02/29");
    EXPECT_EQ(shown(1'709'251'199 * kSecond), "2024/02/29 23:59");
    EXPECT_EQ(shown(-2'203'891'200 * kSecond, false), "1900/03/01"); // the day after 1900/02/28
    EXPECT_EQ(shown(-2'203'891'201 * kSecond, false), "1900/02/28");
}

TEST(LocalClock, FollowsSummerTime)
{
    const test::TimeZone newYork("America/New_York");
    TC::detail::LocalClock clock;
    const auto next = [&](std::int64_t msecs) {
        std::string text;
        clock.append(text, msecs, true);
        return text;
    };
    const std::int64_t springForward = 1'710'054'000 * kSecond; // 2024-03-10 07:00 UTC
    EXPECT_EQ(next(springForward - kSecond), "2024/03/10 01:59");
    EXPECT_EQ(next(springForward), "2024/03/10 03:00");
    const std::int64_t fallBack = 1'730'613'600 * kSecond; // 2024-11-03 06:00 UTC
    EXPECT_EQ(next(fallBack - kSecond), "2024/11/03 01:59");
    EXPECT_EQ(next(fallBack), "2024/11/03 01:00");
    EXPECT_EQ(next(fallBack + kHour), "2024/11/03 02:00");
}

// Shanghai left its solar time, 8:05:43 ahead of UTC, within an hour: on 1900-12-31 at 15:54:17 UTC.
TEST(LocalClock, FollowsAZoneThatChangesWithinAnHour)
{
    const std::int64_t change = -2'177'481'943 * kSecond;
    EXPECT_EQ(shown(change - kSecond), "1900/12/31 23:59");
    EXPECT_EQ(shown(change), "1900/12/31 23:54");
    EXPECT_EQ(shown(change - 17 * kSecond - 3240 * kSecond), "1900/12/31 23:05");
}

TEST(LocalClock, FollowsAZoneSetLater)
{
    const test::TimeZone utc("UTC");
    EXPECT_EQ(shown(0), "1970/01/01 00:00");
    qputenv("TZ", "Asia/Tokyo"); // nobody tells the C library
    EXPECT_EQ(shown(0), "1970/01/01 09:00");
}
