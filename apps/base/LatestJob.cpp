// SPDX-License-Identifier: MIT
#include "apps/base/LatestJob.h"

#include <utility>

namespace base {

LatestJob::LatestJob(QObject* parent)
    : QObject(parent)
    , m_thread([this] { work(); })
{
}

LatestJob::~LatestJob()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isEnding = true;
        m_waiting = {};
        m_cancelled = true;
    }
    m_change.notify_one();
    m_thread.join();
}

void LatestJob::start(Work work)
{
    ++m_number;
    m_isBusy = true;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_waiting = std::move(work);
        m_waitingNumber = m_number;
        m_cancelled = true;
    }
    m_change.notify_one();
}

void LatestJob::forget()
{
    ++m_number; // an answer that is on its way bears an older one
    m_isBusy = false;
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_waiting = {};
    m_cancelled = true;
}

void LatestJob::work()
{
    while (true) {
        Work work;
        quint64 number = 0;
        {
            std::unique_lock<std::mutex> lock(m_mutex);
            m_change.wait(lock, [this] { return m_isEnding || m_waiting; });
            if (m_isEnding)
                return;
            work = std::exchange(m_waiting, {});
            number = m_waitingNumber;
            m_cancelled = false;
        }
        const Answer answer = work(m_cancelled);
        // What is posted to an object that has ended meanwhile is dropped with it.
        QMetaObject::invokeMethod(
            this, [this, number, answer] { show(number, answer); }, Qt::QueuedConnection);
    }
}

void LatestJob::show(quint64 number, const Answer& answer)
{
    if (number != m_number)
        return;
    m_isBusy = false;
    if (answer)
        answer();
}

} // namespace base
