// SPDX-License-Identifier: MIT
#pragma once
/// @file Set-up of the embedded host: what tests and applications steer.
///
/// The embedded host works with defaults and no set-up. Everything here is GUI-thread only.

#include "host/HostExport.h"
#include "host/embedded/BacktestSetup.h"
#include "host/embedded/FormulaSetup.h"
#include "host/embedded/InstrumentSetup.h"
#include "host/embedded/ModuleSetup.h"
#include "host/embedded/ReadingSetup.h"
#include "host/embedded/SettingsSetup.h"
#include "host/embedded/SkinSetup.h"
#include "host/embedded/TableSetup.h"
#include "host/embedded/TradingSetup.h"

namespace TC::embedded {

/// Returns every part of the embedded host to its defaults, in a stated order, so that no test sees another's
/// state: settings, rights, files, formulas, receivers, trading, dialogs, and the skin last.
INDICATORHOST_EXPORT void reset();

} // namespace TC::embedded
