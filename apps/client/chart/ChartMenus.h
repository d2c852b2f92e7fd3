// SPDX-License-Identifier: MIT
#pragma once
/// @file The menus of the main window that work on the chart.

class QMenu;
class QMenuBar;

namespace client {

class ChartView;

/// Adds the menu of periods: one of them is checked, those that the opened bars cannot make are disabled.
/// Keys: Ctrl with 1 to 9, and F8 for the next one. @return the menu.
QMenu* addPeriodMenu(QMenuBar* bar, ChartView* chart);

/// Adds the menu of what the chart shows beside its panes.
void addChartMenu(QMenuBar* bar, ChartView* chart);

} // namespace client
