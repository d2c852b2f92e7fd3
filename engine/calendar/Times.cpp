// SPDX-License-Identifier: MIT
#include "engine/calendar/Times.h"

#include "host/utils/LocalZone.h"

#include <algorithm>
#include <charconv>

namespace engine {

namespace {

utils::CivilDate dateOf(const CivilTime& time)
{
    return { time.year, time.month, time.day };
}

/// Takes a number of minDigits to maxDigits digits off the front of `text`.
bool takeNumber(std::string_view& text, std::size_t minDigits, std::size_t maxDigits, int& number)
{
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + std::min(maxDigits, text.size()), number);
    const auto digits = static_cast<std::size_t>(end - text.data());
    if (error != std::errc() || digits < minDigits || text.front() == '-')
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

/// Whether the calendar has the date: the 30th of February is the 1st or 2nd of March.
bool exists(const utils::CivilDate& date)
{
    if (date.year < 1 || date.month < 1 || date.month > 12 || date.day < 1 || date.day > 31)
        return false;
    return utils::civilFromDays(utils::daysFromCivil(date)).day == date.day;
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
    return exists(dateOf(time));
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
        ((utils::daysFromCivil(dateOf(time)) * 24 + time.hour) * 60 + time.minute) * 60 + time.second;
    return seconds * 1000 + time.millisecond;
}

std::optional<std::int64_t> localMs(const CivilTime& time)
{
    const std::optional<std::int64_t> seconds =
        utils::secondsFromLocal(dateOf(time), time.hour, time.minute, time.second);
    return seconds ? std::optional(*seconds * 1000 + time.millisecond) : std::nullopt;
}

} // namespace engine
