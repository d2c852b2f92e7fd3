// SPDX-License-Identifier: MIT
#pragma once
/// @file Marks of a pane's value axis.

#include "apps/chart/PaneContent.h"

#include <QPair>
#include <QString>

#include <vector>

namespace chart {

/// One mark of a value axis.
struct AxisMark
{
    double value = 0.0;
    QString text;
};

/// Rows that a label of the axis takes.
constexpr int kLabelHeight = 14;

/// Whether a label beside a row stands inside an axis of `height` rows as a whole.
inline bool hasLabelRoom(int row, int height)
{
    return row >= kLabelHeight / 2 && row <= height - 1 - kLabelHeight / 2;
}

/// Marks at round values inside the range: three to eight of them have room for their labels. They stand at
/// 1, 2 or 5 times a power of ten, `spacing` rows apart or more, where that makes three; on lower axes
/// closer, and at other round values too. Prices are never marked finer than their tick, and have as many
/// decimals; other values are as short as the step allows, large ones in 万 and 亿.
/// @param range  (maximum, minimum); nothing is marked on one that is flat or not finite.
/// @param height  rows; below 20 there are no marks.
std::vector<AxisMark> valueMarks(const QPair<double, double>& range, int height, int spacing,
                                 const PaneContent& pane);

/// Text of a value on the pane's axis, e.g. beside the crosshair.
/// @param step  the least difference that two texts should show.
QString valueText(double value, const PaneContent& pane, double step);

} // namespace chart
