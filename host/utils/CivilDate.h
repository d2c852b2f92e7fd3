// SPDX-License-Identifier: MIT
#pragma once
/// @file Arithmetic of the Gregorian calendar, without any time zone.
///
/// The conversions are those of H. Hinnant, "chrono-Compatible Low-Level Date Algorithms" (days_from_civil,
/// civil_from_days): years begin in March, so that the leap day comes last and five months have 153 days, and
/// 400 years are one era.

#include <cstdint>

namespace utils {

/// Without leap seconds.
constexpr std::int64_t kSecondsPerDay = 86'400;
/// Of 400 years, after which the calendar repeats.
constexpr std::int64_t kDaysPerEra = 146'097;
constexpr std::int64_t kDaysBefore1970 = 719'468; ///< from 0000-03-01

/// A day of the proleptic Gregorian calendar.
struct CivilDate
{
    std::int64_t year = 1970; ///< may be negative
    int month = 1;            ///< from 1
    int day = 1;              ///< from 1
};

/// The quotient rounded down.
/// @param divisor  above zero.
constexpr std::int64_t floorDiv(std::int64_t value, std::int64_t divisor)
{
    return value / divisor - (value % divisor < 0 ? 1 : 0);
}

/// Days from 1970-01-01 to a date.
constexpr std::int64_t daysFromCivil(const CivilDate& date)
{
    const std::int64_t year = date.month > 2 ? date.year : date.year - 1;
    const std::int64_t era = floorDiv(year, 400), yearOfEra = year - era * 400;
    const int monthFromMarch = date.month > 2 ? date.month - 3 : date.month + 9;
    const std::int64_t dayOfYear = (153 * monthFromMarch + 2) / 5 + date.day - 1;
    return era * kDaysPerEra + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear
        - kDaysBefore1970;
}

/// The date that lies a number of days behind 1970-01-01.
constexpr CivilDate civilFromDays(std::int64_t days)
{
    const std::int64_t sinceYearZero = days + kDaysBefore1970;
    const std::int64_t era = floorDiv(sinceYearZero, kDaysPerEra);
    const std::int64_t dayOfEra = sinceYearZero - era * kDaysPerEra;
    const std::int64_t yearOfEra =
        (dayOfEra - dayOfEra / 1'460 + dayOfEra / 36'524 - dayOfEra / 146'096) / 365;
    const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const auto monthFromMarch = static_cast<int>((5 * dayOfYear + 2) / 153);
    const int month = monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9;
    return { era * 400 + yearOfEra + (month <= 2 ? 1 : 0), month,
             static_cast<int>(dayOfYear) - (153 * monthFromMarch + 2) / 5 + 1 };
}

/// 0 Sunday to 6 Saturday, of a day counted from 1970-01-01, a Thursday.
constexpr int weekdayFromDays(std::int64_t days)
{
    return static_cast<int>(days + 4 - floorDiv(days + 4, 7) * 7);
}

static_assert(daysFromCivil({ 1970, 1, 1 }) == 0 && daysFromCivil({ 2000, 2, 29 }) == 11'016
              && civilFromDays(11'016).month == 2 && civilFromDays(-1).year == 1969
              && weekdayFromDays(-1) == 3);

} // namespace utils
