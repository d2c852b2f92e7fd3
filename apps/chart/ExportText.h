// SPDX-License-Identifier: MIT
#pragma once
/// @file Results as the files of the programs hold them.

#include <string>

namespace chart {

/// The library's text of results with empty cells where a number is missing: where the text has the largest
/// number, an infinity, or no number at all.
std::string withoutMissing(const std::string& text);

} // namespace chart
