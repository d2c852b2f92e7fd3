// SPDX-License-Identifier: MIT
#pragma once
/// @file The clock of mainland China with its former rules, for systems that know today's alone.
///
/// The dates are those of the time zone database, zone Asia/Shanghai, for which rules have not changed since
/// 1991.

#include "host/utils/CivilDate.h"

namespace utils {

/// Seconds by which the clock of mainland China is ahead of UTC at a time, seconds since 1970-01-01 UTC:
/// eight hours, in summers an hour more, and solar time until the end of 1900.
constexpr std::int64_t chinaOffset(std::int64_t seconds)
{
    struct Summer
    {
        CivilDate first, next; ///< its first day, and the first day after it
        int hour;              ///< at which the clock is put forward and back, by the clock of then
    };
    constexpr Summer summers[] = {
        { { 1919, 4, 13 }, { 1919, 10, 1 }, 0 }, { { 1940, 6, 1 }, { 1940, 10, 13 }, 0 },
        { { 1941, 3, 15 }, { 1941, 11, 2 }, 0 }, { { 1942, 1, 31 }, { 1945, 9, 2 }, 0 },
        { { 1946, 5, 15 }, { 1946, 10, 1 }, 0 }, { { 1947, 4, 15 }, { 1947, 11, 1 }, 0 },
        { { 1948, 5, 1 }, { 1948, 10, 1 }, 0 },  { { 1949, 5, 1 }, { 1949, 5, 28 }, 0 },
        { { 1986, 5, 4 }, { 1986, 9, 14 }, 2 },  { { 1987, 4, 12 }, { 1987, 9, 13 }, 2 },
        { { 1988, 4, 17 }, { 1988, 9, 11 }, 2 }, { { 1989, 4, 16 }, { 1989, 9, 17 }, 2 },
        { { 1990, 4, 15 }, { 1990, 9, 16 }, 2 }, { { 1991, 4, 14 }, { 1991, 9, 15 }, 2 },
    };
    constexpr std::int64_t hour = 3'600, solar = 8 * hour + 5 * 60 + 43;
    constexpr std::int64_t zoned = daysFromCivil({ 1901, 1, 1 }) * kSecondsPerDay - solar;
    if (seconds < zoned)
        return solar;
    for (const Summer& summer : summers) {
        const std::int64_t begin = daysFromCivil(summer.first) * kSecondsPerDay + (summer.hour - 8) * hour;
        const std::int64_t end = daysFromCivil(summer.next) * kSecondsPerDay + (summer.hour - 9) * hour;
        if (begin <= seconds && seconds < end)
            return 9 * hour;
    }
    return 8 * hour;
}

} // namespace utils
