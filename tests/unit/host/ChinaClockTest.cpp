// SPDX-License-Identifier: MIT
/// @file The clock that Windows goes by in China, beside the zones of a system that knows their past.

#include "host/utils/ChinaClock.h"
#include "host/utils/LocalZone.h"
#include "tests/support/TimeZone.h"

#include <gtest/gtest.h>

namespace {

constexpr std::int64_t kHour = 3'600;

} // namespace

TEST(ChinaClock, AgreesWithTheZoneInEveryHourOfTwoCenturies)
{
    const test::TimeZone zone("Asia/Shanghai");
    const std::int64_t first = utils::daysFromCivil({ 1890, 1, 1 }) * utils::kSecondsPerDay;
    const std::int64_t last = utils::daysFromCivil({ 2090, 1, 1 }) * utils::kSecondsPerDay;
    for (std::int64_t time = first; time < last; time += kHour)
        ASSERT_EQ(utils::chinaOffset(time), utils::utcOffset(time)) << time;
}

TEST(ChinaClock, IsPutForwardAndBackToTheSecond)
{
    constexpr std::int64_t forward = 671'565'600,
                           back = 684'867'600; // 1991-04-13 18:00, 1991-09-14 17:00 UTC
    EXPECT_EQ(utils::chinaOffset(forward - 1), 8 * kHour);
    EXPECT_EQ(utils::chinaOffset(forward), 9 * kHour);
    EXPECT_EQ(utils::chinaOffset(back - 1), 9 * kHour);
    EXPECT_EQ(utils::chinaOffset(back), 8 * kHour);
}

TEST(ChinaClock, ShowsSolarTimeUntilTheEndOf1900)
{
    constexpr std::int64_t change = -2'177'481'943, solar = 8 * kHour + 5 * 60 + 43;
    EXPECT_EQ(utils::chinaOffset(INT64_MIN), solar);
    EXPECT_EQ(utils::chinaOffset(change - 1), solar);
    EXPECT_EQ(utils::chinaOffset(change), 8 * kHour);
}

TEST(ChinaClock, IsEightHoursAheadForEver)
{
    EXPECT_EQ(utils::chinaOffset(INT64_MAX), 8 * kHour);
}
