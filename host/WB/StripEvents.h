// SPDX-License-Identifier: MIT
#pragma once
/// @file Events that a legend strip sends to its host (CEventDeliverer::deliverEvent).

namespace WB {

/// Ids of strip events.
enum EStripEvent {
    EStripEvent_Pressed = 188,       ///< the strip was pressed
    EStripEvent_DoubleClicked = 213, ///< the strip was double-clicked
};

} // namespace WB
