// SPDX-License-Identifier: MIT
#pragma once
/// @file What a pane shows of one bar, in words.

#include "apps/chart/PaneContent.h"

#include <QString>

namespace client {

class ChartState;

/// Date and values of the bar under the crosshair; without one, of the last bar in view: what the pane's
/// legend says. Empty without bars.
QString spokenValues(const chart::PaneContent& pane, const ChartState& state);

/// The names of the pane's formulas, without overlaid instruments.
QString spokenName(const chart::PaneContent& pane);

} // namespace client
