// SPDX-License-Identifier: MIT
#pragma once
/// @file Formulas computed in the background.

#include "engine/EngineExport.h"
#include "engine/Formulas.h"
#include "engine/evaluation/FormulaEvaluation.h"

#include <QObject>
#include <QString>

#include <memory>
#include <vector>

namespace engine {

/// Computes formulas one after another in a thread of its own and delivers the records on the thread that the
/// service lives on. All members are for that thread only.
///
/// A request ends in exactly one signal, computed or failed, unless it is cancelled first: then it ends in
/// none, even when its result was already under way. No signal is sent from within request().
class ENGINE_EXPORT FormulaService : public QObject
{
    Q_OBJECT

public:
    /// Starts the thread.
    explicit FormulaService(QObject* parent = nullptr);
    /// Cancels everything and waits for the thread; a computation under way ends at its next check.
    ~FormulaService() override;

    /// Asks for a formula over bars that nobody changes any more.
    /// @param formula,parameters  as computeFormula takes them; no formula fails.
    /// @param bars  shared with the thread until the request ends; null fails.
    /// @return the identifier of the request, never empty and never used twice by any service.
    QString request(std::shared_ptr<const Formula> formula, std::shared_ptr<const BarSeries> bars,
                    const std::vector<double>& parameters = {});

    /// Asks a formula that follows growing bars for its records over them; a new bar or a changed last one
    /// costs no second look at the past. Ends as a request does.
    /// @param followed  of FormulaEvaluation::Mode::Follow; while requests of it are open nobody else uses
    /// it.
    ///        Null fails.
    /// @param bars  those of its request before, grown as FormulaEvaluation::update says.
    QString follow(std::shared_ptr<FormulaEvaluation> followed, std::shared_ptr<const BarSeries> bars);

    /// Drops a request that has not been delivered; unknown identifiers are ignored.
    void cancel(const QString& id);
    /// Drops all requests.
    void cancelAll();

    /// Number of requests that have neither been delivered nor cancelled.
    int pending() const;

Q_SIGNALS:
    /// The request's records; shared, and nobody changes them any more.
    void computed(const QString& id, std::shared_ptr<const engine::FormulaRecords> records);
    /// There is no formula, or there are no bars to compute it over.
    void failed(const QString& id);

private Q_SLOTS:
    void slotDeliver();

private:
    class Worker;

    std::unique_ptr<Worker> m_worker;
};

} // namespace engine
