// SPDX-License-Identifier: MIT
#pragma once
/// @file Dates and times of day in text files.

#include <cstdint>
#include <optional>
#include <string_view>

namespace engine {

/// A calendar date and a time of day.
struct CivilTime
{
    int year = 1970, month = 1, day = 1; ///< 1 to 9999, 1 to 12, 1 to 31
    int hour = 0, minute = 0, second = 0, millisecond = 0;
};

/// Reads 2024-03-05 or 2024/03/05 into the date fields. @return false for anything else, and for dates that
/// do not exist.
bool readDate(std::string_view text, CivilTime& time);

/// Reads 9:30, 09:30, 09:30:15 or 09:30:15.25 into the time fields; up to nine decimals, cut at the
/// millisecond.
bool readTimeOfDay(std::string_view text, CivilTime& time);

/// Milliseconds since 1970-01-01 UTC of a time that is UTC.
std::int64_t utcMs(const CivilTime& time);

/// Milliseconds since 1970-01-01 UTC of a local time; nothing when the platform cannot tell. Any thread.
std::optional<std::int64_t> localMs(const CivilTime& time);

} // namespace engine
