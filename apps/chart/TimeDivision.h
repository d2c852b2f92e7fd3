// SPDX-License-Identifier: MIT
#pragma once
/// @file Ways of cutting time into pieces that people count in: minutes, days, weeks, months, years.

#include <cstdint>
#include <optional>
#include <vector>

namespace chart {

/// A date and a time of day as local calendar and clock show them, in seconds since 1970-01-01 00:00 of that
/// calendar.
using LocalSeconds = std::int64_t;

/// Local time of an instant in milliseconds since 1970-01-01 UTC; nothing when the platform cannot tell.
std::optional<LocalSeconds> localSeconds(std::int64_t timeMs);

/// One way of cutting time.
struct TimeDivision
{
    enum class Unit { Second, Day, Week, Month };
    Unit unit = Unit::Day;
    int length = 1; ///< units in a piece; seconds divide a day, months count from January of the year 0

    bool isInsideADay() const { return unit == Unit::Second; }

    /// Where the piece begins that holds a time, and the one behind it.
    LocalSeconds pieceOf(LocalSeconds time) const;
    LocalSeconds nextPiece(LocalSeconds piece) const;
};

/// From seconds to half centuries.
const std::vector<TimeDivision>& timeDivisions();

/// The first bar at or behind a piece's beginning, found by bisection.
/// @param times  of the bars, rising, milliseconds since 1970-01-01 UTC.
/// @param first,last  where it is looked for, both inclusive.
/// @return last + 1 when there is none.
int firstBarFrom(const std::vector<std::int64_t>& times, LocalSeconds piece, int first, int last);

} // namespace chart
