// SPDX-License-Identifier: MIT
#pragma once
/// @file Reading single values of a formula's records without testing an index.

#include "data/RPCFormulaResultCache.h"
#include "indicatorui_export.h"

#include <optional>

namespace TC {

/// The number that an output's column holds for a bar, as the painters read it.
///
/// @param output  position of the output.
/// @param column  position in the output's column list: 3 is the close of candles.
/// @param bar  position of the bar, valid or not.
/// @return the stored number, which may be the missing marker DBL_MAX or not finite; empty where the records
///         have none: no such output, column, series or bar. Any thread, as long as nobody writes the
///         records.
INDICATORUI_EXPORT std::optional<double> recordedNumber(const RPCFormulaResultCache& cache, int output,
                                                        int column, int bar);

} // namespace TC
