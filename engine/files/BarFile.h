// SPDX-License-Identifier: MIT
#pragma once
/// @file Bars from a CSV file.

#include "engine/EngineExport.h"
#include "engine/series/BarSeries.h"

#include <optional>
#include <string>

namespace engine {

/// Reads bars from a UTF-8 CSV file whose header names its columns: date, optionally time, open, high, low,
/// close, volume, and optionally amount and open_interest; other columns are passed over. Dates are local;
/// 2024-03-05 or 2024/03/05, times 09:30 or 09:30:00, in their own column or after a blank in the date's.
/// Without a time a bar starts at midnight. Times must rise from row to row as they are written; what the
/// local zone makes of them is another matter: a time that its clock leaves out is taken as if the clock had
/// not yet been put forward, of one that it shows twice the first. A high must not be below its low; opens
/// and closes outside the two are taken as published. Limits are those of CsvLimits; only ordinary files are
/// read.
/// @param[out] failure  one line "FILE:LINE: reason" when nothing is returned.
ENGINE_EXPORT std::optional<BarSeries> readBars(const std::string& path, std::string& failure);

} // namespace engine
