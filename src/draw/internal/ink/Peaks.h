// SPDX-License-Identifier: MIT
#pragma once
/// @file What rises above a level among numbers, at the speed of memory.

#include <cstddef>

namespace TC::detail {

/// The highest number, zero at least. It is infinite where one lies below zero, and may be where one is minus
/// zero or not a number.
double peakOf(const double* values, std::size_t count);

/// Place of the last that does not lie between zero and `level`, both included, as what is not a number does
/// not; `count` where there is none.
std::size_t lastOutside(const double* values, std::size_t count, double level);

} // namespace TC::detail
