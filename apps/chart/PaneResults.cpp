// SPDX-License-Identifier: MIT
#include "apps/chart/PaneResults.h"

#include "apps/chart/ExportText.h"
#include "draw/CDrawStyle.h"
#include "host/TC/Instruments.h"
#include "data/RecordReading.h"
#include "host/se/RecordCodes.h"
#include "host/ttservice/CInstrumentDetail.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace chart {

namespace {

/// Whether an output is a volume whose newest numbers are whole.
bool isWholeVolume(const TC::RPCFormulaResultCache& records, std::size_t output)
{
    constexpr int looked = 250; // bars
    const int drawType = records.meta.drawType[output];
    if (drawType != se::DrawType::Volume && drawType != se::DrawType::TickVolume)
        return false;
    const int bars = static_cast<int>(records.result.barTimes.size());
    for (int bar = std::max(0, bars - looked); bar < bars; ++bar) {
        const double volume = TC::recordedNumber(records, static_cast<int>(output), 0, bar).value_or(0.0);
        if (std::isfinite(volume) && volume != std::floor(volume))
            return false;
    }
    return true;
}

bool countsWhole(const PaneContent& pane)
{
    return std::any_of(pane.formulas.begin(), pane.formulas.end(), [](const PaneFormula& formula) {
        const std::size_t outputs = formula.records->meta.drawType.size();
        for (std::size_t output = 0; output < outputs; ++output) {
            if (isWholeVolume(*formula.records, output))
                return true;
        }
        return false;
    });
}

} // namespace

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

void PaneResults::overlay(const TC::CFormulaKey& key, engine::FormulaRecords records)
{
    TC::RPCFormulaResultCache& cache = m_data[key];
    cache.meta = std::move(records.meta);
    cache.result = std::move(records.result);
    if (std::find(m_overlaid.begin(), m_overlaid.end(), key) == m_overlaid.end())
        m_overlaid.push_back(key);
    colorOverlaid(m_overlaid);
}

void PaneResults::colorOverlaid(const std::vector<TC::CFormulaKey>& keys)
{
    constexpr int firstColor = 6, paletteSize = 10;
    const TC::CDrawStyle reader; // reads the skin's palette
    int color = firstColor;
    for (const TC::CFormulaKey& key : keys) {
        const auto found = m_data.find(key);
        if (found == m_data.end() || found->meta.color.empty() || found->meta.colorSet.empty())
            continue;
        found->meta.color.front() = TC::CDrawStyle::getIndexOutPutColorKey(color, 0, 0);
        found->meta.colorSet.front() = 1;
        color = (color + 1) % paletteSize;
    }
}

float meetingFactor(const std::vector<double>& own, const std::vector<double>& other, int bar)
{
    const auto at = static_cast<std::size_t>(bar);
    if (bar < 0 || at >= own.size() || at >= other.size())
        return 1.0f;
    const double factor = own[at] / other[at];
    return std::isfinite(factor) && factor > 0.0 ? static_cast<float>(factor) : 1.0f;
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
    m_overlaid.clear();
    m_data.clear();
}

PaneContent PaneResults::content(const Instrument& instrument)
{
    std::vector<TC::CFormulaKey> keys;
    const QString own = TC::getDetailQsKey(instrument);
    for (const QString& name : qAsConst(m_formulas))
        keys.emplace_back(own, name);
    keys.insert(keys.end(), m_overlaid.begin(), m_overlaid.end());
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
    pane.countsWhole = countsWhole(pane);
    return pane;
}

} // namespace chart
