// SPDX-License-Identifier: MIT
#pragma once
/// @file Results whose prices stand elsewhere on the axis than where the engine put them.

#include "apps/chart/ValueAxis.h"
#include "data/RPCFormulaResultCache.h"

namespace chart {

/// Where prices go: to their place on an axis, times a factor, plus an offset.
struct PriceMap
{
    ValueAxis axis;
    double factor = 1.0;
    double offset = 0.0;

    /// NaN where there is no place, or no price.
    double placeOf(double price) const;
};

/// A copy of the records for painters, with every price mapped and all else as it was: conditions, texts,
/// widths, volumes. A column that is drawn at prices is told by its output's draw type.
TC::RPCFormulaResultCache mappedPrices(const TC::RPCFormulaResultCache& records, const PriceMap& map);

} // namespace chart
