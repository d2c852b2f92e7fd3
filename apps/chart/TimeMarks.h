// SPDX-License-Identifier: MIT
#pragma once
/// @file Marks of a chart's time axis.

#include "apps/chart/BarView.h"

#include <QString>

#include <cstdint>
#include <vector>

namespace chart {

/// One mark below the panes.
struct TimeMark
{
    int bar = 0;
    QString text;
};

/// Marks where a day, month, quarter or year begins (an hour or minute inside a day): the finest of these
/// that leaves at least `spacing` pixels between two marks.
/// @param times  starts of the bars, milliseconds since 1970-01-01 UTC; shown in local time.
std::vector<TimeMark> timeMarks(const std::vector<std::int64_t>& times, const BarView& view, int spacing);

/// Text of one bar's time: the date, and the time of day when bars are shorter than a day.
QString timeText(const std::vector<std::int64_t>& times, int bar);

} // namespace chart
