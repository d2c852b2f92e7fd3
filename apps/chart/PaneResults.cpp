// SPDX-License-Identifier: MIT
#include "apps/chart/PaneResults.h"

#include "apps/chart/ExportText.h"
#include "host/TC/Instruments.h"
#include "host/ttservice/CInstrumentDetail.h"

#include <utility>

namespace chart {

PaneResults::PaneResults(WB::CEventDeliverer* parent)
    : TC::IndexBaseData(parent)
{
}

void PaneResults::add(const TC::CFormulaKey& key, engine::FormulaRecords records)
{
    if (!m_formulas.contains(key.formulaName))
        m_formulas << key.formulaName;
    TC::RPCFormulaResultCache& cache = m_data[key];
    cache.meta = std::move(records.meta);
    cache.result = std::move(records.result);
}

std::string PaneResults::exported(const QString& formula, bool withTime)
{
    std::vector<TC::RPCFormulaResultCache*> caches;
    const QList<QString> names = formula.isEmpty() ? m_formulas : QList<QString> { formula };
    for (const QString& name : names) {
        for (auto entry = m_data.begin(); entry != m_data.end(); ++entry) {
            if (entry.key().formulaName == name)
                caches.push_back(&entry.value());
        }
    }
    if (caches.empty())
        return std::string();
    if (!formula.isEmpty())
        return withoutMissing(getResultTxtStr(caches.front()->result, caches.front()->meta, withTime));
    // The results are lent, as a copy of millions of bars would take more room than the text.
    std::vector<se::RPCFormulaResult> results;
    std::vector<se::RPCFormulaMetaResult> metas;
    for (TC::RPCFormulaResultCache* cache : caches) {
        results.push_back(std::move(cache->result));
        metas.push_back(cache->meta);
    }
    std::string text = getResultTxtStr(results, metas, withTime);
    for (std::size_t index = 0; index < caches.size(); ++index)
        caches[index]->result = std::move(results[index]);
    return withoutMissing(text);
}

void PaneResults::clear()
{
    m_formulas.clear();
    m_data.clear();
}

PaneContent PaneResults::content(const Instrument& instrument)
{
    std::vector<TC::CFormulaKey> keys;
    const QString own = TC::getDetailQsKey(instrument);
    for (const QString& name : qAsConst(m_formulas))
        keys.emplace_back(own, name);
    return content(instrument, keys);
}

PaneContent PaneResults::content(const Instrument& instrument, const std::vector<TC::CFormulaKey>& keys)
{
    PaneContent pane;
    if (!instrument)
        return pane;
    pane.priceTick = instrument->priceTick;
    const QString own = TC::getDetailQsKey(instrument);
    for (const TC::CFormulaKey& key : keys) {
        const auto found = m_data.find(key);
        if (found == m_data.end())
            continue;
        PaneFormula formula { key, &found.value() };
        formula.overlaid = key.instrumentKey != own;
        pane.formulas.push_back(formula);
        pane.showsPrices = pane.showsPrices || isMainGraph(key.formulaName);
    }
    return pane;
}

} // namespace chart
