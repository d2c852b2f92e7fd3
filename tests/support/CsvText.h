// SPDX-License-Identifier: MIT
#pragma once
/// @file A reader of exported texts that shares nothing with their writer.

#include <string>
#include <vector>

namespace test {

using CsvRows = std::vector<std::vector<std::string>>;

/// Cells of a text without quoting: lines end with "\n", cells are parted by ",". A last line that does not
/// end is a row all the same, so that a missing line end shows.
inline CsvRows readCsv(const std::string& text)
{
    CsvRows rows;
    bool lineBegins = true;
    for (const char c : text) {
        if (lineBegins)
            rows.push_back({ "" });
        lineBegins = c == '\n';
        if (c == ',')
            rows.back().emplace_back();
        else if (c != '\n')
            rows.back().back() += c;
    }
    return rows;
}

} // namespace test
