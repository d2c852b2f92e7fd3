// SPDX-License-Identifier: MIT
#pragma once
/// @file Numbers of bars that formulas ask for.

#include "engine/kernels/Kernel.h"

#include <algorithm>
#include <cstdint>
#include <optional>

namespace engine::language {

/// Longest stretch of bars that is told apart; longer ones are as good as endless.
constexpr double kLongestStretch = 1e9;

/// A number of bars, its fraction cut off; nothing for a missing or negative number.
inline std::optional<std::size_t> barsOf(double number)
{
    if (!(number > -1.0))
        return std::nullopt;
    return static_cast<std::size_t>(number < kLongestStretch ? number : kLongestStretch);
}

/// The same without a branch; 0 for what is no number of bars.
inline std::size_t barsOrNone(double number)
{
    const double some = number > 0.0 ? number : 0.0; // a missing number is not
    return static_cast<std::size_t>(static_cast<std::int64_t>(std::min(some, kLongestStretch)));
}

} // namespace engine::language
