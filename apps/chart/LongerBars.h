// SPDX-License-Identifier: MIT
#pragma once
/// @file Bars of a longer period than those of a file.

#include "engine/series/BarSeries.h"
#include "host/TC/Periods.h"

#include <QString>

#include <optional>
#include <vector>

namespace chart {

/// A period that charts offer.
struct OfferedPeriod
{
    QString key;   ///< as formulas name it: MIN5, DAY, QUARTER, ...
    QString title; ///< as menus show it
    TC::EFormulaPeriod period;
};

/// From five minutes to a year, shortest first.
const std::vector<OfferedPeriod>& offeredPeriods();

/// The offered period of a key; null for one that is not offered.
const OfferedPeriod* offeredPeriod(const QString& key);

/// The bars gathered into longer ones: first open, highest high, lowest low, last close, sums of volume and
/// turnover, last open interest, each over the values that are there. The last one is as far as the bars go.
/// A gathered bar has the time of the last of its bars; from a day on, the date of it. Its second instrument
/// is gathered likewise.
/// @return empty when the bars are not shorter than the period, or none are there.
std::optional<engine::BarSeries> longerBars(const engine::BarSeries& bars, const OfferedPeriod& period);

} // namespace chart
