// SPDX-License-Identifier: MIT
#pragma once
/// @file The bars that a picture needs, cut out of all that were computed.

#include "apps/chart/ChartPicture.h"
#include "engine/records/FormulaRecords.h"

namespace render {

/// A range of bars, both inclusive.
struct BarRange
{
    int first = 0, last = -1;
};

/// What the picture needs of the bars: those that it shows and the one before, which candles, sticks and
/// legends look at.
BarRange neededBars(const chart::ChartPicture& picture);

/// Keeps those bars of a formula's records and gives back the memory of the others.
void keepBars(engine::FormulaRecords& records, const BarRange& bars);

/// Lets the picture count its bars as they stand in such records.
void keepBars(chart::ChartPicture& picture, const BarRange& bars);

} // namespace render
