// SPDX-License-Identifier: MIT
#pragma once
/// @file The period of a series of bars.

#include "host/TC/Periods.h"

#include <cstdint>
#include <vector>

namespace chart {

/// Finds the period from the commonest distance between two bars, so that nights, weekends and holidays do
/// not matter; of two equally common ones the shorter. Bars inside a day whose distance is no period of the
/// client's list answer that distance in seconds, which has no name.
/// @param times  starts of the bars, rising, milliseconds since 1970-01-01 UTC.
/// @return a day where the times do not tell.
TC::EFormulaPeriod barPeriod(const std::vector<std::int64_t>& times);

} // namespace chart
