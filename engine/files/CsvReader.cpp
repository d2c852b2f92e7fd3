// SPDX-License-Identifier: MIT
#include "engine/files/CsvReader.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

namespace engine {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kLongestQuote = 40;                 // bytes of a bad field that a failure line repeats
constexpr std::size_t kBlock = std::size_t { 256 } << 10; // bytes; a line and more
constexpr const char* kTooLarge = "the file is larger than 4 GiB";
static_assert(CsvLimits::kLargestFile == std::int64_t { 4 } << 30);
static_assert(kBlock > 2 * CsvLimits::kLongestLine);

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(" \t\r");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

std::string lowerCase(std::string_view text)
{
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return lower;
}

/// Names of columns begin with a letter.
bool looksLikeData(const std::string& field)
{
    return !field.empty() && (field[0] == '-' || field[0] == '.' || (field[0] >= '0' && field[0] <= '9'));
}

} // namespace

CsvReader::CsvReader(const std::string& path)
    : m_path(path)
{
}

bool CsvReader::open()
{
    if (!m_file.open(m_path))
        failNextLine("the file cannot be read: " + m_file.reason());
    else if (m_file.size() > CsvLimits::kLargestFile)
        failNextLine(kTooLarge);
    return !failed();
}

bool CsvReader::readHeader()
{
    std::string_view line;
    if (!open())
        return false;
    if (!nextLine(line)) {
        m_line = 0;
        failNextLine("the file is empty");
        return false;
    }
    if (!split(line))
        return false;
    for (const std::string_view field : m_fields)
        m_header.push_back(lowerCase(field));
    return true;
}

std::optional<std::size_t> CsvReader::find(std::string_view name) const
{
    const auto found = std::find(m_header.begin(), m_header.end(), name);
    if (found == m_header.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - m_header.begin());
}

std::size_t CsvReader::require(std::string_view name)
{
    return require(find(name), name);
}

std::size_t CsvReader::require(std::optional<std::size_t> column, std::string_view name)
{
    if (!column)
        fail((looksLikeData(m_header.front()) ? "the first line is no header: it names no column \""
                                              : "the header has no column \"")
             + std::string(name) + "\"");
    return column.value_or(0);
}

void CsvReader::skipToLast(std::int64_t bytes)
{
    const std::int64_t target = m_file.size() - bytes,
                       here = m_read - static_cast<std::int64_t>(m_end - m_begin);
    if (failed() || target <= here)
        return;
    if (target <= m_read) {
        m_begin += static_cast<std::size_t>(target - here);
    } else if (m_file.moveTo(target)) {
        m_read = target;
        m_begin = m_end = 0;
    } else {
        return fail("the file cannot be read from its end");
    }
    std::size_t end = 0;
    if (nextLineEnd(end))
        m_begin = std::min(end + 1, m_end);
}

bool CsvReader::nextRow()
{
    std::string_view line;
    if (failed() || !nextLine(line) || !split(line))
        return false;
    if (++m_rows > CsvLimits::kMostRows) {
        fail("the file has more than " + std::to_string(CsvLimits::kMostRows) + " rows");
        return false;
    }
    if (m_fields.size() < m_header.size()) {
        fail("the row has " + std::to_string(m_fields.size()) + " fields instead of "
             + std::to_string(m_header.size()));
        return false;
    }
    return true;
}

double CsvReader::number(std::size_t column)
{
    const std::string_view field = text(column);
    double value = 0.0;
    const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), value);
    if (error == std::errc() && end == field.data() + field.size() && std::isfinite(value))
        return value;
    const std::string_view shown = field.substr(0, kLongestQuote);
    fail(m_header[column] + " \"" + std::string(shown) + "\" is not a number");
    return 0.0;
}

double CsvReader::share() const
{
    return std::min(static_cast<double>(m_read)
                        / static_cast<double>(std::max<std::int64_t>(m_file.size(), 1)),
                    1.0); // the file may have grown
}

void CsvReader::fail(const std::string& reason)
{
    if (failed())
        return;
    std::string printable = reason; // a failure stays one line whatever the field holds
    std::replace_if(
        printable.begin(), printable.end(), [](char c) { return (c >= 0 && c < ' ') || c == 0x7F; }, '?');
    m_failure = m_path + ":" + std::to_string(m_line) + ": " + printable;
}

void CsvReader::failNextLine(const std::string& reason)
{
    ++m_line;
    fail(reason);
}

/// The next line that is not blank; valid until the next call. @return false at the end or after a failure.
bool CsvReader::nextLine(std::string_view& line)
{
    std::size_t end = 0;
    while (nextLineEnd(end)) {
        ++m_line;
        if (end - m_begin > CsvLimits::kLongestLine) {
            fail("the line is longer than " + std::to_string(CsvLimits::kLongestLine) + " bytes");
            return false;
        }
        line = trimmed(std::string_view(m_block.data() + m_begin, end - m_begin));
        m_begin = std::min(end + 1, m_end);
        if (!line.empty())
            return true;
    }
    return false;
}

/// Finds where the line ends that begins at m_begin, at a line feed or the end of the file, and reads on as
/// far as that takes; a line that is too long seems to end where the block does.
/// @return false when there is no further line, or after a failure.
bool CsvReader::nextLineEnd(std::size_t& end)
{
    std::size_t searched = m_begin;
    for (;;) {
        const void* found =
            m_end > searched ? std::memchr(m_block.data() + searched, '\n', m_end - searched) : nullptr;
        if (found || m_end - m_begin > CsvLimits::kLongestLine) {
            end = found ? static_cast<std::size_t>(static_cast<const char*>(found) - m_block.data()) : m_end;
            return true;
        }
        searched = m_end - m_begin; // reading on moves the line to the beginning of the block
        if (!readBlock()) {
            end = m_end;
            return !m_waits && !failed() && m_end > m_begin;
        }
    }
}

/// Reads on behind what is left of the block. @return whether anything came.
bool CsvReader::readBlock()
{
    const bool isFirst = m_block.empty();
    m_block.resize(kBlock);
    std::memmove(m_block.data(), m_block.data() + m_begin, m_end - m_begin);
    m_end -= m_begin;
    m_begin = 0;
    const std::size_t count = m_file.read(m_block.data() + m_end, kBlock - m_end);
    m_end += count;
    m_read += static_cast<std::int64_t>(count);
    if (isFirst && std::string_view(m_block.data(), m_end).substr(0, kByteOrderMark.size()) == kByteOrderMark)
        m_begin = kByteOrderMark.size();
    if (!m_file.reason().empty())
        failNextLine("the file cannot be read: " + m_file.reason());
    else if (m_read > CsvLimits::kLargestFile)
        failNextLine(kTooLarge); // it has grown
    return count > 0 && !failed();
}

/// @return false for a line of too many fields.
bool CsvReader::split(std::string_view line)
{
    m_fields.clear();
    for (std::size_t start = 0; start <= line.size();) {
        if (m_fields.size() == CsvLimits::kMostColumns) {
            fail("the line has more than " + std::to_string(CsvLimits::kMostColumns) + " fields");
            return false;
        }
        const std::size_t comma = std::min(line.find(',', start), line.size());
        m_fields.push_back(trimmed(line.substr(start, comma - start)));
        start = comma + 1;
    }
    return true;
}

} // namespace engine
