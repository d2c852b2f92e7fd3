#pragma once
/// @file Replay of past trading days.

#include "host/HostExport.h"

#include <QObject>

namespace TC {

/// Knows the trading day that the client replays; reached through utils::CSingletonT<CReplayManager>.
/// GUI thread only.
class INDICATORHOST_EXPORT CReplayManager : public QObject
{
    Q_OBJECT

public:
    CReplayManager();
    ~CReplayManager() override;

    /// The replayed day in milliseconds since 1970-01-01 UTC; 0 when nothing is replayed.
    long long tradeDate() const { return m_tradeDate; }
    /// Moves the replay to another day and tells everybody; the same day again tells nobody.
    void setTradeDate(long long msecs);

Q_SIGNALS:
    /// The replayed day has changed; milliseconds since 1970-01-01 UTC.
    void sigTradeDateChanged(long long msecs);

private:
    long long m_tradeDate = 0;
};

} // namespace TC
