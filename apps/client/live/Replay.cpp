// SPDX-License-Identifier: MIT
#include "apps/client/live/Replay.h"

#include "apps/client/chart/TickView.h"
#include "engine/series/SeriesHead.h"
#include "host/utils/LocalDateTime.h"

#include <utility>

namespace client {

namespace {

constexpr qint64 kStepMs = 500; // two steps make a bar, a bar takes a second

/// The first bars; the last of them may only just have begun.
std::shared_ptr<const engine::BarSeries> barsOf(const engine::BarSeries& all, std::size_t steps)
{
    const bool hasOpenBar = steps % 2 == 1;
    auto bars = std::make_shared<engine::BarSeries>(engine::headOf(all, (steps + 1) / 2));
    if (hasOpenBar) {
        const double open = bars->open.back();
        for (const auto price :
             { &engine::BarSeries::high, &engine::BarSeries::low, &engine::BarSeries::close })
            ((*bars).*price).back() = open;
        bars->volume.back() = 0.0;
        if (!bars->amount.empty())
            bars->amount.back() = 0.0;
        if (bars->openInterest.size() > 1) // as it stood when the bar began
            bars->openInterest.back() = bars->openInterest[bars->openInterest.size() - 2];
    }
    return bars;
}

} // namespace

Replay::Replay(QObject* parent)
    : QObject(parent)
{
    connect(&m_clock, &ReplayClock::sigAdvanced, this, &Replay::show);
}

void Replay::replayBars(ChartState* state)
{
    end();
    state->setPeriod(QString()); // bars come as their source has them
    m_bars = state->source();
    std::vector<qint64> moments(2 * m_bars->size());
    for (std::size_t step = 0; step < moments.size(); ++step)
        moments[step] = static_cast<qint64>(step) * kStepMs;
    const auto known = static_cast<std::size_t>(std::max(1, state->first()));
    begin(state, std::move(moments), 2 * known);
    m_state->setBars(m_state->instrument(), barsOf(*m_bars, m_clock.done()));
    Q_EMIT sigChanged();
}

void Replay::replayTicks(TickView* view, const chart::OpenedTicks& ticks)
{
    end();
    m_view = view;
    m_ticks = ticks;
    std::vector<qint64> moments;
    moments.reserve(ticks.ticks->size());
    for (const std::int64_t time : ticks.ticks->timeMs)
        moments.push_back(time - ticks.ticks->timeMs.front());
    begin(view->state(), std::move(moments), static_cast<std::size_t>(std::max(1, view->state()->first())));
    m_view->setTicks(
        { m_ticks.instrument,
          std::make_shared<const engine::TickSeries>(engine::headOf(*m_ticks.ticks, m_clock.done())) });
    Q_EMIT sigChanged();
}

void Replay::begin(ChartState* state, std::vector<qint64> moments, std::size_t done)
{
    m_state = state;
    m_first = state->first();
    m_last = state->last();
    m_clock.load(std::move(moments), done);
}

void Replay::show()
{
    if (m_bars)
        m_state->growBars(barsOf(*m_bars, m_clock.done()));
    else
        m_view->growTicks(
            { m_ticks.instrument,
              std::make_shared<const engine::TickSeries>(engine::headOf(*m_ticks.ticks, m_clock.done())) });
}

void Replay::end()
{
    if (!isOn())
        return;
    ChartState* state = m_state;
    const ChartState::Bars bars = m_bars;
    const chart::OpenedTicks ticks = m_ticks;
    TickView* view = m_view;
    forget();
    if (bars)
        state->setBars(state->instrument(), bars);
    else
        view->setTicks(ticks);
    state->show(m_first, m_last);
}

void Replay::forget()
{
    if (!isOn())
        return;
    m_clock.load({}, 0);
    m_state = nullptr;
    m_view = nullptr;
    m_bars.reset();
    m_ticks = {};
    Q_EMIT sigChanged();
}

QString Replay::progress() const
{
    if (!isOn() || m_state->barTotal() == 0)
        return QString();
    const qint64 time = m_state->bars()->timeMs.back();
    const std::size_t total = m_bars ? m_bars->size() : m_ticks.ticks->size();
    const QString form = !m_bars                      ? QStringLiteral("yyyy-MM-dd HH:mm:ss")
        : m_state->period() >= TC::EFormulaPeriod_Day ? QStringLiteral("yyyy-MM-dd")
                                                      : QStringLiteral("yyyy-MM-dd HH:mm");
    return tr("回放 %1 / %2　%3")
        .arg(m_state->barTotal())
        .arg(total)
        .arg(utils::localDateTime(time).toString(form));
}

} // namespace client
