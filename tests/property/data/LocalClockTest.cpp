// SPDX-License-Identifier: MIT
#include "data/internal/LocalClock.h"
#include "host/utils/LocalZone.h"
#include "tests/support/TimeZone.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <iomanip>
#include <random>
#include <sstream>
#include <vector>

namespace {

constexpr std::int64_t kHour = 3'600;

/// The text by a look-up of every time and a stream.
std::string plainText(std::int64_t seconds)
{
    const std::optional<std::tm> local = test::systemTime(seconds);
    if (!local)
        return {};
    std::ostringstream out;
    out << std::setfill('0') << std::internal;
    out << std::right << std::setw(4) << std::int64_t { local->tm_year } + 1900 << '/' << std::setw(2)
        << local->tm_mon + 1 << '/' << std::setw(2) << local->tm_mday << ' ' << std::setw(2) << local->tm_hour
        << ':' << std::setw(2) << local->tm_min;
    return out.str();
}

bool changesWithin(std::int64_t from, std::int64_t to)
{
    return utils::utcOffset(from) != utils::utcOffset(to);
}

/// Times on which a zone changes, to the second, from 1850 to 2100: weeks whose ends differ are cut down.
std::vector<std::int64_t> changesOfZone()
{
    constexpr std::int64_t first = -3'786'825'600, last = 4'102'444'800, week = 168 * kHour;
    std::vector<std::int64_t> changes;
    for (std::int64_t from = first; from < last; from += week) {
        std::int64_t low = from, high = from + week;
        if (!changesWithin(low, high))
            continue;
        while (high - low > 1) {
            const std::int64_t middle = low + (high - low) / 2;
            (changesWithin(low, middle) ? high : low) = middle;
        }
        changes.push_back(high);
    }
    return changes;
}

/// One clock writes all times, in their order, as an export does.
void expectPlainTexts(const std::vector<std::int64_t>& times)
{
    TC::detail::LocalClock clock;
    for (const std::int64_t seconds : times) {
        std::string text;
        clock.append(text, seconds * 1000, true);
        ASSERT_EQ(text, plainText(seconds)) << seconds;
    }
}

class LocalClockInZone : public testing::TestWithParam<const char*>
{
protected:
    void SetUp() override
    {
        if (!test::isTimeZone(GetParam()))
            GTEST_SKIP() << "no zone of this system";
    }

    test::TimeZone zone { GetParam() };
};

} // namespace

TEST_P(LocalClockInZone, AgreesWithALookUpAroundEveryChange)
{
    std::vector<std::int64_t> times;
    for (const std::int64_t change : changesOfZone())
        for (const std::int64_t off : std::initializer_list<std::int64_t> {
                 -2 * kHour, -kHour, -1801, -61, -1, 0, 1, 59, 1799, kHour, 2 * kHour })
            times.push_back(change + off);
    expectPlainTexts(times);
}

TEST_P(LocalClockInZone, AgreesWithALookUpForEveryBarSpacing)
{
    for (const std::int64_t spacing : std::initializer_list<std::int64_t> { 60, 300, 1'800, kHour, 24 * kHour,
                                                                            168 * kHour, 744 * kHour }) {
        std::vector<std::int64_t> times;
        for (int bar = -1000; bar < 1000; ++bar)
            times.push_back(1'710'000'000 + bar * spacing);
        expectPlainTexts(times);
    }
}

TEST_P(LocalClockInZone, AgreesWithALookUpForTimesInNoOrder)
{
    std::mt19937_64 random(11);
    std::vector<std::int64_t> times;
    for (int round = 0; round < 2000; ++round) {
        const auto wide = static_cast<std::int64_t>(random()) / 1000;
        times.push_back(wide >> (random() % 40));
    }
    times.push_back(INT64_MAX / 1000);
    times.push_back(INT64_MIN / 1000);
    expectPlainTexts(times);
}

// Zones that count leap seconds ("right/...") show 23:59:60 as 23:59.
TEST_P(LocalClockInZone, AgreesWithALookUpAroundALeapSecond)
{
    constexpr std::int64_t endOf2016 = 1'483'228'826; // after 26 leap seconds
    std::vector<std::int64_t> times;
    for (std::int64_t off = -70; off <= 70; ++off)
        times.push_back(endOf2016 + off);
    expectPlainTexts(times);
}

INSTANTIATE_TEST_SUITE_P(Zones, LocalClockInZone,
                         testing::Values("Asia/Shanghai", "UTC", "America/New_York", "Europe/London",
                                         "Europe/Amsterdam", "Asia/Kolkata", "Australia/Lord_Howe",
                                         "America/St_Johns", "Africa/Casablanca", "Africa/Monrovia",
                                         "Africa/Freetown", "Pacific/Apia", "Asia/Gaza", "Antarctica/Troll",
                                         "right/America/New_York", "XXX-8", "EST5EDT,M3.2.0,M11.1.0"),
                         [](const auto& zone) { return "zone" + std::to_string(zone.index); });
