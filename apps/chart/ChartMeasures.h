// SPDX-License-Identifier: MIT
#pragma once
/// @file How the parts of a chart share its room.

namespace chart {

/// Width of the value axes, pixels.
constexpr int kAxisWidth = 66;
/// Height of the time axis, pixels.
constexpr int kTimeHeight = 20;
/// The pane with the prices is this many times as high as each of the others.
constexpr int kMainShare = 3;

} // namespace chart
