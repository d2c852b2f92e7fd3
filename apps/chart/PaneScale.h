// SPDX-License-Identifier: MIT
#pragma once
/// @file Value range of a pane and the marks of its axis.

#include "apps/chart/BarView.h"
#include "apps/chart/PaneContent.h"

#include <QPair>
#include <QString>

#include <vector>

namespace chart {

/// (maximum, minimum) over all formulas of the pane for the shown bars, with some air above and below. Panes
/// with volume start at zero. (1, 0) when nothing counts.
QPair<double, double> visibleRange(const PaneContent& pane, const BarView& view);

/// One mark of a value axis.
struct AxisMark
{
    double value = 0.0;
    QString text;
};

/// Marks at round values (1, 2 or 5 times a power of ten) inside the range, at least `spacing` pixels apart
/// on an axis of `height` pixels. Prices have as many decimals as the tick; other values are as short as the
/// step allows, large ones in 万 and 亿.
std::vector<AxisMark> valueMarks(const QPair<double, double>& range, int height, int spacing,
                                 const PaneContent& pane);

/// Row of a value as the library's painters place it.
int rowOf(double value, const QPair<double, double>& range, int height);

/// Value of a row; the inverse of rowOf.
double valueAt(int row, const QPair<double, double>& range, int height);

/// Text of a value on the pane's axis, e.g. beside the crosshair.
QString valueText(double value, const PaneContent& pane, double step);

} // namespace chart
