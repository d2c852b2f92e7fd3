// SPDX-License-Identifier: MIT
#pragma once
/// @file Where the client keeps the history data of formulas.

#include "host/HostExport.h"

#include <QMap>
#include <QString>
#include <QVector>

namespace TC {

/// Takes what panes learn from computed formulas; reached through
/// utils::CSingletonT<CFormulaHistoryDataManager>. GUI thread only.
class INDICATORHOST_EXPORT CFormulaHistoryDataManager
{
public:
    /// Takes the back-test figures of a strategy.
    /// @param ids  identifiers of the strategy, passed on as they are.
    /// @param figures  figure by name ("年化收益", ...); may be empty.
    void updateStrategyBacktestData(const QVector<QString>& ids, const QMap<QString, double>& figures);
};

} // namespace TC
