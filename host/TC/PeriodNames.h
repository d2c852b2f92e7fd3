// SPDX-License-Identifier: MIT
#pragma once
/// @file Names of periods and price adjustments.

#include "host/HostExport.h"
#include "host/TC/Periods.h"

#include <QString>

namespace TC {

/// Position of a period in the client's list of periods; -1 when it is not in the list.
INDICATORHOST_EXPORT int getPeriodIndex(EFormulaPeriod period);

/// Name of the period at a position of that list ("日线"); empty outside the list.
INDICATORHOST_EXPORT QString getCycleName(int periodIndex);

/// Name of a price adjustment: 0 none, 1 forward, 2 backward; empty for any other.
INDICATORHOST_EXPORT QString getDrName(int drType);

} // namespace TC
