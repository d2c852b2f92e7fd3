// SPDX-License-Identifier: MIT
#include "engine/files/BarTime.h"

#include "engine/calendar/Times.h"

#include <algorithm>
#include <charconv>

namespace engine {

namespace {

constexpr std::size_t kLongestQuote = 40; // bytes of a bad field that a failure repeats

bool isNumber(std::string_view text)
{
    return !text.empty()
        && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// A moment that is written as a count; 9 digits began in 1973.
std::optional<BarTime> countedTime(std::string_view text)
{
    const bool isSeconds = text.size() == 9 || text.size() == 10,
               isMilliseconds = text.size() == 12 || text.size() == 13;
    if (!isNumber(text) || (!isSeconds && !isMilliseconds))
        return std::nullopt;
    std::int64_t count = 0;
    std::from_chars(text.data(), text.data() + text.size(), count);
    const std::int64_t timeMs = isSeconds ? count * 1000 : count;
    return BarTime { timeMs, timeMs };
}

/// 20240305 as 2024-03-05; other texts as they are.
std::string dashed(std::string_view date)
{
    constexpr std::size_t length = 8;
    if (date.size() != length || !isNumber(date))
        return std::string(date);
    return std::string(date.substr(0, 4)) + "-" + std::string(date.substr(4, 2)) + "-"
        + std::string(date.substr(6, 2));
}

std::string quoted(std::string_view text)
{
    return "\"" + std::string(text.substr(0, kLongestQuote)) + "\"";
}

} // namespace

std::optional<BarTime> readBarTime(std::string_view date, std::string_view time, std::string& failure)
{
    if (time.empty()) {
        if (const std::optional<BarTime> counted = countedTime(date))
            return counted;
    }
    const std::size_t mark = date.find_first_of(" T");
    if (mark != std::string_view::npos && time.empty()) {
        time = date.substr(std::min(date.size(), date.find_first_not_of(' ', mark + (date[mark] == 'T'))));
        date = date.substr(0, mark);
    }
    CivilTime civil;
    if (!readDate(dashed(date), civil)) {
        failure = quoted(date) + " is not a date";
        return std::nullopt;
    }
    if (!time.empty() && !readTimeOfDay(time, civil)) {
        failure = quoted(time) + " is not a time";
        return std::nullopt;
    }
    const std::optional<std::int64_t> timeMs = localMs(civil);
    if (!timeMs) {
        failure = "the date is out of range";
        return std::nullopt;
    }
    return BarTime { *timeMs, utcMs(civil) };
}

} // namespace engine
