#pragma once
/// @file Formulas computed beside the user interface.

#include "engine/Formulas.h"

#include <QObject>
#include <QString>

#include <atomic>
#include <map>
#include <memory>
#include <thread>

namespace engine {

/// Computes formulas one after the other in a thread of its own and delivers each result on the thread that
/// owns this object. Requests are made and given up from that thread alone.
class FormulaService : public QObject
{
    Q_OBJECT

public:
    explicit FormulaService(QObject* parent = nullptr);
    /// Gives up every request and waits for the thread to end.
    ~FormulaService() override;

    /// Asks for a formula. @return the request's identifier, never used twice; empty for an unknown name.
    QString request(const std::string& name, std::shared_ptr<const BarSeries> bars,
                    std::vector<double> parameters = {});

    /// Gives a request up: its result is not delivered from now on. Unknown identifiers are ignored.
    void cancel(const QString& id);

Q_SIGNALS:
    void sigResult(const QString& id, const std::shared_ptr<const engine::FormulaRecords>& records);

private:
    struct Job;
    struct Queue;

    void deliver(const QString& id, const std::shared_ptr<const FormulaRecords>& records);
    static void work(FormulaService* service, Queue& queue);

    std::unique_ptr<Queue> m_queue;
    std::map<QString, std::shared_ptr<Job>> m_open; ///< requested and not yet delivered
    long long m_lastId = 0;
    std::thread m_worker;
};

} // namespace engine
