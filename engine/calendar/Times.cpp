#include "engine/calendar/Times.h"

#include <algorithm>
#include <charconv>
#include <ctime>

namespace engine {

namespace {

/// Takes a number of least to most digits off the front of `text`.
bool takeNumber(std::string_view& text, std::size_t least, std::size_t most, int& number)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + std::min(most, text.size()), number);
    const auto digits = static_cast<std::size_t>(end - text.data());
    if (error != std::errc() || digits < least || text.front() == '-')
        return false;
    text.remove_prefix(digits);
    return true;
}

bool takeMark(std::string_view& text, char mark)
{
    if (text.empty() || text.front() != mark)
        return false;
    text.remove_prefix(1);
    return true;
}

/// Takes one to nine digits after a decimal point; thousandths are kept, the rest is cut off.
bool takeFraction(std::string_view& text, int& thousandths)
{
    const std::size_t digits = std::min<std::size_t>(text.size(), 9);
    thousandths = 0;
    int weight = 100;
    for (std::size_t digit = 0; digit < digits; ++digit, weight /= 10) {
        if (text[digit] < '0' || text[digit] > '9')
            return false;
        thousandths += (text[digit] - '0') * weight;
    }
    text.remove_prefix(digits);
    return digits > 0;
}

bool isLeapYear(int year)
{
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int daysInMonth(int year, int month)
{
    static constexpr int days[] = { 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31 };
    return month == 2 && isLeapYear(year) ? 29 : days[month - 1];
}

/// Days from 1970-01-01 to a date of the Gregorian calendar. Years are counted from March, so that the leap
/// day is the last of its year.
std::int64_t daysSinceEpoch(const CivilTime& date)
{
    const int year = date.month > 2 ? date.year : date.year - 1;
    const int monthFromMarch = (date.month + 9) % 12;
    const int dayOfYear = (153 * monthFromMarch + 2) / 5 + date.day - 1;
    constexpr std::int64_t daysToEpoch = 719'468; // from 0000-03-01
    return 365LL * year + year / 4 - year / 100 + year / 400 + dayOfYear - daysToEpoch;
}

} // namespace

bool readDate(std::string_view text, CivilTime& time)
{
    if (!takeNumber(text, 4, 4, time.year) || text.empty())
        return false;
    const char mark = text.front() == '/' ? '/' : '-';
    if (!takeMark(text, mark) || !takeNumber(text, 1, 2, time.month) || !takeMark(text, mark)
        || !takeNumber(text, 1, 2, time.day) || !text.empty())
        return false;
    return time.year >= 1 && time.month >= 1 && time.month <= 12 && time.day >= 1
        && time.day <= daysInMonth(time.year, time.month);
}

bool readTimeOfDay(std::string_view text, CivilTime& time)
{
    time.second = time.millisecond = 0;
    if (!takeNumber(text, 1, 2, time.hour) || !takeMark(text, ':') || !takeNumber(text, 2, 2, time.minute))
        return false;
    if (takeMark(text, ':')) {
        if (!takeNumber(text, 2, 2, time.second))
            return false;
        if (takeMark(text, '.') && !takeFraction(text, time.millisecond))
            return false;
    }
    return text.empty() && time.hour < 24 && time.minute < 60 && time.second < 60;
}

std::int64_t utcMs(const CivilTime& time)
{
    const std::int64_t seconds =
        ((daysSinceEpoch(time) * 24 + time.hour) * 60 + time.minute) * 60 + time.second;
    return seconds * 1000 + time.millisecond;
}

std::optional<std::int64_t> localMs(const CivilTime& time)
{
    std::tm local {};
    local.tm_year = time.year - 1900;
    local.tm_mon = time.month - 1;
    local.tm_mday = time.day;
    local.tm_hour = time.hour;
    local.tm_min = time.minute;
    local.tm_sec = time.second;
    local.tm_isdst = -1;
    local.tm_wday = -1; // stays as it is when the conversion fails; -1 alone is a time of its own
    const std::time_t seconds = std::mktime(&local);
    if (seconds == -1 && local.tm_wday == -1)
        return std::nullopt;
    return static_cast<std::int64_t>(seconds) * 1000 + time.millisecond;
}

} // namespace engine
