#include "engine/CsvFile.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstring>
#include <ctime>
#include <fstream>
#include <sstream>

namespace engine {

namespace {

void splitAtCommas(std::string_view line, std::vector<std::string_view>& fields)
{
    fields.clear();
    for (std::size_t begin = 0;;) {
        const std::size_t comma = line.find(',', begin);
        fields.push_back(line.substr(begin, comma - begin));
        if (comma == std::string_view::npos)
            return;
        begin = comma + 1;
    }
}

/// Whole number of at most `digits` digits at the front of the text, which it is cut from.
std::optional<int> takeNumber(std::string_view& text, std::size_t digits)
{
    int value = 0;
    const std::string_view head = text.substr(0, digits);
    const auto [end, error] = std::from_chars(head.data(), head.data() + head.size(), value);
    if (error != std::errc() || end == head.data() || value < 0)
        return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(end - head.data()));
    return value;
}

bool takeChar(std::string_view& text, std::string_view choices)
{
    if (text.empty() || choices.find(text.front()) == std::string_view::npos)
        return false;
    text.remove_prefix(1);
    return true;
}

int daysOfMonth(int year, int month)
{
    static const int days[] = { 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31 };
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return month == 2 && leap ? 29 : days[month - 1];
}

} // namespace

CsvFile::CsvFile(const std::string& path)
    : m_path(path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    if (!file || !(text << file.rdbuf())) {
        m_failure = path + ": " + (errno ? std::strerror(errno) : "cannot be read or is empty");
        return;
    }
    m_text = text.str();
    if (m_text.compare(0, 3, "\xEF\xBB\xBF") == 0)
        m_position = 3;
    std::string_view line;
    if (readLine(line))
        splitAtCommas(line, m_header);
    else
        fail("the header line is missing");
}

bool CsvFile::readLine(std::string_view& line)
{
    if (m_position >= m_text.size())
        return false;
    const std::size_t end = std::min(m_text.find('\n', m_position), m_text.size());
    line = std::string_view(m_text).substr(m_position, end - m_position);
    if (!line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    m_position = end + 1;
    ++m_line;
    return true;
}

int CsvFile::column(std::string_view name) const
{
    const auto found = std::find(m_header.begin(), m_header.end(), name);
    return found == m_header.end() ? -1 : static_cast<int>(found - m_header.begin());
}

int CsvFile::neededColumn(std::string_view name)
{
    const int place = column(name);
    if (place < 0)
        fail("the header has no column \"" + std::string(name) + "\"");
    return place;
}

bool CsvFile::next()
{
    std::string_view line;
    while (m_failure.empty() && readLine(line)) {
        if (line.empty())
            continue;
        splitAtCommas(line, m_fields);
        return true;
    }
    return false;
}

std::string_view CsvFile::field(int column)
{
    const auto place = static_cast<std::size_t>(column);
    if (column >= 0 && place < m_fields.size())
        return m_fields[place];
    fail("the row has " + std::to_string(m_fields.size()) + " of " + std::to_string(m_header.size())
         + " fields");
    return {};
}

double CsvFile::number(int column)
{
    const std::string_view text = field(column);
    double value = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc() && end == text.data() + text.size() && std::isfinite(value))
        return value;
    fail("\"" + std::string(text) + "\" is not a number (column "
         + std::string(m_header[static_cast<std::size_t>(column)]) + ")");
    return 0.0;
}

void CsvFile::fail(const std::string& reason)
{
    if (m_failure.empty())
        m_failure = m_path + ":" + std::to_string(std::max(1, m_line)) + ": " + reason;
}

std::int64_t localTimeMs(int year, int month, int day, int hour, int minute, int second)
{
    std::tm time {};
    time.tm_year = year - 1900;
    time.tm_mon = month - 1;
    time.tm_mday = day;
    time.tm_hour = hour;
    time.tm_min = minute;
    time.tm_sec = second;
    time.tm_isdst = -1;
    return static_cast<std::int64_t>(std::mktime(&time)) * 1000;
}

std::optional<CalendarDate> parseDate(std::string_view text)
{
    const auto year = takeNumber(text, 4);
    if (!year || !takeChar(text, "-/"))
        return std::nullopt;
    const auto month = takeNumber(text, 2);
    if (!month || *month < 1 || *month > 12 || !takeChar(text, "-/"))
        return std::nullopt;
    const auto day = takeNumber(text, 2);
    if (!day || *day < 1 || *day > daysOfMonth(*year, *month) || !text.empty())
        return std::nullopt;
    return CalendarDate { *year, *month, *day };
}

std::optional<int> parseTimeOfDay(std::string_view text)
{
    const auto hour = takeNumber(text, 2);
    if (!hour || *hour > 23 || !takeChar(text, ":"))
        return std::nullopt;
    const auto minute = takeNumber(text, 2);
    if (!minute || *minute > 59)
        return std::nullopt;
    int second = 0;
    if (!text.empty()) {
        const auto read = takeChar(text, ":") ? takeNumber(text, 2) : std::nullopt;
        if (!read || *read > 59 || !text.empty())
            return std::nullopt;
        second = *read;
    }
    return (*hour * 60 + *minute) * 60 + second;
}

} // namespace engine
