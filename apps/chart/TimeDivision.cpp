// SPDX-License-Identifier: MIT
#include "apps/chart/TimeDivision.h"

#include "host/utils/LocalZone.h"

#include <algorithm>

namespace chart {

namespace {

using utils::floorDiv;
using utils::kSecondsPerDay;

constexpr std::int64_t kDaysToMonday = 3; // 1970-01-01 was a Thursday

/// Months since January of the year 0.
std::int64_t monthOf(LocalSeconds time)
{
    const utils::CivilDate date = utils::civilFromDays(floorDiv(time, kSecondsPerDay));
    return date.year * 12 + date.month - 1;
}

LocalSeconds beginOfMonth(std::int64_t month)
{
    const std::int64_t year = floorDiv(month, 12);
    return utils::daysFromCivil({ year, static_cast<int>(month - year * 12) + 1, 1 }) * kSecondsPerDay;
}

} // namespace

std::optional<LocalSeconds> localSeconds(std::int64_t timeMs)
{
    const std::int64_t seconds = floorDiv(timeMs, 1000);
    const std::optional<std::int64_t> offset = utils::utcOffset(seconds);
    return offset ? std::optional(seconds + *offset) : std::nullopt;
}

LocalSeconds TimeDivision::pieceOf(LocalSeconds time) const
{
    switch (unit) {
    case Unit::Second: return floorDiv(time, length) * length;
    case Unit::Day: return floorDiv(time, kSecondsPerDay * length) * kSecondsPerDay * length;
    case Unit::Week:
        return (floorDiv(floorDiv(time, kSecondsPerDay) + kDaysToMonday, 7) * 7 - kDaysToMonday)
            * kSecondsPerDay;
    default: return beginOfMonth(floorDiv(monthOf(time), length) * length);
    }
}

LocalSeconds TimeDivision::nextPiece(LocalSeconds piece) const
{
    switch (unit) {
    case Unit::Second: return piece + length;
    case Unit::Day: return piece + kSecondsPerDay * length;
    case Unit::Week: return piece + kSecondsPerDay * 7;
    default: return beginOfMonth(monthOf(piece) + length);
    }
}

const std::vector<TimeDivision>& timeDivisions()
{
    using Unit = TimeDivision::Unit;
    static const std::vector<TimeDivision> all = [] {
        std::vector<TimeDivision> made;
        for (int seconds : { 1, 2, 5, 10, 15, 30, 60, 120, 300, 600, 900, 1800, 3600, 7200, 14400, 21600 })
            made.push_back({ Unit::Second, seconds });
        made.push_back({ Unit::Day, 1 });
        made.push_back({ Unit::Week, 1 });
        for (int months : { 1, 3, 6, 12, 24, 60, 120, 600 })
            made.push_back({ Unit::Month, months });
        return made;
    }();
    return all;
}

int firstBarFrom(const std::vector<std::int64_t>& times, LocalSeconds piece, int first, int last)
{
    const std::int64_t days = floorDiv(piece, kSecondsPerDay);
    const auto second = static_cast<int>(piece - days * kSecondsPerDay);
    const std::optional<std::int64_t> seconds =
        utils::secondsFromLocal(utils::civilFromDays(days), 0, 0, second);
    if (!seconds)
        return last + 1;
    const auto from = times.begin() + first, to = times.begin() + last + 1;
    return static_cast<int>(std::lower_bound(from, to, *seconds * 1000) - times.begin());
}

} // namespace chart
