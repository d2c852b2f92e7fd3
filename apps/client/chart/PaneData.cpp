// SPDX-License-Identifier: MIT
#include "apps/client/chart/PaneData.h"

#include "apps/chart/MappedRecords.h"
#include "apps/chart/PaneScale.h"
#include "apps/chart/BarAlignment.h"
#include "apps/client/chart/ResultDifference.h"
#include "host/TC/Instruments.h"

#include <algorithm>
#include <cmath>

namespace client {

namespace {

/// Bars of another instrument on the chart's times.
ChartState::Bars onTimesOf(const ChartState::Bars& own, const ChartState::Bars& other)
{
    return std::make_shared<const engine::BarSeries>(
        chart::alignedTo(own ? own->timeMs : std::vector<std::int64_t>(), *other));
}

/// The ranges of records that others take the place of: those of blocks with the same bars stay.
void followRanges(chart::BlockRanges& ranges, const TC::RPCFormulaResultCache& old,
                  const engine::FormulaRecords& records)
{
    if (!isDescribedAlike(old.meta, records.meta) || !isDescribedAlike(old.result, records.result))
        return ranges.forget();
    ranges.forget([&](int first, int last) { return differ(old.result, records.result, first, last); });
}

} // namespace

PaneData::PaneData(WB::CEventDeliverer* parent, ChartState* state, FormulaSource* source)
    : chart::PaneResults(parent)
    , m_state(state)
    , m_source(source)
{
    connect(source, &FormulaSource::sigResult, this, &PaneData::store);
    connect(state, &ChartState::sigBarsChanged, this, [this] {
        m_data.clear();
        m_places.clear();
        m_ranges.clear();
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
    m_followed.clear(); // what follows an overlaid instrument may have other bars now
    gatherOverlays();
    request();
}

void PaneData::gatherOverlays()
{
    m_overlaidBars.clear();
    m_overlaidBars.reserve(m_overlays.size());
    for (const Overlay& overlay : m_overlays)
        m_overlaidBars.push_back(m_state->inPeriod(onTimesOf(m_state->source(), overlay.bars)));
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
            forget(key);
    }
    cancel();
    for (const TC::CFormulaKey& key : wanted)
        requestOne(key, barsOf(key));
    Q_EMIT sigChanged();
}

ChartState::Bars PaneData::barsOf(const TC::CFormulaKey& key) const
{
    if (key.instrumentKey == TC::getDetailQsKey(m_state->instrument()))
        return m_state->bars();
    for (std::size_t overlay = 0; overlay < m_overlays.size(); ++overlay) {
        if (key.instrumentKey == TC::getDetailQsKey(m_overlays[overlay].instrument))
            return m_overlaidBars[overlay];
    }
    return nullptr;
}

void PaneData::forget(const TC::CFormulaKey& key)
{
    m_data.remove(key);
    m_places.remove(key);
    m_ranges.remove(key);
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
    gatherOverlays();
    const std::vector<TC::CFormulaKey> all = keys();
    for (const TC::CFormulaKey& key : all) {
        // A computation under way is not given up: at each new bar it would begin anew and never end.
        if (m_requests.findKey(key))
            m_due.insert(key);
        else
            growOne(key);
    }
}

void PaneData::growOne(const TC::CFormulaKey& key)
{
    const ChartState::Bars bars = barsOf(key);
    const QString id = bars ? m_source->follow(key.formulaName, bars, m_followed[key]) : QString();
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
    m_places.remove(key);
    followRanges(m_ranges[key], cache, *records);
    cache.meta = records->meta;
    cache.result = records->result;
    TC::embedded::applyColors(recipe, cache.meta);
    colorOverlays();
    if (seen)
        Q_EMIT sigChanged();
    else
        Q_EMIT sigGrownOutOfView();
    if (m_due.erase(key) > 0)
        growOne(key);
}

void PaneData::colorOverlays()
{
    std::vector<TC::CFormulaKey> overlaid;
    overlaid.reserve(m_overlays.size());
    for (const Overlay& overlay : m_overlays)
        overlaid.emplace_back(TC::getDetailQsKey(overlay.instrument), QStringLiteral("KLINE"));
    colorOverlaid(overlaid);
}

chart::PaneContent PaneData::content()
{
    chart::PaneContent pane = PaneResults::content(m_state->instrument(), keys());
    pane.periodSeconds = m_state->period();
    for (chart::PaneFormula& formula : pane.formulas)
        formula.ranges = &m_ranges[formula.key];
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
        auto places = m_places.find(formula.key);
        if (places == m_places.end())
            places = m_places.insert(formula.key, { chart::mappedPrices(*formula.records, pane.axis), {} });
        formula.records = &places->records;
        formula.ranges = &places->ranges;
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
        if (overlay == m_overlays.end())
            continue;
        formula.ownScale = overlay->scale == OverlayScale::Own;
        if (overlay->scale != OverlayScale::Together)
            continue;
        const float factor = factorOf(static_cast<std::size_t>(overlay - m_overlays.begin()));
        if (pane.axis.isLogarithmic())
            formula.offset = pane.axis.placeOf(static_cast<double>(factor));
        else
            formula.scale = factor;
    }
    for (chart::PaneFormula& formula : pane.formulas) {
        if (formula.ownScale)
            stretchOverPane(formula, pane);
    }
}

/// The factor that makes an overlaid instrument meet the chart's own at the first shown close.
float PaneData::factorOf(std::size_t overlay) const
{
    return m_state->bars()
        ? chart::meetingFactor(m_state->bars()->close, m_overlaidBars[overlay]->close, m_state->first())
        : 1.0f;
}

/// An overlaid instrument with a scale of its own is stretched over the range that the pane would have
/// without it.
void PaneData::stretchOverPane(chart::PaneFormula& formula, const chart::PaneContent& pane) const
{
    chart::PaneContent alone;
    alone.showsPrices = true;
    alone.formulas.push_back(formula);
    alone.formulas.front().ownScale = false;
    const chart::BarView view = m_state->view(1);
    const QPair<double, double> range = chart::visibleRange(pane, view);
    const QPair<double, double> own = chart::visibleRange(alone, view);
    const double factor = (range.first - range.second) / (own.first - own.second);
    if (!(factor > 0.0) || !std::isfinite(factor))
        return;
    formula.factor = factor;
    formula.offset = range.second - own.second * factor;
}

} // namespace client
