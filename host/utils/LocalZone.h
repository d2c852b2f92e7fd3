// SPDX-License-Identifier: MIT
#pragma once
/// @file The local time zone, the one place that asks the platform for it.
///
/// Times are seconds since 1970-01-01 UTC. All functions may be called from any thread.

#include "host/utils/CivilDate.h"

#include <ctime>
#include <optional>

namespace utils {

/// Takes in a zone that was set since the last look-up (environment variable TZ).
inline void refreshLocalZone()
{
#ifdef _WIN32
    _tzset();
#else
    tzset();
#endif
}

/// The fields that a local calendar and clock show; nothing for a time that the platform cannot convert.
inline std::optional<std::tm> localParts(std::int64_t seconds)
{
    std::tm parts {};
#ifdef _WIN32
    // The runtime library knows the years 1970 to 3000 and one rule of the zone for all of them: other times
    // are moved there by whole eras, after which the calendar repeats.
    constexpr std::int64_t era = kDaysPerEra * kSecondsPerDay, maxEras = 5'000'000;
    const std::int64_t eras = floorDiv(seconds - kSecondsPerDay, era);
    const std::time_t moved = seconds - eras * era;
    if (eras < -maxEras || eras > maxEras || localtime_s(&parts, &moved) != 0)
        return std::nullopt;
    parts.tm_year += static_cast<int>(eras * 400);
#else
    const auto time = static_cast<std::time_t>(seconds);
    if (!localtime_r(&time, &parts))
        return std::nullopt;
#endif
    return parts;
}

/// The day of a broken-down time.
inline CivilDate dateOf(const std::tm& parts)
{
    return { std::int64_t { parts.tm_year } + 1900, parts.tm_mon + 1, parts.tm_mday };
}

/// Seconds since midnight.
inline std::int64_t secondOfDay(int hour, int minute, int second)
{
    return std::int64_t { hour } * 3'600 + std::int64_t { minute } * 60 + second;
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
