// SPDX-License-Identifier: MIT
#pragma once
/// @file Results whose prices stand elsewhere on the axis than where the engine put them.

#include "apps/chart/ValueAxis.h"
#include "data/RPCFormulaResultCache.h"

namespace chart {

/// A copy of the records for painters, with every price at its place on an axis (NaN where there is none) and
/// all else as it was: conditions, texts, widths, volumes. A column that is drawn at prices is told by its
/// output's draw type.
TC::RPCFormulaResultCache mappedPrices(const TC::RPCFormulaResultCache& records, const ValueAxis& axis);

} // namespace chart
