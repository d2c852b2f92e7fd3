// SPDX-License-Identifier: MIT
#pragma once
/// @file When a bar of a file begins, in the forms that data services write.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace engine {

struct BarTime
{
    std::int64_t timeMs = 0; ///< milliseconds since 1970-01-01 UTC
    /// The order of what was written: where the clock is put forward or back, times that rise as they are
    /// written need not rise as moments.
    std::int64_t written = 0;
};

/// Reads 2024-03-05 or 2024/03/05, alone, with a time behind a blank or a T, or with the time given apart;
/// 20240305; and moments as whole seconds (9 or 10 digits) or milliseconds (12 or 13) since 1970-01-01 UTC.
/// Dates and times of day are local.
/// @param time  text of a column of its own; may be empty.
/// @param[out] failure  why there is no time; written only then.
std::optional<BarTime> readBarTime(std::string_view date, std::string_view time, std::string& failure);

} // namespace engine
