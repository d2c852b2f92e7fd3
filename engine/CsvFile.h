#pragma once
/// @file Comma-separated tables with a header line, read field by field without copying.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace engine {

/// A UTF-8 table: a header line that names the columns, then rows. No quoting. A byte-order mark, "\r\n" line
/// ends and empty lines are accepted. The first fault ends the reading; failure() then names its line.
class CsvFile
{
public:
    /// Reads the file and its header line.
    explicit CsvFile(const std::string& path);
    CsvFile(const CsvFile&) = delete;
    CsvFile& operator=(const CsvFile&) = delete;

    /// Place of a column in the header; -1 when there is none.
    int column(std::string_view name) const;
    /// As column(), but a missing column is a fault.
    int neededColumn(std::string_view name);

    /// Steps to the next row that is not empty; false at the end and after a fault.
    bool next();
    /// A field of the current row; a row that is too short for it is a fault, the answer then empty.
    std::string_view field(int column);
    /// A field as a finite number; anything else is a fault, the answer then 0.0.
    double number(int column);

    /// Notes a fault at the current line; the first one counts.
    void fail(const std::string& reason);
    /// "FILE:LINE: reason", or empty while there is no fault.
    const std::string& failure() const { return m_failure; }

private:
    bool readLine(std::string_view& line);

    std::string m_path, m_text, m_failure;
    std::vector<std::string_view> m_header, m_fields;
    std::size_t m_position = 0;
    int m_line = 0;
};

/// Milliseconds since 1970-01-01 UTC of a local calendar time. Thread-safe.
std::int64_t localTimeMs(int year, int month, int day, int hour, int minute, int second);

/// A date 2024-03-05 or 2024/03/05; empty when it is none.
struct CalendarDate
{
    int year, month, day;
};
std::optional<CalendarDate> parseDate(std::string_view text);

/// Seconds since midnight of a time 09:30 or 09:30:15; empty when it is none.
std::optional<int> parseTimeOfDay(std::string_view text);

} // namespace engine
