// SPDX-License-Identifier: MIT
#include "engine/calendar/LocalTime.h"

#include "host/utils/LocalZone.h"

namespace engine {

std::optional<CivilTime> LocalTime::local(std::int64_t ms)
{
    using utils::floorDiv, utils::kSecondsPerDay;
    constexpr std::int64_t earliest = -62'135'596'800, latest = 253'402'300'799; // years 1 and 9999
    constexpr std::int64_t quarterOfAnHour = 900;
    const std::int64_t seconds = floorDiv(ms, 1000);
    if (seconds < earliest + kSecondsPerDay || seconds > latest - kSecondsPerDay)
        return std::nullopt;
    const std::int64_t quarter = floorDiv(seconds, quarterOfAnHour);
    if (quarter != m_quarter) {
        const std::optional<std::int64_t> offset = utils::utcOffset(seconds);
        if (!offset)
            return std::nullopt;
        m_quarter = quarter;
        m_offset = *offset;
    }
    const std::int64_t local = seconds + m_offset;
    const std::int64_t day = floorDiv(local, kSecondsPerDay);
    const auto ofDay = static_cast<int>(local - day * kSecondsPerDay);
    const utils::CivilDate date = utils::civilFromDays(day);
    return CivilTime {
        static_cast<int>(date.year),          date.month, date.day, ofDay / 3600, ofDay / 60 % 60, ofDay % 60,
        static_cast<int>(ms - seconds * 1000)
    };
}

int weekdayOf(const CivilTime& time)
{
    return utils::weekdayFromDays(utils::daysFromCivil({ time.year, time.month, time.day }));
}

} // namespace engine
