// SPDX-License-Identifier: MIT
#pragma once
/// @file The two records that a tick pane is painted from.

#include "engine/EngineExport.h"
#include "engine/records/FormulaRecords.h"
#include "engine/series/TickSeries.h"

namespace engine {

/// Trades as the tick painters read them; one bar per trade.
struct TickRecords
{
    /// TICKDATA: output "最新价" of draw type 3. Number series 0 price, 1 volume, 2 best bid, 3 best ask; the
    /// legend also has 成交量, 买一 and 卖一.
    FormulaRecords prices;

    /// Output "成交量" of draw type 4: columns volume, turnover, price. Number series 0 best bid, 1 best ask,
    /// 2 volume, 3 price, 4 turnover (price times volume); with five levels also, as (price, volume), ask
    /// levels 1 to 5 at (1, 5), (7, 9), (11, 13), (15, 17), (19, 21) and bid levels 1 to 5 at (0, 6), (8,
    /// 10), (12, 14), (16, 18), (20, 22).
    FormulaRecords volumes;
};

/// Lays trades out for the tick painters. A vector shorter than the times reads as missing past its end; a
/// trade without a price is marked as carrying nothing. Missing level volumes are 0. Any thread.
ENGINE_EXPORT TickRecords computeTicks(const TickSeries& ticks);

} // namespace engine
