// SPDX-License-Identifier: MIT
#pragma once
/// @file Times as the wall clock shows them.

#include <cstdint>
#include <optional>
#include <string>

namespace TC::detail {

/// Appends a whole number with zeros in front, up to `width` characters. Deliberate: a sign counts as a
/// character and the zeros go before it, -5 in 3 characters is "0-5".
void appendPadded(std::string& text, std::int64_t value, int width);

/// Writes the local time of bars. Times of one hour share two look-ups of the zone: when the clock is equally
/// far from UTC at both ends of an hour, it is so throughout, as no zone leaves its offset and returns to it
/// within an hour (the shortest such stay on record is four days). Every other time is looked up by itself.
class LocalClock
{
public:
    LocalClock();

    /// Appends "2024/03/05" or "2024/03/05 09:30"; nothing for a time that the platform cannot convert. Times
    /// are milliseconds since 1970-01-01 00:00 UTC, cut to seconds toward zero.
    void append(std::string& text, std::int64_t msecs, bool withTime);

private:
    struct Moment ///< a time at which the offset is known
    {
        std::int64_t seconds; ///< since 1970 UTC
        std::int64_t offset;  ///< of local time, seconds
    };

    static std::optional<Moment> momentAt(std::int64_t seconds);
    void enterHour(std::int64_t start);

    std::int64_t m_hour = 0;              ///< start of the hour that was entered last
    std::optional<Moment> m_begin, m_end; ///< its ends; empty before the first hour
    std::int64_t m_day = 0;               ///< day since 1970, local, that was written last
    std::string m_date;                   ///< its text; empty before the first
};

} // namespace TC::detail
