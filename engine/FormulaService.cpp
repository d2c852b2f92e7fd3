#include "engine/FormulaService.h"

#include <QMetaObject>

#include <condition_variable>
#include <deque>
#include <mutex>

namespace engine {

/// One request.
struct FormulaService::Job
{
    QString id;
    std::string name;
    std::shared_ptr<const BarSeries> bars;
    std::vector<double> parameters;
    std::atomic<bool> cancelled { false };
};

/// What the two threads share.
struct FormulaService::Queue
{
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<std::shared_ptr<Job>> jobs;
    bool ended = false;

    /// The next job; null when the service ends.
    std::shared_ptr<Job> take()
    {
        std::unique_lock<std::mutex> lock(mutex);
        changed.wait(lock, [this] { return ended || !jobs.empty(); });
        if (ended)
            return nullptr;
        std::shared_ptr<Job> job = jobs.front();
        jobs.pop_front();
        return job;
    }
};

FormulaService::FormulaService(QObject* parent)
    : QObject(parent)
    , m_queue(std::make_unique<Queue>())
    , m_worker([this, queue = m_queue.get()] { work(this, *queue); })
{
}

FormulaService::~FormulaService()
{
    for (auto& open : m_open)
        open.second->cancelled = true;
    {
        const std::lock_guard<std::mutex> lock(m_queue->mutex);
        m_queue->ended = true;
    }
    m_queue->changed.notify_one();
    m_worker.join();
}

QString FormulaService::request(const std::string& name, std::shared_ptr<const BarSeries> bars,
                                std::vector<double> parameters)
{
    if (!findBuiltIn(name) || !bars)
        return QString();
    auto job = std::make_shared<Job>();
    job->id = QString::number(++m_lastId);
    job->name = name;
    job->bars = std::move(bars);
    job->parameters = std::move(parameters);
    m_open[job->id] = job;
    {
        const std::lock_guard<std::mutex> lock(m_queue->mutex);
        m_queue->jobs.push_back(job);
    }
    m_queue->changed.notify_one();
    return job->id;
}

void FormulaService::cancel(const QString& id)
{
    const auto open = m_open.find(id);
    if (open == m_open.end())
        return;
    open->second->cancelled = true;
    m_open.erase(open);
}

void FormulaService::work(FormulaService* service, Queue& queue)
{
    while (const std::shared_ptr<Job> job = queue.take()) {
        std::optional<FormulaRecords> computed
            = computeFormula(job->name, *job->bars, job->parameters, &job->cancelled);
        if (!computed)
            continue;
        auto records = std::make_shared<const FormulaRecords>(std::move(*computed));
        // Posted to the owner's thread; dropped by Qt when the owner is gone by then.
        QMetaObject::invokeMethod(
            service, [service, job, records] { service->deliver(job->id, records); }, Qt::QueuedConnection);
    }
}

void FormulaService::deliver(const QString& id, const std::shared_ptr<const FormulaRecords>& records)
{
    if (m_open.erase(id) > 0) // else it was given up after it was computed
        Q_EMIT sigResult(id, records);
}

} // namespace engine
