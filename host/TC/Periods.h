// SPDX-License-Identifier: MIT
#pragma once
/// @file Enumerations of the client that the library passes through.

namespace TC {

/// Length of a bar in seconds.
enum EFormulaPeriod : int {
    EFormulaPeriod_Tick = 0,
    EFormulaPeriod_Minute = 60,
    EFormulaPeriod_Minute5 = 300,
    EFormulaPeriod_Minute15 = 900,
    EFormulaPeriod_Minute30 = 1800,
    EFormulaPeriod_Hour = 3600,
    EFormulaPeriod_Day = 86400,
    EFormulaPeriod_Week = 604800,
    EFormulaPeriod_Month = 2592000,
    EFormulaPeriod_Quarter = 7776000,
    EFormulaPeriod_Year = 31536000
};

/// What a legend strip shows.
enum EIndexDisplayType : int {
    EIndexDisplay_Heading = 0, ///< heading strip with the instrument's name
    EIndexDisplay_Legend = 1,  ///< formula legend of one or more rows
    EIndexDisplay_Date = 7     ///< date strip
};

/// Kind of view that a pane stands in.
enum EIndexViewType : int {
    EIndexView_Module = 0,   ///< module group
    EIndexView_Indented = 1, ///< legend indented by the pane's left offset
    EIndexView_Plain = 2,
    EIndexView_Quote = 3, ///< no close button, instrument-class icon
    EIndexView_Replay = 6
};

} // namespace TC
