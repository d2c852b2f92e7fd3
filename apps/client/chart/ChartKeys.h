// SPDX-License-Identifier: MIT
#pragma once
/// @file The keys that move and zoom a chart.

#include "apps/client/chart/ChartState.h"

namespace client {

/// Up and down zoom, left and right move, Home and End jump. @return whether the key (Qt::Key) is one of
/// them.
bool moveByKey(ChartState& state, int key);

} // namespace client
