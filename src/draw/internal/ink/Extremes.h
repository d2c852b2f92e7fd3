// SPDX-License-Identifier: MIT
#pragma once
/// @file Lowest and highest number of a run of bars, at the speed of memory.

#include <cstddef>
#include <limits>

namespace TC::detail {

/// Which numbers count.
struct CountRule
{
    double factor = 1.0;       ///< put on every number before it is asked
    bool countsMarker = false; ///< the missing marker DBL_MAX counts as a number
    double largestZero = -1.0; ///< numbers whose absolute value does not exceed it do not count
};

/// What a run of bars holds.
struct Extremes
{
    double lowest = std::numeric_limits<double>::infinity();
    double highest = -std::numeric_limits<double>::infinity();
    bool hasGaps = false; ///< a valid bar holds something that does not count

    bool exist() const { return lowest <= highest; }
};

/// Extremes of `values[i] * factor` over `count` bars whose flag is not 0. Where an extreme is a zero, it is
/// the first of the run's zeros, whose sign it keeps.
Extremes extremesOf(const double* values, const int* flags, std::size_t count, const CountRule& rule = {});

/// The same number by number: what a machine without vector instructions runs.
Extremes plainExtremesOf(const double* values, const int* flags, std::size_t count, const CountRule& rule);

} // namespace TC::detail
