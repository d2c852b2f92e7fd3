// SPDX-License-Identifier: MIT
#pragma once
/// @file A time as the local calendar and clock show it, in Qt's form.

#include <QDateTime>

#ifdef _WIN32
#include "host/utils/LocalZone.h"
#endif

namespace utils {

/// What calendar and clock show at a time, milliseconds since 1970-01-01 UTC. On Windows by an offset from
/// UTC, as Qt goes by the C library there, which knows one rule of the zone for all years.
inline QDateTime localDateTime(qint64 msecs)
{
#ifdef _WIN32
    const std::int64_t offset = utcOffset(floorDiv(msecs, 1'000)).value_or(0);
    return QDateTime::fromMSecsSinceEpoch(msecs, Qt::OffsetFromUTC, static_cast<int>(offset));
#else
    return QDateTime::fromMSecsSinceEpoch(msecs);
#endif
}

} // namespace utils
