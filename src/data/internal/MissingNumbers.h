// SPDX-License-Identifier: MIT
#pragma once
/// @file How the records mark a number that the engine has left out.

#include <cfloat>
#include <cmath>

namespace TC::detail {

/// The marker that the engine writes for a missing number.
inline bool isMissingMarker(double value)
{
    return value >= DBL_MAX && !std::isinf(value);
}

/// Not finite, or the missing marker.
inline bool isMissing(double value)
{
    return !(value < DBL_MAX && value >= -DBL_MAX);
}

} // namespace TC::detail
