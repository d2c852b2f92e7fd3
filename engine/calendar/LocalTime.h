// SPDX-License-Identifier: MIT
#pragma once
/// @file Local dates and times of day of bars.

#include "engine/calendar/Times.h"

#include <cstdint>
#include <optional>

namespace engine {

/// Turns times into local calendar time. The offset from UTC is looked up once per quarter of an hour of the
/// times, which is where zones change it. Not for use by several threads at once.
class LocalTime
{
public:
    /// @param ms  milliseconds since 1970-01-01 UTC.
    /// @return nothing outside the years 1 to 9999.
    std::optional<CivilTime> local(std::int64_t ms);

private:
    std::int64_t m_quarter = INT64_MIN; ///< the quarter of an hour that the offset was looked up for
    std::int64_t m_offset = 0;          ///< seconds east of UTC
};

/// 0 Sunday to 6 Saturday.
int weekdayOf(const CivilTime& time);

} // namespace engine
