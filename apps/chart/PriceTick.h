// SPDX-License-Identifier: MIT
#pragma once
/// @file Price step of an instrument that no database knows.

#include <vector>

namespace chart {

/// Largest of 1, 0.1, 0.01, 0.001 that the last prices are whole multiples of; of prices below 100 and
/// smaller ones further powers of ten down to 1e-8, as long as they make no more than six digits; 0.0001 when
/// none is. NaN and infinite prices are left out.
double inferredPriceTick(const std::vector<double>& prices);

} // namespace chart
