// SPDX-License-Identifier: MIT
#pragma once
/// @file Replay of past trading days.

#include "host/HostExport.h"

#include <QObject>

namespace TC {

/// Tells which trading day the client replays; reached through utils::CSingletonT<CReplayManager>.
/// GUI thread only.
class INDICATORHOST_EXPORT CReplayManager : public QObject
{
    Q_OBJECT

Q_SIGNALS:
    /// The replayed day has changed; milliseconds since 1970-01-01 UTC, 0 when nothing is replayed any more.
    void sigTradeDateChanged(long long msecs);
};

} // namespace TC
