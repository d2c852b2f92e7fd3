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

/// Marks at round times, the finest that leave at least `spacing` pixels between two of them: where a year,
/// quarter, month, week or day begins; inside a day at bars of a round hour, minute or second, with the date
/// where the day changes. Where these make fewer than two, bars at even distances are marked by their own
/// time. One mark at least carries the year or the day that the others leave out.
/// @param times  starts of the bars, rising, milliseconds since 1970-01-01 UTC; shown in local time. They are
///        searched by bisection, whatever their number.
std::vector<TimeMark> timeMarks(const std::vector<std::int64_t>& times, const BarView& view, int spacing);

/// Text of one bar's time: the date, and the time of day when bars are shorter than a day.
QString timeText(const std::vector<std::int64_t>& times, int bar);

} // namespace chart
