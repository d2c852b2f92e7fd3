// SPDX-License-Identifier: MIT
#pragma once
/// @file From options to a chart that can be painted.

#include "apps/chart/ChartPicture.h"
#include "apps/chart/PaneResults.h"
#include "apps/render/Options.h"

#include <deque>
#include <memory>

namespace render {

/// The results of each pane, of bars no more than the picture shows; the picture's panes point into them.
struct LoadedChart
{
    std::deque<chart::PaneResults> results;
    chart::ChartPicture picture;
    std::shared_ptr<const engine::BarSeries> bars; ///< all of them, for an export; else null, as for trades
    QString ownFormula; ///< name of the formula of a file of its own; empty without one
};

/// Reads the bars or trades and computes every formula of every pane.
/// @return on failure one line that names the file or argument and what is wrong.
base::Result<LoadedChart> loadChart(const Options& options);

} // namespace render
