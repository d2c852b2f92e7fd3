// SPDX-License-Identifier: MIT
#pragma once
/// @file Reading the columns of a CSV file by name.

#include "engine/files/FileBytes.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace engine {

/// What a file may have; more than that is a failure.
struct CsvLimits
{
    static constexpr std::size_t kLongestLine = std::size_t { 64 } << 10; ///< bytes
    static constexpr std::size_t kMostColumns = 1'000;                    ///< in the header, and in any row
    static constexpr std::size_t kMostRows = 20'000'000; ///< without the header and blank lines
    static constexpr std::int64_t kLargestFile = std::int64_t { 4 } << 30; ///< bytes
};

/// A text file, read line by line and split at commas. Lines end in LF or CRLF; a UTF-8 byte-order mark and
/// blank lines are passed over; blanks around a field do not belong to it. Fields are not quoted. No more
/// than a block of the file is in memory.
class CsvReader
{
public:
    explicit CsvReader(const std::string& path);

    /// From now on a last line without its end waits for it: nextRow() answers false there without a failure,
    /// and may be called again when the file has grown.
    void waitForLineEnds() { m_waits = true; }

    /// Reads the header. @return false with failure() set when the file cannot be read or holds nothing.
    bool readHeader();

    /// Names of the columns, in lower case.
    const std::vector<std::string>& header() const { return m_header; }
    /// Position of a column in the header, names in any case; nothing when there is none.
    std::optional<std::size_t> find(std::string_view name) const;
    /// As find, but a missing column is a failure.
    std::size_t require(std::string_view name);
    /// A position that was found otherwise; a missing column of the name is a failure.
    std::size_t require(std::optional<std::size_t> column, std::string_view name);

    /// Passes over all but the last bytes of the file, and the rest of the line that is cut so. Behind the
    /// header; failures from here on have no line of the file.
    void skipToLast(std::int64_t bytes);

    /// Goes to the next line that is not blank and splits it. @return false at the end, or after a failure,
    /// which a line with fewer fields than the header is.
    bool nextRow();

    /// A field of the current row; valid until the next one.
    std::string_view text(std::size_t column) const { return m_fields[column]; }
    /// A field read as a finite number with a point; a failure, and 0, when it is none.
    double number(std::size_t column);

    /// How much of the file is read, from 0 to 1.
    double share() const;

    /// Records a failure of the current line, unless one stands already.
    void fail(const std::string& reason);
    bool failed() const { return !m_failure.empty(); }
    /// "FILE:LINE: reason"; empty while all is well.
    const std::string& failure() const { return m_failure; }

private:
    bool open();
    bool nextLine(std::string_view& line);
    bool nextLineEnd(std::size_t& end);
    bool readBlock();
    bool split(std::string_view line);
    void failNextLine(const std::string& reason);

    std::string m_path;
    FileBytes m_file;
    std::vector<char> m_block;
    std::size_t m_begin = 0, m_end = 0; ///< what of the block is read and not yet handed out
    std::int64_t m_read = 0;            ///< bytes of the file
    bool m_waits = false;
    std::size_t m_line = 0;
    std::size_t m_rows = 0;
    std::vector<std::string> m_header;
    std::vector<std::string_view> m_fields;
    std::string m_failure;
};

} // namespace engine
