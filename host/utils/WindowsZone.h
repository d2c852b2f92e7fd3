// SPDX-License-Identifier: MIT
#pragma once
/// @file The offset of the local time zone on Windows, whose C library knows one rule for all years.

#include "host/utils/ChinaClock.h"

#include <QDateTime>
#include <QTimeZone>

#include <optional>

namespace utils::windows {

/// The zone that the environment variable TZ names as other systems do ("Asia/Shanghai"), else the machine's.
struct ZoneInUse
{
    QByteArray name;      ///< as the variable says
    QTimeZone zone;       ///< not valid where Windows cannot tell its own
    bool isChina = false; ///< goes by the clock of mainland China, whose former rules Windows does not have
};

/// The zone that counts now; looked up again when the variable changes. One for each thread.
inline const ZoneInUse& zoneInUse()
{
    thread_local ZoneInUse its;
    const QByteArray name = qgetenv("TZ");
    if (!its.zone.isValid() || its.name != name) {
        const QTimeZone named(name);
        its = { name, named.isValid() ? named : QTimeZone::systemTimeZone(), false };
        its.isChina = QTimeZone::ianaIdToWindowsId(its.zone.id()) == "China Standard Time";
    }
    return its;
}

/// A time in the years 1 to 9999 at which the zone follows the same rule, for which Windows has rules.
constexpr std::int64_t withinCalendar(std::int64_t seconds)
{
    constexpr std::int64_t era = kDaysPerEra * kSecondsPerDay;
    constexpr std::int64_t first = daysFromCivil({ 1, 1, 1 }) * kSecondsPerDay;
    constexpr std::int64_t last = daysFromCivil({ 9999, 1, 1 }) * kSecondsPerDay;
    if (seconds < first)
        return first + (seconds % era + era) % era;
    return seconds < last ? seconds : last - era + (seconds - last) % era;
}

/// Seconds by which local time is ahead of UTC; nothing where Windows has no rule.
inline std::optional<std::int64_t> utcOffset(std::int64_t seconds)
{
    const ZoneInUse& its = zoneInUse();
    if (its.isChina)
        return chinaOffset(seconds);
    const auto time = QDateTime::fromMSecsSinceEpoch(withinCalendar(seconds) * 1000, Qt::UTC);
    return its.zone.isValid() ? std::optional<std::int64_t>(its.zone.offsetFromUtc(time)) : std::nullopt;
}

} // namespace utils::windows
