// SPDX-License-Identifier: MIT
#pragma once
/// @file Charts for those who do not see them.

namespace client {

/// From now on assistive technology is told of every chart and pane what it shows: name, and as description
/// and value the date and the values of the bar under the crosshair. Without such technology it costs
/// nothing.
void describeCharts();

} // namespace client
