// SPDX-License-Identifier: MIT
#pragma once
/// @file The context menu of a pane and of its legend.

#include "apps/client/chart/ChartPane.h"

#include <optional>

class QMenu;

namespace client {

/// What can be done with each formula of the pane, and with the pane: parameters, order, removal, export.
/// In the main pane also price lines and overlaid instruments.
/// @param row  of the plot under the pointer; none on the legend.
/// @return deletes itself when it is closed; not shown yet.
QMenu* makePaneMenu(ChartPane* pane, const std::optional<int>& row);

} // namespace client
