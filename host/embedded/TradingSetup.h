// SPDX-License-Identifier: MIT
#pragma once
/// @file Replay date and positions of the embedded host.

#include "host/HostExport.h"
#include "host/TC/CLinkageManager.h"

namespace TC::embedded {

/// Moves the replay to another day (milliseconds since 1970-01-01 UTC) and tells everybody by
/// CReplayManager::sigTradeDateChanged; the same day again tells nobody. 0, the default, ends it.
INDICATORHOST_EXPORT void setReplayDate(long long msecs);

/// What CLinkageManager::getPositionNumber answers for an instrument ("SH600000").
INDICATORHOST_EXPORT void setPositionNumber(const QString& instrumentKey, const CPositionNumber& positions);

/// Forgets the positions of every instrument.
INDICATORHOST_EXPORT void clearPositions();

} // namespace TC::embedded
