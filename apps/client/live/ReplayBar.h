// SPDX-License-Identifier: MIT
#pragma once
/// @file The bar that a replay is steered with.

#include <QWidget>

class QComboBox;
class QLabel;
class QPushButton;

namespace client {

class ReplayClock;

/// Start or pause, one step, speed, how far the replay is, and its end.
class ReplayBar : public QWidget
{
    Q_OBJECT

public:
    explicit ReplayBar(ReplayClock* clock, QWidget* parent = nullptr);

    /// @param what  that is replayed, and up to when it has come.
    void showState(const QString& what);

Q_SIGNALS:
    void sigEndRequested();

private:
    void followClock();

    ReplayClock* m_clock;
    QPushButton* m_run;
    QPushButton* m_step;
    QComboBox* m_speed;
    QLabel* m_state;
};

} // namespace client
