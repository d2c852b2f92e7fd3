// SPDX-License-Identifier: MIT
#pragma once
/// @file Display settings of a pane that the client shares with the library.

namespace TC {

/// Settings of a K-line pane.
struct CKLineUiParam
{
    int barCount = 0;     ///< bars of the pane's price series
    int hostCount = 1;    ///< above 0: legends of shorter results are shifted to end on the same bar
    int displayFlags = 0; ///< value 2 set: show account positions
};

/// Settings of an intraday pane.
struct CRealtimeUiParam
{
    int displayFlags = 0; ///< value 2 set: show account positions
};

} // namespace TC
