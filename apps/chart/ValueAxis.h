// SPDX-License-Identifier: MIT
#pragma once
/// @file How the values of a pane stand on its axis.

#include <cmath>
#include <limits>

namespace chart {

/// What an axis counts in.
enum class AxisKind {
    Linear,      ///< the values
    Logarithmic, ///< equal distances are equal ratios
    Percent,     ///< the values, marked by their change against a reference
    Indexed      ///< the values, marked so that the reference is 100
};

/// Values, their places on the axis, and what its texts say. Ranges are made of places: on a logarithmic axis
/// they are logarithms, on the others the values themselves.
struct ValueAxis
{
    AxisKind kind = AxisKind::Linear;
    double reference = 0.0; ///< that percent and index count from; without one (not above 0) values are told

    /// Of a natural logarithm, so that places differ by more than the painters' tolerance where prices do.
    static constexpr double kLogUnit = 1000.0;

    bool isLogarithmic() const { return kind == AxisKind::Logarithmic; }
    bool isRelative() const
    {
        return (kind == AxisKind::Percent || kind == AxisKind::Indexed) && reference > 0.0;
    }

    /// NaN where the axis has no place for the value.
    double placeOf(double value) const
    {
        if (!isLogarithmic())
            return value;
        return value > 0.0 ? kLogUnit * std::log(value) : std::numeric_limits<double>::quiet_NaN();
    }
    double valueAt(double place) const { return isLogarithmic() ? std::exp(place / kLogUnit) : place; }

    /// What is told of a value: itself, percent, or points of the index.
    double told(double value) const
    {
        if (!isRelative())
            return value;
        return kind == AxisKind::Percent ? (value / reference - 1.0) * 100.0 : value / reference * 100.0;
    }
    /// The value of which that is told.
    double valueOfTold(double number) const
    {
        if (!isRelative())
            return number;
        return kind == AxisKind::Percent ? reference * (1.0 + number / 100.0) : reference * number / 100.0;
    }
};

} // namespace chart
