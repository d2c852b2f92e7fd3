// SPDX-License-Identifier: MIT
#include "host/TC/CFormulaHistoryDataManager.h"

#include "host/embedded/BacktestSetup.h"

namespace {

TC::embedded::BacktestReceiver s_receiver;

} // namespace

namespace TC {

void CFormulaHistoryDataManager::updateStrategyBacktestData(const QVector<QString>& ids,
                                                            const QMap<QString, double>& figures)
{
    const embedded::BacktestReceiver receiver = s_receiver; // the receiver may replace itself
    if (receiver)
        receiver(ids, figures);
}

void embedded::setBacktestReceiver(BacktestReceiver receiver)
{
    s_receiver = std::move(receiver);
}

} // namespace TC
