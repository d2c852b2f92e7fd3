// SPDX-License-Identifier: MIT
#include "data/IndexBaseData.h"

#include "data/internal/RecordViews.h"
#include "host/TC/CFormulaHistoryDataManager.h"
#include "host/TC/CFormulaOperateManager.h"
#include "host/WB/TextConversion.h"
#include "host/utils/CSingletonT.h"

#include <QStringList>

#include <algorithm>
#include <cstddef>

namespace TC {

using namespace detail;

namespace {

constexpr int kMainChartKind = 2;

CFormulaOperateManager* formulaManager()
{
    return utils::CSingletonT<CFormulaOperateManager>::instance();
}

/// Column that decides whether an output of the draw type needs the axis; null when nothing decides.
const int* decidingColumn(int drawType, const std::vector<int>& columns)
{
    switch (drawType) {
    case se::DrawType::Line:
    case se::DrawType::ColorStick:
    case se::DrawType::PointDot:
    case se::DrawType::CircleDot:
    case se::DrawType::Volume:
    case se::DrawType::BoolLine: return elementAt(columns, 0);
    case se::DrawType::Text:
    case se::DrawType::Icon:
    case se::DrawType::Number:
    case se::DrawType::StickLine: return elementAt(columns, 1);
    default: return nullptr;
    }
}

/// Adds the back-test figures among the outputs of one formula. Deliberate: missing numbers are passed on,
/// and a later output of a name replaces an earlier one.
void collectFigures(const RPCFormulaResultCache& cache, QMap<QString, double>& figures)
{
    static const QStringList names =
        QStringLiteral("年化收益|基准年化收益|最大回撤率|胜率").split(QLatin1Char('|'));
    const se::RPCFormulaMetaResult& meta = cache.meta;
    const int lastBar = barTotal(cache.result) - 1;
    if (!isValidBar(cache.result, lastBar))
        return;
    for (int output = 0; output < meta.outputCount; ++output) {
        const int* drawType = elementAt(meta.drawType, output);
        const std::string* name = elementAt(meta.outputNames, output);
        if (!drawType)
            return; // no later output has one either
        if (!hasLegendValue(*drawType) || !name)
            continue;
        const QString shown = WB::sToQs(*name);
        // Deliberate: the column's type is not asked for, so that a text column reads the number series of
        // its index.
        const std::optional<double> value = OutputView(cache, output).column(0).raw(lastBar);
        if (value && names.contains(shown, Qt::CaseSensitive))
            figures[shown] = *value;
    }
}

} // namespace

IndexBaseData::IndexBaseData(WB::CEventDeliverer* parent)
    : WB::CEventDeliverer(parent)
{
}

IndexBaseData::~IndexBaseData() = default;

IndexBaseData::MaxMinMap IndexBaseData::getMaxMinMap()
{
    const boost::recursive_mutex::scoped_lock lock(m_dataLock);
    return m_maxMinMap;
}

QString IndexBaseData::getMainGraph()
{
    const auto found = std::find_if(m_formulas.cbegin(), m_formulas.cend(),
                                    [this](const QString& name) { return isMainGraph(name); });
    return found == m_formulas.cend() ? QString() : *found;
}

bool IndexBaseData::isMainGraph(QString name) const
{
    for (const QString& builtIn :
         { QStringLiteral("REALTIME"), QStringLiteral("REALTIMEVOL"), QStringLiteral("KLINE"),
           QStringLiteral("价位线"), QStringLiteral("TICKDATA") }) {
        if (name.compare(builtIn, Qt::CaseInsensitive) == 0)
            return true;
    }
    const auto formula = formulaManager()->getFormula(name);
    return formula && formula->kind == kMainChartKind;
}

bool IndexBaseData::isNeedYAxis(const RPCFormulaResultCache& cache, int output)
{
    const std::vector<int>* columns = elementAt(cache.meta.outputColumns, output);
    const int* drawType = elementAt(cache.meta.drawType, output);
    const int* column = columns && drawType ? decidingColumn(*drawType, *columns) : nullptr;
    const int* needsAxis = column ? elementAt(cache.result.columnNeedsAxis, *column) : nullptr;
    return !needsAxis || *needsAxis != 0;
}

QString IndexBaseData::getReqID(CFormulaKey key)
{
    QString id;
    m_requests.getReq(id, key);
    return id;
}

QString IndexBaseData::getShowName(QString formula)
{
    const auto found = formulaManager()->getFormula(formula);
    return found ? found->displayName : QString();
}

bool IndexBaseData::hasGroupModelIndex()
{
    return std::any_of(m_formulas.cbegin(), m_formulas.cend(),
                       [](const QString& name) { return formulaManager()->isGroupModelExist(name); });
}

bool IndexBaseData::hasPythonIndex()
{
    return std::any_of(m_formulas.cbegin(), m_formulas.cend(),
                       [](const QString& name) { return formulaManager()->isPythonIndex(name); });
}

void IndexBaseData::updateStrategyBacktestData(const QVector<QString>& ids)
{
    QMap<QString, double> figures;
    for (const RPCFormulaResultCache& cache : qAsConst(m_data))
        collectFigures(cache, figures);
    utils::CSingletonT<CFormulaHistoryDataManager>::instance()->updateStrategyBacktestData(ids, figures);
}

} // namespace TC
