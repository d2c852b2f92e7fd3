// SPDX-License-Identifier: MIT
#pragma once
/// @file What one pane shows.

#include "apps/chart/BlockRanges.h"
#include "apps/chart/ValueAxis.h"
#include "data/CFormulaKey.h"
#include "data/RPCFormulaResultCache.h"

#include <optional>
#include <vector>

namespace chart {

/// One formula of a pane with its result.
struct PaneFormula
{
    TC::CFormulaKey key;
    TC::RPCFormulaResultCache* records = nullptr; ///< not owned
    BlockRanges* ranges = nullptr;                ///< of the records, not owned; null: none are kept
    /// Factor on the prices of an overlaid instrument, which brings it onto the pane's axis; 1 for the pane's
    /// own formulas.
    float scale = 1.0f;
    bool overlaid = false; ///< candles of another instrument, all in one colour
    bool ownScale = false; ///< stretched over the pane's axis, whose range it does not widen
    double factor = 1.0,
           offset = 0.0; ///< from the records' places to those of the pane's axis; factor above 0
};

/// The price that the instrument stands at.
struct LastPrice
{
    double price = 0.0;
    bool rises = true; ///< it is not below the close before
};

/// Formulas in the order in which they are painted; later ones lie on top.
struct PaneContent
{
    std::vector<PaneFormula> formulas;
    bool showsPrices = false; ///< the pane's axis shows prices of the instrument
    bool countsWhole = false; ///< the pane's axis counts shares or contracts
    ValueAxis axis;           ///< on a logarithmic one the records hold places instead of prices
    double priceTick = 0.01;  ///< smallest price step of the instrument
    int periodSeconds = 86400;
    std::optional<LastPrice> lastPrice; ///< marked by a line and on the axis
    std::vector<double> priceLines;     ///< prices with a line of the user's own
    std::vector<int> markedBars;        ///< bars with a line of the grid
    bool bookRule = false;              ///< tick volume sticks follow the order book
};

} // namespace chart
