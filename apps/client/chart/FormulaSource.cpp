// SPDX-License-Identifier: MIT
#include "apps/client/chart/FormulaSource.h"

namespace client {

FormulaSource::FormulaSource(QObject* parent)
    : QObject(parent)
{
    connect(&m_service, &engine::FormulaService::computed, this, &FormulaSource::deliver);
    connect(&m_service, &engine::FormulaService::failed, this,
            [this](const QString& id) { m_open.remove(id); });
}

QString FormulaSource::request(const QString& name, const std::shared_ptr<const engine::BarSeries>& bars)
{
    const std::optional<TC::embedded::FormulaRecipe> recipe = TC::embedded::resolveFormula(name);
    if (!recipe)
        return QString();
    const std::vector<double> parameters(recipe->parameters.begin(), recipe->parameters.end());
    QString id = m_service.request(recipe->formula, bars, parameters);
    m_open.insert(id, *recipe);
    return id;
}

QString FormulaSource::follow(const QString& name, const std::shared_ptr<const engine::BarSeries>& bars,
                              Followed& followed)
{
    const std::optional<TC::embedded::FormulaRecipe> recipe = TC::embedded::resolveFormula(name);
    if (!recipe)
        return QString();
    const std::vector<double> parameters(recipe->parameters.begin(), recipe->parameters.end());
    if (!followed.evaluation || followed.formula != recipe->formula || followed.parameters != parameters)
        followed = { recipe->formula, parameters,
                     std::make_shared<engine::FormulaEvaluation>(recipe->formula, parameters) };
    QString id = m_service.follow(followed.evaluation, bars);
    m_open.insert(id, *recipe);
    return id;
}

void FormulaSource::cancel(const QString& id)
{
    m_service.cancel(id);
    m_open.remove(id);
}

void FormulaSource::deliver(const QString& id, const std::shared_ptr<const engine::FormulaRecords>& records)
{
    Q_EMIT sigResult(id, records, m_open.take(id));
}

} // namespace client
