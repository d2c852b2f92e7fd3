// SPDX-License-Identifier: MIT
#include "apps/client/chart/PaneData.h"

#include "apps/chart/MappedRecords.h"
#include "apps/chart/PaneScale.h"
#include "apps/client/chart/ResultDifference.h"
#include "draw/CDrawStyle.h"
#include "host/TC/Instruments.h"

#include <algorithm>
#include <cmath>

namespace client {

PaneData::PaneData(WB::CEventDeliverer* parent, ChartState* state, FormulaSource* source)
    : chart::PaneResults(parent)
    , m_state(state)
    , m_source(source)
{
    connect(source, &FormulaSource::sigResult, this, &PaneData::store);
    connect(state, &ChartState::sigBarsChanged, this, [this] {
        m_data.clear();
        m_places.clear();
        gatherOverlays();
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
    gatherOverlays();
    request();
}

void PaneData::gatherOverlays()
{
    m_overlaidBars.clear();
    m_overlaidBars.reserve(m_overlays.size());
    for (const Overlay& overlay : m_overlays)
        m_overlaidBars.push_back(m_state->inPeriod(overlay.bars));
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
    m_places.clear();
    cancel();
    const auto own = static_cast<std::size_t>(m_formulas.size());
    for (std::size_t i = 0; i < wanted.size(); ++i)
        requestOne(wanted[i], i < own ? m_state->bars() : m_overlaidBars[i - own]);
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
    m_places.remove(key);
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
    if (pane.showsPrices)
        standOnAxis(pane);
    placeOverlays(pane);
    if (pane.showsPrices)
        pane.lastPrice = lastPrice();
    if (pane.showsPrices)
        pane.priceLines = m_state->priceLines();
    return pane;
}

/// On a logarithmic axis results are drawn at their places, which are reckoned once for each result.
void PaneData::standOnAxis(chart::PaneContent& pane)
{
    const auto first = static_cast<std::size_t>(m_state->first());
    pane.axis.kind = m_state->axisKind();
    if (m_state->bars() && first < m_state->bars()->close.size())
        pane.axis.reference = m_state->bars()->close[first];
    if (!pane.axis.isLogarithmic()) {
        m_places.clear();
        return;
    }
    for (chart::PaneFormula& formula : pane.formulas) {
        if (formula.overlaid)
            continue;
        auto places = m_places.find(formula.key);
        if (places == m_places.end())
            places = m_places.insert(formula.key, chart::mappedPrices(*formula.records, { pane.axis }));
        formula.records = &places.value();
    }
}

std::optional<chart::LastPrice> PaneData::lastPrice() const
{
    if (!m_state->bars() || m_state->bars()->close.empty())
        return std::nullopt;
    const std::vector<double>& closes = m_state->bars()->close;
    const double before = closes.size() > 1 ? closes[closes.size() - 2] : closes.back();
    return chart::LastPrice { closes.back(), closes.back() >= before };
}

void PaneData::placeOverlays(chart::PaneContent& pane)
{
    const auto overlayOf = [&](const chart::PaneFormula& formula) {
        return std::find_if(m_overlays.begin(), m_overlays.end(), [&](const Overlay& overlay) {
            return TC::getDetailQsKey(overlay.instrument) == formula.key.instrumentKey;
        });
    };
    for (chart::PaneFormula& formula : pane.formulas) {
        const auto overlay = formula.overlaid ? overlayOf(formula) : m_overlays.end();
        formula.ownScale = overlay != m_overlays.end() && overlay->scale == OverlayScale::Own;
        if (overlay != m_overlays.end() && overlay->scale == OverlayScale::Together)
            formula.scale = factorOf(static_cast<std::size_t>(overlay - m_overlays.begin()));
    }
    for (chart::PaneFormula& formula : pane.formulas) {
        if (formula.overlaid && (formula.ownScale || pane.axis.isLogarithmic()))
            placeOverlay(formula, pane);
    }
}

/// The factor that makes an overlaid instrument meet the chart's own at the first shown close.
float PaneData::factorOf(std::size_t overlay) const
{
    const auto bar = static_cast<std::size_t>(m_state->first());
    const engine::BarSeries& other = *m_overlaidBars[overlay];
    if (!m_state->bars() || bar >= other.size() || bar >= m_state->bars()->size())
        return 1.0f;
    const double factor = m_state->bars()->close[bar] / other.close[bar];
    return std::isfinite(factor) && factor > 0.0 ? static_cast<float>(factor) : 1.0f;
}

/// Maps overlaid prices to their places. With a scale of their own these are stretched over the range that
/// the pane would have without them.
void PaneData::placeOverlay(chart::PaneFormula& formula, const chart::PaneContent& pane)
{
    chart::PriceMap map { pane.axis };
    map.offset = map.axis.placeOf(static_cast<double>(formula.scale)) - map.axis.placeOf(1.0);
    if (formula.ownScale) {
        TC::RPCFormulaResultCache places = chart::mappedPrices(*formula.records, { pane.axis });
        chart::PaneContent alone;
        alone.showsPrices = true;
        alone.formulas.push_back({ formula.key, &places });
        const chart::BarView view = m_state->view(1);
        const QPair<double, double> range = chart::visibleRange(pane, view);
        const QPair<double, double> own = chart::visibleRange(alone, view);
        map.factor = (range.first - range.second) / (own.first - own.second);
        map.offset = range.second - own.second * map.factor;
    } else if (!pane.axis.isLogarithmic()) {
        return;
    }
    m_overlayPlaces[formula.key] = chart::mappedPrices(*formula.records, map);
    formula.records = &m_overlayPlaces[formula.key];
    formula.scale = 1.0f;
}

} // namespace client
