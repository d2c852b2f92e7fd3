// SPDX-License-Identifier: MIT
#pragma once
/// @file Which painter of the library draws which output.

#include "apps/chart/BarView.h"
#include "apps/chart/PaneContent.h"

#include <QPair>

class QPainter;

namespace chart {

/// Paints every output of every formula of the pane into the rectangle (0, 0, view.width, height) of the
/// painter's coordinates: the library's painters expect a pane that begins at the origin. The painter is
/// saved and restored around each output, since the painters leave their pens behind.
void paintFormulas(QPainter& painter, const PaneContent& pane, const BarView& view,
                   const QPair<double, double>& range, int height);

} // namespace chart
