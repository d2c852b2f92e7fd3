// SPDX-License-Identifier: MIT
#include "apps/chart/ExportText.h"

#include <algorithm>
#include <string_view>

namespace chart {

namespace {

/// Whether a cell is a number that stands for none.
bool isMissing(std::string_view cell)
{
    constexpr std::string_view largest = "179769313486231"; // DBL_MAX in any of its forms
    constexpr std::size_t fixedLength = 309;                // digits before its point
    if (!cell.empty() && cell.front() == '-')
        cell.remove_prefix(1);
    if (cell == "nan" || cell == "inf")
        return true;
    const bool isFixed = cell.size() >= fixedLength && cell.substr(0, largest.size()) == largest;
    return isFixed || (cell.substr(0, 7) == "1.79769" && cell.find("e+308") != std::string_view::npos);
}

} // namespace

std::string withoutMissing(const std::string& text)
{
    std::string kept;
    kept.reserve(text.size());
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find_first_of(",\r\n", start), text.size());
        const std::string_view cell(text.data() + start, end - start);
        if (!isMissing(cell))
            kept += cell;
        if (end < text.size())
            kept += text[end];
        start = end + 1;
    }
    return kept;
}

} // namespace chart
