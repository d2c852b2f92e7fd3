// SPDX-License-Identifier: MIT
#pragma once
/// @file A whole chart as one picture: panes with legends below each other, value axes at the right, time
/// axis below.

#include "apps/chart/OpenedBars.h"
#include "apps/chart/PaneContent.h"
#include "data/IndexBaseData.h"

#include <QSize>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

class QPainter;

namespace chart {

/// A pane with the results that its legend shows.
struct PicturePane
{
    PaneContent content;
    const TC::IndexBaseData* results = nullptr; ///< not owned
};

/// Everything that a picture shows.
struct ChartPicture
{
    Instrument instrument;
    std::vector<Instrument> overlaid; ///< over the first pane
    std::vector<PicturePane> panes;   ///< from top to bottom; the first is the tallest
    std::vector<std::int64_t> times;  ///< starts of the bars, milliseconds since 1970-01-01 UTC
    QString periodName;               ///< shown behind the instrument's name
    int first = 0, last = -1;         ///< bars, both inclusive; legends show the last one
};

/// The least size on which every pane is drawn.
QSize leastSize(std::size_t panes);

/// Paints the picture into (0, 0) to `size`. Sizes below the least one leave panes out from below.
void paintChart(QPainter& painter, const ChartPicture& picture, const QSize& size);

} // namespace chart
