// SPDX-License-Identifier: MIT
#pragma once
/// @file Where panes get formula results from: the engine in its own thread.

#include "engine/FormulaService.h"
#include "host/embedded/FormulaSetup.h"

#include <QHash>
#include <QObject>
#include <QString>

#include <memory>

namespace client {

/// Asks the engine for formulas by the names that users see, built-in and their own. Results arrive on the
/// GUI thread.
class FormulaSource : public QObject
{
    Q_OBJECT

public:
    explicit FormulaSource(QObject* parent = nullptr);

    /// Starts computing a formula.
    /// @return the request's id, never used twice; empty for a name that nobody knows.
    QString request(const QString& name, const std::shared_ptr<const engine::BarSeries>& bars);

    /// A formula that follows the bars of a chart; empty at first.
    struct Followed
    {
        std::shared_ptr<const engine::Formula> formula; ///< with these parameters
        std::vector<double> parameters;
        std::shared_ptr<engine::FormulaEvaluation> evaluation; ///< of both; null at first
    };
    /// The same over bars that grow: what the request before has computed is not computed again.
    /// @param bars  the ones of the request before, the last one perhaps changed and more behind it.
    QString follow(const QString& name, const std::shared_ptr<const engine::BarSeries>& bars,
                   Followed& followed);

    /// Gives up a request; its result will not arrive.
    void cancel(const QString& id);

Q_SIGNALS:
    /// @param recipe  what was asked for; its colours are not in the records yet.
    void sigResult(const QString& id, const std::shared_ptr<const engine::FormulaRecords>& records,
                   const TC::embedded::FormulaRecipe& recipe);

private:
    void deliver(const QString& id, const std::shared_ptr<const engine::FormulaRecords>& records);

    engine::FormulaService m_service;
    QHash<QString, TC::embedded::FormulaRecipe> m_open; ///< of requests that have not been delivered
};

} // namespace client
