// SPDX-License-Identifier: MIT
#include "data/internal/LocalClock.h"

#include "host/utils/LocalZone.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>

namespace TC::detail {

namespace {

using utils::floorDiv;

constexpr std::int64_t kHour = 3'600;

void appendDate(std::string& text, const utils::CivilDate& date)
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
    utils::refreshLocalZone(); // a look-up alone may go on with a zone that is no longer set
}

std::optional<LocalClock::Moment> LocalClock::momentAt(std::int64_t seconds)
{
    const std::optional<std::int64_t> offset = utils::utcOffset(seconds);
    return offset ? std::optional(Moment { seconds, *offset }) : std::nullopt;
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
        const std::int64_t day = floorDiv(shown, utils::kSecondsPerDay);
        const auto secondOfDay = static_cast<int>(shown - day * utils::kSecondsPerDay);
        if (m_date.empty() || m_day != day) {
            m_date.clear();
            appendDate(m_date, utils::civilFromDays(day));
            m_day = day;
        }
        text += m_date;
        if (withTime)
            appendTimeOfDay(text, secondOfDay / 3'600, secondOfDay / 60 % 60);
    } else if (const std::optional<std::tm> local = utils::localParts(seconds)) {
        appendDate(text, utils::dateOf(*local));
        if (withTime)
            appendTimeOfDay(text, local->tm_hour, local->tm_min);
    }
}

} // namespace TC::detail
