// SPDX-License-Identifier: MIT
#include "engine/FormulaService.h"

#include <QMetaObject>
#include <QPointer>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>
#include <thread>
#include <utility>

namespace engine {

namespace {

quint64 nextNumber()
{
    static std::atomic<quint64> counter { 0 };
    return ++counter;
}

/// The identifier of a request.
QString idOf(quint64 number)
{
    return QStringLiteral("request-%1").arg(number);
}

/// One request. The thread reads it; only the flag is written by both sides. It may be the thread that lets
/// go of it last, so it holds nothing of Qt: Qt counts and frees shared texts where no checker of threads
/// sees it.
struct Job
{
    quint64 number = 0;
    std::shared_ptr<const Formula> formula;
    std::shared_ptr<FormulaEvaluation>
        followed; ///< in place of the formula; null for one that is computed once
    std::shared_ptr<const BarSeries> bars;
    std::vector<double> parameters;
    std::atomic<bool> cancelled { false };
};

/// What became of a request; without records it failed.
struct Outcome
{
    quint64 number = 0;
    std::shared_ptr<const FormulaRecords> records;
};

} // namespace

/// The thread and its queue.
class FormulaService::Worker
{
public:
    explicit Worker(FormulaService* service)
        : m_service(service)
        , m_thread([this] { run(); })
    {
    }

    ~Worker()
    {
        {
            const std::lock_guard<std::mutex> lock(m_lock);
            m_stopping = true;
            m_waiting.clear();
            if (m_current)
                m_current->cancelled = true;
        }
        m_wake.notify_one();
        m_thread.join();
    }

    /// @return the identifier that the job now has.
    QString add(std::shared_ptr<Job> job)
    {
        job->number = nextNumber();
        QString id = idOf(job->number);
        m_open.emplace(id, job);
        {
            const std::lock_guard<std::mutex> lock(m_lock);
            m_waiting.push_back(std::move(job));
        }
        m_wake.notify_one();
        return id;
    }

    /// Forgets an open request. @return whether it was open.
    bool close(const QString& id)
    {
        const auto found = m_open.find(id);
        if (found == m_open.end())
            return false;
        found->second->cancelled = true;
        const std::lock_guard<std::mutex> lock(m_lock);
        const auto queued = std::find(m_waiting.begin(), m_waiting.end(), found->second);
        if (queued != m_waiting.end())
            m_waiting.erase(queued);
        m_open.erase(found);
        return true;
    }

    void closeAll()
    {
        while (!m_open.empty())
            close(QString(m_open.begin()->first));
    }

    /// What has been computed since the last call.
    std::deque<Outcome> takeOutcomes()
    {
        const std::lock_guard<std::mutex> lock(m_lock);
        return std::exchange(m_outcomes, {});
    }

    int openCount() const { return static_cast<int>(m_open.size()); }

private:
    void run()
    {
        while (const std::shared_ptr<Job> job = next()) {
            std::shared_ptr<const FormulaRecords> records;
            if (job->bars)
                records = job->followed ? followed(*job) : computed(*job);
            if (!job->cancelled)
                hand({ job->number, std::move(records) });
        }
    }

    static std::shared_ptr<const FormulaRecords> computed(const Job& job)
    {
        auto records = computeFormula(job.formula, *job.bars, job.parameters, &job.cancelled);
        return records ? std::make_shared<const FormulaRecords>(std::move(*records)) : nullptr;
    }

    static std::shared_ptr<const FormulaRecords> followed(const Job& job)
    {
        const bool isDone = job.followed->update(*job.bars, &job.cancelled);
        return isDone ? std::make_shared<const FormulaRecords>(job.followed->records()) : nullptr;
    }

    /// Leaves the outcome for the service's thread and calls that thread, once for all that lies there.
    void hand(Outcome outcome)
    {
        bool isFirst = false;
        {
            const std::lock_guard<std::mutex> lock(m_lock);
            isFirst = m_outcomes.empty();
            m_outcomes.push_back(std::move(outcome));
        }
        if (isFirst)
            QMetaObject::invokeMethod(m_service, "slotDeliver", Qt::QueuedConnection);
    }

    /// Waits for a request; null when the service is going away.
    std::shared_ptr<Job> next()
    {
        std::unique_lock<std::mutex> lock(m_lock);
        m_current.reset();
        m_wake.wait(lock, [this] { return m_stopping || !m_waiting.empty(); });
        if (m_stopping)
            return nullptr;
        m_current = std::move(m_waiting.front());
        m_waiting.pop_front();
        return m_current;
    }

    FormulaService* m_service;
    std::map<QString, std::shared_ptr<Job>> m_open; ///< the service's thread only

    std::mutex m_lock; ///< guards what follows
    std::condition_variable m_wake;
    std::deque<std::shared_ptr<Job>> m_waiting;
    std::shared_ptr<Job> m_current;
    std::deque<Outcome> m_outcomes;
    bool m_stopping = false;

    std::thread m_thread; ///< last: it starts when everything else stands
};

FormulaService::FormulaService(QObject* parent)
    : QObject(parent)
    , m_worker(std::make_unique<Worker>(this))
{
}

FormulaService::~FormulaService() = default;

QString FormulaService::request(std::shared_ptr<const Formula> formula, std::shared_ptr<const BarSeries> bars,
                                const std::vector<double>& parameters)
{
    auto job = std::make_shared<Job>();
    job->formula = std::move(formula);
    job->bars = std::move(bars);
    job->parameters = parameters;
    return m_worker->add(std::move(job));
}

QString FormulaService::follow(std::shared_ptr<FormulaEvaluation> followed,
                               std::shared_ptr<const BarSeries> bars)
{
    auto job = std::make_shared<Job>();
    job->followed = std::move(followed);
    job->bars = std::move(bars);
    return m_worker->add(std::move(job));
}

void FormulaService::cancel(const QString& id)
{
    m_worker->close(id);
}

void FormulaService::cancelAll()
{
    m_worker->closeAll();
}

int FormulaService::pending() const
{
    return m_worker->openCount();
}

void FormulaService::slotDeliver()
{
    const QPointer<FormulaService> self(this); // a receiver may delete the service
    for (const Outcome& outcome : m_worker->takeOutcomes()) {
        if (!self)
            return;
        const QString id = idOf(outcome.number);
        if (!m_worker->close(id)) // cancelled after it was computed
            continue;
        if (outcome.records)
            Q_EMIT computed(id, outcome.records);
        else
            Q_EMIT failed(id);
    }
}

} // namespace engine
