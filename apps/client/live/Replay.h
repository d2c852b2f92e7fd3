// SPDX-License-Identifier: MIT
#pragma once
/// @file What was shown already, shown again as it came.

#include "apps/chart/OpenedBars.h"
#include "apps/client/chart/ChartState.h"
#include "apps/client/live/ReplayClock.h"

#include <QObject>

#include <memory>

namespace client {

class TickView;

/// Lets bars or trades come again, from those in view on. A bar comes in two steps: with its open alone, then
/// as it ended; at speed 1 it takes a second. Trades come as far apart as they did. GUI thread only.
class Replay : public QObject
{
    Q_OBJECT

public:
    explicit Replay(QObject* parent = nullptr);

    /// Begins with the bars before those in view; there must be bars.
    void replayBars(ChartState* state);
    /// Begins with the trades before those in view.
    void replayTicks(TickView* view, const chart::OpenedTicks& ticks);
    /// Shows everything again, as it was before; without a replay nothing.
    void end();
    /// Ends without showing anything: others are shown.
    void forget();

    bool isOn() const { return m_state != nullptr; }
    ReplayClock* clock() { return &m_clock; }
    /// How far it is: number and time.
    QString progress() const;

Q_SIGNALS:
    /// A replay has begun or ended.
    void sigChanged();

private:
    void begin(ChartState* state, std::vector<qint64> moments, std::size_t done);
    void show();

    ReplayClock m_clock;
    ChartState* m_state = nullptr; ///< null without a replay
    ChartState::Bars m_bars;       ///< all of them; null for trades
    TickView* m_view = nullptr;    ///< of trades
    chart::OpenedTicks m_ticks;    ///< all of them
    int m_first = 0, m_last = 0;   ///< in view before
};

} // namespace client
