// SPDX-License-Identifier: MIT
#include "host/TC/CLinkageManager.h"
#include "host/TC/CReplayManager.h"
#include "host/embedded/TradingSetup.h"
#include "host/utils/CSingletonT.h"

#include <QMap>

namespace TC {

namespace {

QMap<QString, CPositionNumber>& positionsByKey()
{
    static QMap<QString, CPositionNumber> positions;
    return positions;
}

long long s_replayDate = 0; ///< milliseconds since 1970-01-01 UTC

} // namespace

CPositionNumber CLinkageManager::getPositionNumber(const QString& instrumentKey) const
{
    return positionsByKey().value(instrumentKey);
}

namespace embedded {

void setReplayDate(long long msecs)
{
    if (s_replayDate == msecs)
        return;
    s_replayDate = msecs;
    Q_EMIT utils::CSingletonT<CReplayManager>::instance()->sigTradeDateChanged(msecs);
}

void setPositionNumber(const QString& instrumentKey, const CPositionNumber& positions)
{
    positionsByKey()[instrumentKey] = positions;
}

void clearPositions()
{
    positionsByKey().clear();
}

} // namespace embedded
} // namespace TC
