#include "host/TC/CLinkageManager.h"
#include "host/TC/CReplayManager.h"
#include "host/embedded/ResetHooks.h"
#include "host/embedded/TradingSetup.h"
#include "host/utils/CSingletonT.h"

#include <QMap>

namespace TC {

struct CLinkageManager::Private
{
    QMap<QString, CPositionNumber> positions; ///< by instrument key
};

CLinkageManager::CLinkageManager()
    : m_data(std::make_unique<Private>())
{
}

CLinkageManager::~CLinkageManager() = default;

CPositionNumber CLinkageManager::getPositionNumber(const QString& instrumentKey) const
{
    return m_data->positions.value(instrumentKey);
}

CReplayManager::CReplayManager() = default;

CReplayManager::~CReplayManager() = default;

void CReplayManager::setTradeDate(long long msecs)
{
    if (m_tradeDate == msecs)
        return;
    m_tradeDate = msecs;
    Q_EMIT sigTradeDateChanged(msecs);
}

namespace embedded {

void setReplayDate(long long msecs)
{
    utils::CSingletonT<CReplayManager>::instance()->setTradeDate(msecs);
}

void setPositionNumber(const QString& instrumentKey, const CPositionNumber& positions)
{
    utils::CSingletonT<CLinkageManager>::instance()->data().positions[instrumentKey] = positions;
}

void clearPositions()
{
    utils::CSingletonT<CLinkageManager>::instance()->data().positions.clear();
}

namespace {

const ResetHook s_resetTrading([] {
    setReplayDate(0);
    clearPositions();
});

} // namespace
} // namespace embedded
} // namespace TC
