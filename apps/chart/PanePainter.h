// SPDX-License-Identifier: MIT
#pragma once
/// @file One pane: background, grid, formulas, value axis, crosshair.

#include "apps/chart/BarView.h"
#include "apps/chart/PaneContent.h"

#include <QFont>
#include <QPair>
#include <QRect>
#include <QRegion>
#include <QString>

#include <optional>

class QPainter;

namespace chart {

/// Where the parts of a pane lie.
struct PaneGeometry
{
    QRect plot; ///< the formulas
    QRect axis; ///< texts of the value axis, at the right
};

/// Where the crosshair stands.
struct Crosshair
{
    int bar = -1;                               ///< -1: no crosshair
    std::optional<int> row;                     ///< row of the plot, when the pointer is in this pane
    std::optional<double> value = std::nullopt; ///< told on the axis instead of the row's value
};

/// With more bars than this in a column of pixels, SVG and PDF hold the formulas as an embedded picture:
/// every stroke of a million bars would make a file of hundreds of megabytes.
constexpr int kMostBarsAColumn = 4;

/// Paints everything of a pane but the crosshair. Colours and fonts come from the skin; `view.width` must be
/// the plot's width.
/// @param range  (maximum, minimum) of the value axis; see visibleRange.
void paintPlot(QPainter& painter, const PaneGeometry& geometry, const PaneContent& pane, const BarView& view,
               const QPair<double, double>& range);

/// Paints the crosshair over a painted plot: a column through the pane, and where the pointer is in it a row
/// and its value on the axis. Of the pane only what the texts of its axis need is read.
void paintCrosshair(QPainter& painter, const PaneGeometry& geometry, const PaneContent& pane,
                    const BarView& view, const QPair<double, double>& range, const Crosshair& crosshair);

/// What paintCrosshair paints on.
QRegion crosshairRegion(const PaneGeometry& geometry, const BarView& view, const Crosshair& crosshair);

/// Both, with the visible range of the pane.
void paintPane(QPainter& painter, const PaneGeometry& geometry, const PaneContent& pane, const BarView& view,
               const Crosshair& crosshair);

/// The bars that the time axis marks, for the grid of the panes above it.
std::vector<int> timeGrid(const std::vector<std::int64_t>& times, const BarView& view);

/// Paints the time axis below the panes into `rect`, whose left edge is the plots' left edge.
void paintTimeAxis(QPainter& painter, const QRect& rect, const std::vector<std::int64_t>& times,
                   const BarView& view);

/// The time under the crosshair, over the painted time axis.
struct TimeTag
{
    QRect box; ///< empty without a crosshair
    QString text;
};

/// @param rect  of the time axis.
/// @param bar  under the crosshair; one that is not shown has no tag.
/// @param font  of the widget, where the skin names none.
TimeTag timeTag(const QRect& rect, const std::vector<std::int64_t>& times, const BarView& view, int bar,
                const QFont& font);
void paintTimeTag(QPainter& painter, const TimeTag& tag);

} // namespace chart
