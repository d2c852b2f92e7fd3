// SPDX-License-Identifier: MIT
#pragma once
/// @file The context menu of a pane and of its legend.

#include "apps/client/chart/ChartPane.h"

class QMenu;

namespace client {

/// What can be done with each formula of the pane, and with the pane: parameters, order, removal, export.
/// @return deletes itself when it is closed; not shown yet.
QMenu* makePaneMenu(ChartPane* pane);

} // namespace client
