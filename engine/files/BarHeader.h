// SPDX-License-Identifier: MIT
#pragma once
/// @file The columns of a bars file, by the names that data services give them.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace engine {

/// Position of a column of bars in a header.
/// @param header  names in lower case; Chinese ones in UTF-8 or GB18030.
/// @param column  "date", "time", "open", "high", "low", "close", "volume", "amount" or "open_interest";
/// found
///        under its Chinese names as well.
std::optional<std::size_t> findBarColumn(const std::vector<std::string>& header, std::string_view column);

} // namespace engine
