#pragma once
/// @file Reading with a library that damaged files can bring down.

#include "host/embedded/reading/SheetCells.h"

#include <functional>

namespace TC::embedded {

/// Runs `read` in a forked child, with limits on its time and memory, and takes over the cells that it found.
/// A child that crashes, hangs or runs out of memory costs no more than its cells: `cells` is refused. Where
/// the platform cannot fork, `read` runs here.
void readIsolated(const std::function<void(SheetCells&)>& read, SheetCells& cells);

} // namespace TC::embedded
