// SPDX-License-Identifier: MIT
#include "apps/client/chart/PaneData.h"

#include "apps/client/chart/ResultDifference.h"
#include "draw/CDrawStyle.h"
#include "host/TC/Instruments.h"

#include <algorithm>

namespace client {

PaneData::PaneData(WB::CEventDeliverer* parent, ChartState* state, FormulaSource* source)
    : chart::PaneResults(parent)
    , m_state(state)
    , m_source(source)
{
    connect(source, &FormulaSource::sigResult, this, &PaneData::store);
    connect(state, &ChartState::sigBarsChanged, this, [this] {
        m_data.clear();
        m_followed.clear(); // these are other bars
        request();
    });
    connect(state, &ChartState::sigBarsGrown, this, &PaneData::grow);
}

PaneData::~PaneData()
{
    cancel();
}

void PaneData::setFormulas(const QStringList& names)
{
    m_formulas = names;
    request();
}

void PaneData::addFormula(const QString& name)
{
    if (!m_formulas.contains(name))
        setFormulas(m_formulas + QStringList(name));
}

void PaneData::removeFormula(const QString& name)
{
    QStringList left = m_formulas;
    left.removeAll(name);
    setFormulas(left);
}

void PaneData::moveFormula(int from, int to)
{
    if (from < 0 || to < 0 || from >= m_formulas.size() || to >= m_formulas.size())
        return;
    m_formulas.move(from, to);
    Q_EMIT sigChanged();
}

void PaneData::setOverlays(const std::vector<Overlay>& overlays)
{
    m_overlays = overlays;
    request();
}

std::vector<TC::CFormulaKey> PaneData::keys() const
{
    std::vector<TC::CFormulaKey> all;
    const QString own = TC::getDetailQsKey(m_state->instrument());
    for (const QString& name : m_formulas)
        all.emplace_back(own, name);
    for (const Overlay& overlay : m_overlays)
        all.emplace_back(TC::getDetailQsKey(overlay.instrument), QStringLiteral("KLINE"));
    return all;
}

void PaneData::request()
{
    const std::vector<TC::CFormulaKey> wanted = keys();
    const QList<TC::CFormulaKey> known = m_data.keys();
    for (const TC::CFormulaKey& key : known) {
        if (std::find(wanted.begin(), wanted.end(), key) == wanted.end())
            m_data.remove(key);
    }
    cancel();
    const auto own = static_cast<std::size_t>(m_formulas.size());
    for (std::size_t i = 0; i < wanted.size(); ++i)
        requestOne(wanted[i], i < own ? m_state->bars() : m_overlays[i - own].bars);
    Q_EMIT sigChanged();
}

void PaneData::requestOne(const TC::CFormulaKey& key, const ChartState::Bars& bars)
{
    if (!bars)
        return;
    const QString id = m_source->request(key.formulaName, bars);
    if (!id.isEmpty())
        m_requests.add(key, id); // an older request of the key is forgotten, its result dropped
}

void PaneData::cancel()
{
    const QVector<QString> ids = m_requests.reqIds();
    for (const QString& id : ids)
        m_source->cancel(id);
    m_requests.clear();
    m_due.clear();
}

void PaneData::grow()
{
    const QString own = TC::getDetailQsKey(m_state->instrument());
    for (const QString& name : qAsConst(m_formulas)) {
        const TC::CFormulaKey key(own, name);
        // A computation under way is not given up: at each new bar it would begin anew and never end.
        if (m_requests.findKey(key))
            m_due.insert(name);
        else
            growOne(key);
    }
}

void PaneData::growOne(const TC::CFormulaKey& key)
{
    const QString id = m_source->follow(key.formulaName, m_state->bars(), m_followed[key.formulaName]);
    if (!id.isEmpty())
        m_requests.add(key, id);
}

bool PaneData::isSeen(const TC::CFormulaKey& key, const engine::FormulaRecords& records) const
{
    const auto known = m_data.find(key);
    if (known == m_data.end() || isMainGraph(key.formulaName)) // whose pane marks the last price
        return true;
    const int before = m_state->first() - 1; // which the first bar in view is compared with
    return differ(known->result, records.result, before, m_state->last());
}

void PaneData::store(const QString& id, const std::shared_ptr<const engine::FormulaRecords>& records,
                     const TC::embedded::FormulaRecipe& recipe)
{
    TC::CFormulaKey key;
    if (!m_requests.getKey(key, id))
        return;
    m_requests.removeReq(id);
    const bool seen = isSeen(key, *records);
    TC::RPCFormulaResultCache& cache = m_data[key];
    cache.meta = records->meta;
    cache.result = records->result;
    TC::embedded::applyColors(recipe, cache.meta);
    colorOverlays();
    if (seen)
        Q_EMIT sigChanged();
    else
        Q_EMIT sigGrownOutOfView();
    if (m_due.erase(key.formulaName) > 0)
        growOne(key);
}

void PaneData::colorOverlays()
{
    constexpr int firstColor = 6, paletteSize = 10;
    int color = firstColor;
    for (const Overlay& overlay : m_overlays) {
        const auto found =
            m_data.find(TC::CFormulaKey(TC::getDetailQsKey(overlay.instrument), QStringLiteral("KLINE")));
        if (found == m_data.end() || found->meta.color.empty() || found->meta.colorSet.empty())
            continue;
        found->meta.color.front() = TC::CDrawStyle::getIndexOutPutColorKey(color, 0, 0);
        found->meta.colorSet.front() = 1;
        color = (color + 1) % paletteSize;
    }
}

chart::PaneContent PaneData::content()
{
    chart::PaneContent pane = PaneResults::content(m_state->instrument(), keys());
    pane.periodSeconds = m_state->period();
    bringOntoOneAxis(pane);
    if (pane.showsPrices)
        pane.lastPrice = lastPrice();
    return pane;
}

std::optional<chart::LastPrice> PaneData::lastPrice() const
{
    if (!m_state->bars() || m_state->bars()->close.empty())
        return std::nullopt;
    const std::vector<double>& closes = m_state->bars()->close;
    const double before = closes.size() > 1 ? closes[closes.size() - 2] : closes.back();
    return chart::LastPrice { closes.back(), closes.back() >= before };
}

/// Overlaid prices are scaled so that both instruments meet on the first shown bar.
void PaneData::bringOntoOneAxis(chart::PaneContent& pane) const
{
    for (chart::PaneFormula& formula : pane.formulas) {
        if (!formula.overlaid)
            continue;
        const auto overlay =
            std::find_if(m_overlays.begin(), m_overlays.end(), [&](const Overlay& candidate) {
                return TC::getDetailQsKey(candidate.instrument) == formula.key.instrumentKey;
            });
        const auto bar = static_cast<std::size_t>(m_state->first());
        if (overlay == m_overlays.end() || !m_state->bars() || bar >= overlay->bars->size()
            || bar >= m_state->bars()->size())
            continue;
        formula.scale = static_cast<float>(m_state->bars()->close[bar] / overlay->bars->close[bar]);
    }
}

} // namespace client
