#include "apps/client/FormulaSource.h"

namespace client {

FormulaSource::FormulaSource(QObject* parent)
    : QObject(parent)
{
    connect(&m_service, &engine::FormulaService::computed, this, &FormulaSource::sigResult);
}

QString FormulaSource::request(const QString& name, const std::shared_ptr<const engine::BarSeries>& bars)
{
    return m_service.request(name.toStdString(), bars);
}

void FormulaSource::cancel(const QString& id)
{
    m_service.cancel(id);
}

} // namespace client
