#include "data/IndexBaseData.h"

#include "data/internal/ElementAt.h"
#include "host/TC/CFormulaHistoryDataManager.h"
#include "host/TC/CFormulaOperateManager.h"
#include "host/WB/TextConversion.h"
#include "host/utils/CSingletonT.h"

#include <QStringList>

#include <algorithm>
#include <cstddef>

namespace TC {

namespace {

using detail::elementAt;

constexpr int kMainChartKind = 2;
constexpr int kLastDrawType = 37;

CFormulaOperateManager* formulaManager()
{
    return utils::CSingletonT<CFormulaOperateManager>::instance();
}

template <std::size_t Count>
bool isOneOf(int value, const int (&values)[Count])
{
    return std::find(std::begin(values), std::end(values), value) != std::end(values);
}

/// Column that decides whether an output of the draw type needs the axis; null when nothing decides.
const int* decidingColumn(int drawType, const std::vector<int>& columns)
{
    static const int byFirst[] = { 0, 2, 10, 11, 27, 37 }, bySecond[] = { 13, 19, 26, 28 };
    if (drawType > kLastDrawType)
        return nullptr;
    if (isOneOf(drawType, byFirst))
        return elementAt(columns, 0);
    if (isOneOf(drawType, bySecond))
        return elementAt(columns, 1);
    return nullptr;
}

/// Value of an output's first column at the last bar; null when the records have none. Deliberate: the
/// column's type is not asked for, so that a text column reads the number series of its index.
const double* lastValue(const se::RPCFormulaResult& result, const std::vector<int>& columns)
{
    const int* column = elementAt(columns, 0);
    const int* series = column ? elementAt(result.columnSeries, *column) : nullptr;
    const std::vector<double>* values = series ? elementAt(result.numberSeries, *series) : nullptr;
    return values ? elementAt(*values, static_cast<int>(result.barTimes.size()) - 1) : nullptr;
}

/// Adds the back-test figures among the outputs of one formula. Deliberate: missing numbers are passed on,
/// and a later output of a name replaces an earlier one.
void collectFigures(const RPCFormulaResultCache& cache, QMap<QString, double>& figures)
{
    static const QStringList names =
        QStringLiteral("年化收益|基准年化收益|最大回撤率|胜率").split(QLatin1Char('|'));
    static const int withoutFigure[] = { 12, 13, 19, 26, 28, 31, 34, 36 };
    const se::RPCFormulaMetaResult& meta = cache.meta;
    const int* valid = elementAt(cache.result.barValid, static_cast<int>(cache.result.barTimes.size()) - 1);
    if (!valid || *valid == 0)
        return;
    for (int output = 0; output < meta.outputCount; ++output) {
        const int* drawType = elementAt(meta.drawType, output);
        const std::vector<int>* columns = elementAt(meta.outputColumns, output);
        const std::string* name = elementAt(meta.outputNames, output);
        if (!drawType)
            return; // no later output has one either
        if (isOneOf(*drawType, withoutFigure) || !columns || !name)
            continue;
        const QString shown = WB::sToQs(*name);
        const double* value = lastValue(cache.result, *columns);
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
