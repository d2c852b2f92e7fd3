#include "host/TC/CFormulaHistoryDataManager.h"

#include "host/embedded/BacktestSetup.h"
#include "host/embedded/ResetHooks.h"

namespace {

TC::embedded::BacktestReceiver s_receiver;

const TC::embedded::ResetHook s_resetReceiver([] { s_receiver = nullptr; });

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
