#pragma once
/// @file A whole chart as one picture: panes below each other, value axes at the right, time axis below.

#include "apps/chart/BarView.h"
#include "apps/chart/PaneContent.h"

#include <QSize>

#include <cstdint>
#include <vector>

class QPainter;

namespace chart {

/// Everything that a picture shows.
struct ChartPicture
{
    std::vector<PaneContent> panes;  ///< from top to bottom; the first is the tallest
    std::vector<std::int64_t> times; ///< starts of the bars, milliseconds since 1970-01-01 UTC
    int first = 0, last = -1;        ///< bars, both inclusive
};

/// Paints the picture into (0, 0) to `size`. Sizes too small for the panes leave panes out from below.
void paintChart(QPainter& painter, const ChartPicture& picture, const QSize& size);

} // namespace chart
