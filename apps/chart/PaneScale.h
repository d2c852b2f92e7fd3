// SPDX-License-Identifier: MIT
#pragma once
/// @file Value range of a pane, and rows of values.

#include "apps/chart/BarView.h"
#include "apps/chart/PaneContent.h"

#include <QPair>

namespace chart {

/// (maximum, minimum) over all formulas of the pane for the shown bars, with some air above and below. Panes
/// with volume start at zero. (1, 0) when nothing counts.
QPair<double, double> visibleRange(const PaneContent& pane, const BarView& view);

/// Whether a formula's records hold places of the pane's axis.
bool standsOnPlaces(const PaneFormula& formula);

/// The pane's range as the formula's records count it.
QPair<double, double> ownRange(const PaneFormula& formula, const QPair<double, double>& range);

/// Whether the pane's axis begins at zero, as painters of volume need it.
bool standsOnZero(const PaneContent& pane);

/// The range made larger (factor above 1) or smaller, around its middle, or upward from zero where the pane
/// stands on it.
QPair<double, double> stretched(const QPair<double, double>& range, double factor, bool fromZero);

/// Row of a value as the library's painters place it.
int rowOf(double value, const QPair<double, double>& range, int height);

/// Value of a row; the inverse of rowOf.
double valueAt(int row, const QPair<double, double>& range, int height);

} // namespace chart
