// SPDX-License-Identifier: MIT
#pragma once
/// @file Which colour rises: red, as mainland traders have it, or green, as most others do.

namespace client {

/// Exchanges the skin's colours of rise and fall wherever they show: candles, volumes, legends with their
/// arrows, lists. Twice makes the skin as it was. Every loading of a skin undoes it. GUI thread only.
void swapDirections();

} // namespace client
