// SPDX-License-Identifier: MIT
#pragma once
/// @file Numbers of bars that formulas ask for.

#include "engine/kernels/Kernel.h"

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

} // namespace engine::language
