// SPDX-License-Identifier: MIT
#pragma once
/// @file When the steps of a replay are due.

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <vector>

namespace client {

/// Steps at moments of a time that can run up to a thousand times as fast as the clock, rest and go by single
/// steps. GUI thread only.
class ReplayClock : public QObject
{
    Q_OBJECT

public:
    static constexpr int kFastest = 1000;

    explicit ReplayClock(QObject* parent = nullptr);

    /// Rests, before the steps behind the first `done` ones.
    /// @param moments  of all steps, milliseconds, never falling.
    void load(std::vector<qint64> moments, std::size_t done);

    /// @param factor  from 1, as fast as the clock, to kFastest.
    void setSpeed(int factor);
    int speed() const { return m_speed; }

    /// Lets the time run; from the end it does not go further.
    void start();
    void pause();
    bool isRunning() const { return m_timer.isActive(); }
    /// Rests behind the next step.
    void step();

    std::size_t done() const { return m_done; }
    std::size_t total() const { return m_moments.size(); }

Q_SIGNALS:
    /// One step or more were due; several that fall together are told of once.
    void sigAdvanced();
    void sigRunningChanged();

private:
    void advance();

    std::vector<qint64> m_moments;
    std::size_t m_done = 0;
    double m_now = 0.0; ///< milliseconds in the time of the moments
    int m_speed = 1;
    QTimer m_timer;
    QElapsedTimer m_clock; ///< since the last look
};

} // namespace client
