// SPDX-License-Identifier: MIT
#pragma once
/// @file Who receives back-test figures.

#include "host/HostExport.h"

#include <QMap>
#include <QString>
#include <QVector>

#include <functional>

namespace TC::embedded {

/// Takes the arguments of updateStrategyBacktestData.
using BacktestReceiver =
    std::function<void(const QVector<QString>& ids, const QMap<QString, double>& figures)>;

/// Every call of CFormulaHistoryDataManager::updateStrategyBacktestData goes to this function; an empty one
/// drops them, which is the default.
INDICATORHOST_EXPORT void setBacktestReceiver(BacktestReceiver receiver);

} // namespace TC::embedded
