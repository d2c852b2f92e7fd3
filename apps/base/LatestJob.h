// SPDX-License-Identifier: MIT
#pragma once
/// @file Work that must not hold up the window.

#include <QObject>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace base {

/// Does work on a thread of its own, of which only the last one asked for counts: a new one takes the place
/// of that which waits, tells the running one to stop, and its answer is never shown. To be used from the
/// thread that it was made on. The end waits for the running work.
class LatestJob : public QObject
{
    Q_OBJECT

public:
    /// Shows an answer, on the object's own thread.
    using Answer = std::function<void()>;
    /// Works on the other thread; may end early, with any answer, when `cancelled` turns true.
    using Work = std::function<Answer(const std::atomic<bool>& cancelled)>;

    explicit LatestJob(QObject* parent = nullptr);
    ~LatestJob() override;

    void start(Work work);
    /// Drops what was asked for.
    void forget();
    /// Whether an answer is still to come.
    bool isBusy() const { return m_isBusy; }

private:
    void work();
    void show(quint64 number, const Answer& answer);

    quint64 m_number = 0; ///< of the last work that was asked for
    bool m_isBusy = false;

    std::mutex m_mutex; ///< over what follows
    std::condition_variable m_change;
    Work m_waiting;
    quint64 m_waitingNumber = 0;
    bool m_isEnding = false;
    std::atomic<bool> m_cancelled { false }; ///< the work that runs
    std::thread m_thread;                    ///< last: it uses all the others
};

} // namespace base
