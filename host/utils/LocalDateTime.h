// SPDX-License-Identifier: MIT
#pragma once
/// @file A time as the local calendar and clock show it, in Qt's form.

#include <QDateTime>

#include <algorithm>
#include <limits>

#ifdef _WIN32
#include "host/utils/LocalZone.h"
#endif

namespace utils {

namespace detail {

/// On Windows by an offset from UTC, as Qt goes by the C library there, which knows one rule of the zone for
/// all years.
inline QDateTime localDateTimeInside(qint64 msecs)
{
#ifdef _WIN32
    const std::int64_t offset = utcOffset(floorDiv(msecs, 1'000)).value_or(0);
    return QDateTime::fromMSecsSinceEpoch(msecs, Qt::OffsetFromUTC, static_cast<int>(offset));
#else
    return QDateTime::fromMSecsSinceEpoch(msecs);
#endif
}

} // namespace detail

/// What calendar and clock show at a time, milliseconds since 1970-01-01 UTC. Qt counts local time in 64 bits
/// as well: the clock stops at the first and the last local time that it can count, on the right days.
inline QDateTime localDateTime(qint64 msecs)
{
    constexpr qint64 first = std::numeric_limits<qint64>::min(), last = std::numeric_limits<qint64>::max();
    constexpr qint64 day = 86'400'000;
    const qint64 inside = std::clamp(msecs, first + day, last - day);
    if (inside == msecs)
        return detail::localDateTimeInside(msecs);
    const qint64 ahead = qint64 { detail::localDateTimeInside(inside).offsetFromUtc() } * 1'000;
    const qint64 countable =
        std::clamp(msecs, first - std::min<qint64>(ahead, 0), last - std::max<qint64>(ahead, 0));
    return detail::localDateTimeInside(countable);
}

} // namespace utils
