// SPDX-License-Identifier: MIT
#pragma once
/// @file The user's own trading as of the bar that a legend shows.

#include "data/CFormulaKey.h"
#include "data/RPCFormulaResultCache.h"
#include "host/TC/CLinkageManager.h"
#include "title/internal/TradeSummary.h"

#include <QMap>
#include <QString>

namespace TC::detail {

/// Date "yyyyMMdd", local, of the bar that a legend shows for an instrument; empty when it has no bars.
/// @param index  bar; below 0 or past the end: the last one.
QString shownBarDate(const QMap<CFormulaKey, RPCFormulaResultCache>& data, const QString& instrumentKey,
                     int index);

/// The trade summary, and each account's latest position of that date or before it; accounts without one
/// are left out. Dates compare as "yyyyMMdd", so that every bar of a day has the day's positions.
TradeSummary tradingAt(const CPositionNumber& positions, const QString& barDate);

} // namespace TC::detail
