#include "engine/calendar/LocalTime.h"

#include <ctime>

namespace engine {

namespace {

constexpr std::int64_t kQuarter = 900, kDay = 86'400; // seconds

std::int64_t floorDivide(std::int64_t number, std::int64_t divisor)
{
    return number / divisor - (number % divisor < 0);
}

/// Date of a day counted from 1970-01-01 in the Gregorian calendar. Years begin in March here, so that the
/// leap day is the last one and the lengths of months follow one rule: 153 days in five months.
void setDate(std::int64_t day, CivilTime& time)
{
    constexpr std::int64_t daysOfEra = 146'097, toMarchOfYearZero = 719'468; // an era is 400 years
    const std::int64_t shifted = day + toMarchOfYearZero;
    const std::int64_t era = floorDivide(shifted, daysOfEra);
    const std::int64_t inEra = shifted - era * daysOfEra;
    const std::int64_t year = (inEra - inEra / 1'460 + inEra / 36'524 - inEra / 146'096) / 365;
    const std::int64_t inYear = inEra - (365 * year + year / 4 - year / 100);
    const std::int64_t monthFromMarch = (5 * inYear + 2) / 153;
    time.day = static_cast<int>(inYear - (153 * monthFromMarch + 2) / 5 + 1);
    time.month = static_cast<int>(monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9);
    time.year = static_cast<int>(era * 400 + year + (time.month <= 2));
}

} // namespace

std::optional<CivilTime> LocalTime::local(std::int64_t ms)
{
    constexpr std::int64_t earliest = -62'135'596'800, latest = 253'402'300'799; // years 1 and 9999
    const std::int64_t seconds = floorDivide(ms, 1000);
    if (seconds < earliest + kDay || seconds > latest - kDay)
        return std::nullopt;
    const std::int64_t quarter = floorDivide(seconds, kQuarter);
    if (quarter != m_quarter) {
        const std::time_t instant = seconds;
        std::tm parts {};
        if (!localtime_r(&instant, &parts))
            return std::nullopt;
        m_quarter = quarter;
        m_offset = parts.tm_gmtoff;
    }
    const std::int64_t local = seconds + m_offset;
    const std::int64_t day = floorDivide(local, kDay);
    const auto ofDay = static_cast<int>(local - day * kDay);
    CivilTime time;
    setDate(day, time);
    time.hour = ofDay / 3600;
    time.minute = ofDay / 60 % 60;
    time.second = ofDay % 60;
    time.millisecond = static_cast<int>(ms - seconds * 1000);
    return time;
}

int weekdayOf(const CivilTime& time)
{
    CivilTime midnight;
    midnight.year = time.year;
    midnight.month = time.month;
    midnight.day = time.day;
    constexpr std::int64_t thursday = 4; // 1970-01-01
    const std::int64_t day = floorDivide(utcMs(midnight), kDay * 1000);
    return static_cast<int>(((day + thursday) % 7 + 7) % 7);
}

} // namespace engine
