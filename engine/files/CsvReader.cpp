#include "engine/files/CsvReader.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <memory>
#include <system_error>

namespace engine {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kLongestQuote = 40; // bytes of a bad field that a failure line repeats

bool readAll(const std::string& path, std::string& content)
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), std::fclose);
    if (!file)
        return false;
    char block[1 << 16];
    while (const std::size_t count = std::fread(block, 1, sizeof block, file.get()))
        content.append(block, count);
    return std::ferror(file.get()) == 0;
}

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

bool CsvReader::readHeader()
{
    m_line = 1;
    errno = 0;
    if (!readAll(m_path, m_content)) {
        fail("the file cannot be read: " + std::generic_category().message(errno));
        return false;
    }
    if (m_content.compare(0, kByteOrderMark.size(), kByteOrderMark) == 0)
        m_position = kByteOrderMark.size();
    m_line = 0;
    std::string_view line;
    if (!nextLine(line)) {
        m_line = 1;
        fail("the file is empty");
        return false;
    }
    split(line);
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
    const std::optional<std::size_t> column = find(name);
    if (!column)
        fail((looksLikeData(m_header.front()) ? "the first line is no header: it names no column \""
                                              : "the header has no column \"")
             + std::string(name) + "\"");
    return column.value_or(0);
}

bool CsvReader::nextRow()
{
    std::string_view line;
    if (failed() || !nextLine(line))
        return false;
    split(line);
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

void CsvReader::fail(const std::string& reason)
{
    if (failed())
        return;
    std::string printable = reason; // a failure stays one line whatever the field holds
    std::replace_if(
        printable.begin(), printable.end(), [](char c) { return (c >= 0 && c < ' ') || c == 0x7F; }, '?');
    m_failure = m_path + ":" + std::to_string(m_line) + ": " + printable;
}

/// The next line that is not blank.
bool CsvReader::nextLine(std::string_view& line)
{
    const std::string_view content = m_content;
    while (m_position < content.size()) {
        const std::size_t end = std::min(content.find('\n', m_position), content.size());
        line = trimmed(content.substr(m_position, end - m_position));
        m_position = end + 1;
        ++m_line;
        if (!line.empty())
            return true;
    }
    return false;
}

void CsvReader::split(std::string_view line)
{
    m_fields.clear();
    for (std::size_t start = 0; start <= line.size();) {
        const std::size_t comma = std::min(line.find(',', start), line.size());
        m_fields.push_back(trimmed(line.substr(start, comma - start)));
        start = comma + 1;
    }
}

} // namespace engine
