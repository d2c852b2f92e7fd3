#include "data/internal/LocalClock.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>

namespace TC::detail {

namespace {

constexpr std::int64_t kHour = 3'600, kDay = 86'400;

/// The quotient below, for divisors above zero.
constexpr std::int64_t floorDiv(std::int64_t value, std::int64_t divisor)
{
    return value / divisor - (value % divisor < 0 ? 1 : 0);
}

// Calendar arithmetic in years that begin in March, so that the leap day comes last; 400 years have 146,097
// days. Day 0 is 1970-01-01, which is 719,468 days after 0000-03-01.
constexpr std::int64_t kDaysOf400Years = 146'097, kDaysBefore1970 = 719'468;

struct Date
{
    std::int64_t year;
    int month, day;
};

constexpr std::int64_t dayOf(std::int64_t year, int month, int day)
{
    const std::int64_t marchYear = month > 2 ? year : year - 1;
    const std::int64_t era = floorDiv(marchYear, 400);
    const std::int64_t yearOfEra = marchYear - era * 400;
    const std::int64_t dayOfYear = (153 * (month > 2 ? month - 3 : month + 9) + 2) / 5 + day - 1;
    return era * kDaysOf400Years + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear
        - kDaysBefore1970;
}

constexpr Date dateOf(std::int64_t day)
{
    const std::int64_t sinceMarch0 = day + kDaysBefore1970;
    const std::int64_t era = floorDiv(sinceMarch0, kDaysOf400Years);
    const std::int64_t dayOfEra = sinceMarch0 - era * kDaysOf400Years;
    const std::int64_t yearOfEra =
        (dayOfEra - dayOfEra / 1'460 + dayOfEra / 36'524 - dayOfEra / 146'096) / 365;
    const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const auto marchMonth = static_cast<int>((5 * dayOfYear + 2) / 153);
    const int month = marchMonth < 10 ? marchMonth + 3 : marchMonth - 9;
    return { era * 400 + yearOfEra + (month <= 2 ? 1 : 0), month,
             static_cast<int>(dayOfYear) - (153 * marchMonth + 2) / 5 + 1 };
}

static_assert(dayOf(1970, 1, 1) == 0 && dayOf(2000, 2, 29) == 11'016 && dateOf(11'016).month == 2);

void appendDate(std::string& text, const Date& date)
{
    appendPadded(text, date.year, 4);
    text += '/';
    appendPadded(text, date.month, 2);
    text += '/';
    appendPadded(text, date.day, 2);
}

void appendTimeOfDay(std::string& text, int hour, int minute)
{
    const auto digit = [](int number) { return static_cast<char>('0' + number); };
    const std::array<char, 6> written { ' ', digit(hour / 10),   digit(hour % 10),
                                        ':', digit(minute / 10), digit(minute % 10) };
    text.append(written.data(), written.size());
}

} // namespace

void appendPadded(std::string& text, std::int64_t value, int width)
{
    std::array<char, 24> digits;
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    const auto length = static_cast<int>(written.ptr - digits.data());
    text.append(static_cast<std::size_t>(std::max(width, length) - length), '0');
    text.append(digits.data(), written.ptr);
}

LocalClock::LocalClock()
{
#ifdef _WIN32
    _tzset();
#else
    tzset(); // localtime_r alone may go on with a zone that is no longer set
#endif
}

std::optional<std::tm> LocalClock::lookUp(std::int64_t seconds)
{
    const auto time = static_cast<std::time_t>(seconds);
    std::tm local {};
#ifdef _WIN32
    const bool known = localtime_s(&local, &time) == 0;
#else
    const bool known = localtime_r(&time, &local) != nullptr;
#endif
    return known ? std::optional(local) : std::nullopt;
}

std::optional<LocalClock::Moment> LocalClock::momentAt(std::int64_t seconds)
{
    const std::optional<std::tm> local = lookUp(seconds);
    if (!local)
        return std::nullopt;
    const std::int64_t days =
        dayOf(std::int64_t { local->tm_year } + 1900, local->tm_mon + 1, local->tm_mday);
    const std::int64_t shown = days * kDay + local->tm_hour * kHour + local->tm_min * 60 + local->tm_sec;
    return Moment { seconds, shown - seconds };
}

void LocalClock::enterHour(std::int64_t start)
{
    m_begin = m_end && m_end->seconds == start ? m_end : momentAt(start);
    m_end = momentAt(start + kHour);
    m_hour = start;
}

void LocalClock::append(std::string& text, std::int64_t msecs, bool withTime)
{
    const std::int64_t seconds = msecs / 1000;
    const std::int64_t hour = floorDiv(seconds, kHour) * kHour;
    if (!m_begin || m_hour != hour)
        enterHour(hour);
    if (m_begin && m_end && m_begin->offset == m_end->offset) {
        const std::int64_t shown = seconds + m_begin->offset;
        const std::int64_t day = floorDiv(shown, kDay);
        const auto secondOfDay = static_cast<int>(shown - day * kDay);
        if (m_date.empty() || m_day != day) {
            m_date.clear();
            appendDate(m_date, dateOf(day));
            m_day = day;
        }
        text += m_date;
        if (withTime)
            appendTimeOfDay(text, secondOfDay / 3'600, secondOfDay / 60 % 60);
    } else if (const std::optional<std::tm> local = lookUp(seconds)) {
        appendDate(text, { std::int64_t { local->tm_year } + 1900, local->tm_mon + 1, local->tm_mday });
        if (withTime)
            appendTimeOfDay(text, local->tm_hour, local->tm_min);
    }
}

} // namespace TC::detail
