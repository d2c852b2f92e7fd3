// SPDX-License-Identifier: MIT
#pragma once
/// @file The local time zone, the one place that asks the platform for it.
///
/// Times are seconds since 1970-01-01 UTC. All functions may be called from any thread.

#include "host/utils/CivilDate.h"

#include <ctime>
#include <optional>

#ifdef _WIN32
#include "host/utils/WindowsZone.h"

#include <limits>
#endif

namespace utils {

/// Takes in a zone that was set since the last look-up (environment variable TZ).
inline void refreshLocalZone()
{
#ifndef _WIN32
    tzset();
#endif
}

/// The day of a broken-down time.
inline CivilDate dateOf(const std::tm& parts)
{
    return { std::int64_t { parts.tm_year } + 1900, parts.tm_mon + 1, parts.tm_mday };
}

/// Seconds since midnight.
constexpr std::int64_t secondOfDay(int hour, int minute, int second)
{
    return std::int64_t { hour } * 3'600 + std::int64_t { minute } * 60 + second;
}

#ifdef _WIN32

using windows::utcOffset;

/// The fields that a local calendar and clock show; nothing for a time that the platform cannot convert.
inline std::optional<std::tm> localParts(std::int64_t seconds)
{
    constexpr std::int64_t last = std::numeric_limits<int>::max() * (365 * kSecondsPerDay);
    const std::optional<std::int64_t> offset = utcOffset(seconds);
    if (!offset || seconds < -last || seconds > last)
        return std::nullopt;
    const std::int64_t shown = seconds + *offset, days = floorDiv(shown, kSecondsPerDay);
    const auto ofDay = static_cast<int>(shown - days * kSecondsPerDay);
    const CivilDate date = civilFromDays(days);
    std::tm parts {};
    parts.tm_year = static_cast<int>(date.year - 1900);
    parts.tm_mon = date.month - 1;
    parts.tm_mday = date.day;
    parts.tm_wday = weekdayFromDays(days);
    parts.tm_yday = static_cast<int>(days - daysFromCivil({ date.year, 1, 1 }));
    parts.tm_hour = ofDay / 3'600;
    parts.tm_min = ofDay / 60 % 60;
    parts.tm_sec = ofDay % 60;
    return parts;
}

#else

/// The fields that a local calendar and clock show; nothing for a time that the platform cannot convert.
inline std::optional<std::tm> localParts(std::int64_t seconds)
{
    std::tm parts {};
    const auto time = static_cast<std::time_t>(seconds);
    return localtime_r(&time, &parts) ? std::optional(parts) : std::nullopt;
}

/// Seconds by which local time is ahead of UTC at a time.
inline std::optional<std::int64_t> utcOffset(std::int64_t seconds)
{
    const std::optional<std::tm> parts = localParts(seconds);
    if (!parts)
        return std::nullopt;
    const std::int64_t shown = daysFromCivil(dateOf(*parts)) * kSecondsPerDay
        + secondOfDay(parts->tm_hour, parts->tm_min, parts->tm_sec);
    return shown - seconds;
}

#endif

/// The time at which local calendar and clock show a date and a time of day; of two such times the first. A
/// time that they never show is taken as if the clock had not yet been put forward: half past two in the hour
/// that is left out is half past three. Nothing when the platform cannot tell.
inline std::optional<std::int64_t> secondsFromLocal(const CivilDate& date, int hour, int minute, int second)
{
    // Deliberate: no mktime, which answers for such times by what it was asked before.
    const std::int64_t shown = daysFromCivil(date) * kSecondsPerDay + secondOfDay(hour, minute, second);
    const std::optional<std::int64_t> before = utcOffset(shown - kSecondsPerDay);
    if (!before || utcOffset(shown - *before) == before)
        return before ? std::optional(shown - *before) : std::nullopt;
    const std::optional<std::int64_t> after = utcOffset(shown + kSecondsPerDay);
    const bool isShown = after && utcOffset(shown - *after) == after;
    return shown - (isShown ? *after : *before);
}

} // namespace utils
