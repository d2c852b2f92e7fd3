// SPDX-License-Identifier: MIT
#pragma once
/// @file The results of formulas as a text file.

#include "apps/base/Result.h"
#include "apps/render/ChartLoader.h"

namespace render {

/// Writes the first pane's formulas as text, or the one that was named, over all bars. Of a formula's own
/// file that formula is what is asked for, whatever pane it stands in. Of bars no more than a stretch of
/// results and of the text is in memory at a time.
/// @return on failure one line; the file then holds what it held before.
base::Result<void> writeExport(const Options& options, LoadedChart& chart);

} // namespace render
