// SPDX-License-Identifier: MIT
#include "apps/client/live/ReplayClock.h"

#include <algorithm>

namespace client {

namespace {

constexpr int kFrameMs = 33;

} // namespace

ReplayClock::ReplayClock(QObject* parent)
    : QObject(parent)
{
    m_timer.setInterval(kFrameMs);
    connect(&m_timer, &QTimer::timeout, this, &ReplayClock::advance);
}

void ReplayClock::load(std::vector<qint64> moments, std::size_t done)
{
    pause();
    m_moments = std::move(moments);
    m_done = std::min(done, m_moments.size());
    m_now = m_done > 0 ? static_cast<double>(m_moments[m_done - 1]) : 0.0;
}

void ReplayClock::setSpeed(int factor)
{
    m_speed = std::clamp(factor, 1, kFastest);
}

void ReplayClock::start()
{
    if (isRunning() || m_done == m_moments.size())
        return;
    m_clock.start();
    m_timer.start();
    Q_EMIT sigRunningChanged();
}

void ReplayClock::pause()
{
    if (!isRunning())
        return;
    m_timer.stop();
    Q_EMIT sigRunningChanged();
}

void ReplayClock::step()
{
    pause();
    if (m_done == m_moments.size())
        return;
    m_now = static_cast<double>(m_moments[m_done]);
    ++m_done;
    Q_EMIT sigAdvanced();
}

void ReplayClock::advance()
{
    m_now += static_cast<double>(m_clock.restart()) * m_speed;
    const auto due =
        std::upper_bound(m_moments.begin() + static_cast<std::ptrdiff_t>(m_done), m_moments.end(), m_now,
                         [](double now, qint64 moment) { return now < static_cast<double>(moment); });
    const auto done = static_cast<std::size_t>(due - m_moments.begin());
    if (done == m_moments.size())
        pause();
    if (done == m_done)
        return;
    m_done = done;
    Q_EMIT sigAdvanced();
}

} // namespace client
