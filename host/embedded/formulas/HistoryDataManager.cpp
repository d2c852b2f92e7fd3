// SPDX-License-Identifier: MIT
#include "host/TC/CFormulaHistoryDataManager.h"

#include "host/embedded/BacktestSetup.h"

namespace {

TC::embedded::BacktestReceiver& backtestReceiver()
{
    static TC::embedded::BacktestReceiver receiver;
    return receiver;
}

} // namespace

namespace TC {

void CFormulaHistoryDataManager::updateStrategyBacktestData(const QVector<QString>& ids,
                                                            const QMap<QString, double>& figures)
{
    const embedded::BacktestReceiver receiver = backtestReceiver(); // the receiver may replace itself
    if (receiver)
        receiver(ids, figures);
}

void embedded::setBacktestReceiver(BacktestReceiver receiver)
{
    backtestReceiver() = std::move(receiver);
}

} // namespace TC
