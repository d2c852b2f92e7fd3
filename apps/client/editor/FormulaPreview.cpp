// SPDX-License-Identifier: MIT
#include "apps/client/editor/FormulaPreview.h"

#include "apps/chart/ChartMeasures.h"
#include "apps/chart/PanePainter.h"
#include "engine/Formulas.h"
#include "host/TC/Instruments.h"

#include <QPainter>

#include <algorithm>

namespace client {

namespace {

constexpr std::size_t kBarsShown = 120;
constexpr std::size_t kBarsComputed = 500; // so that slow averages have settled where they are shown

const QLatin1String kCandles("KLINE");
const QLatin1String kOwn("preview");

template <typename T>
std::vector<T> tailOf(const std::vector<T>& all, std::size_t count)
{
    return { all.end() - static_cast<std::ptrdiff_t>(std::min(count, all.size())), all.end() };
}

engine::BarSeries lastBars(const engine::BarSeries& bars)
{
    return { tailOf(bars.timeMs, kBarsComputed),
             tailOf(bars.open, kBarsComputed),
             tailOf(bars.high, kBarsComputed),
             tailOf(bars.low, kBarsComputed),
             tailOf(bars.close, kBarsComputed),
             tailOf(bars.volume, kBarsComputed),
             tailOf(bars.amount, kBarsComputed),
             tailOf(bars.openInterest, kBarsComputed),
             bars.floatingShares,
             bars.totalShares,
             bars.periodMinutes,
             bars.index };
}

} // namespace

FormulaPreview::FormulaPreview(QWidget* parent)
    : QWidget(parent)
{
    setMinimumSize(300, 160);
}

void FormulaPreview::setBars(chart::Instrument instrument,
                             const std::shared_ptr<const engine::BarSeries>& bars)
{
    m_instrument = std::move(instrument);
    m_bars = bars && bars->size() > 0 ? std::make_shared<const engine::BarSeries>(lastBars(*bars)) : nullptr;
    compute();
}

void FormulaPreview::setFormula(const std::shared_ptr<const engine::Formula>& formula,
                                const std::vector<double>& parameters)
{
    if (!formula)
        return;
    m_formula = formula;
    m_parameters = parameters;
    compute();
}

void FormulaPreview::compute()
{
    if (!m_formula || !m_instrument || !m_bars) {
        m_job.forget();
        show(0, {});
        return;
    }
    const auto work = [this, bars = m_bars, formula = m_formula, parameters = m_parameters](
                          const std::atomic<bool>& cancelled) -> base::LatestJob::Answer {
        Records computed;
        if (formula->kind() == 1) {
            if (auto candles = engine::computeFormula(kCandles.data(), *bars, {}, &cancelled))
                computed.emplace_back(kCandles, std::move(*candles));
        }
        if (auto records = engine::computeFormula(formula, *bars, parameters, &cancelled))
            computed.emplace_back(kOwn, std::move(*records));
        return [this, kind = formula->kind(), records = std::move(computed)] { show(kind, records); };
    };
    m_job.start(work);
}

void FormulaPreview::show(int kind, Records records)
{
    m_kind = kind;
    m_results.clear();
    for (auto& [name, computed] : records)
        m_results.add({ TC::getDetailQsKey(m_instrument), name }, std::move(computed));
    update();
}

void FormulaPreview::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (!hasPicture()) {
        painter.drawText(rect(), Qt::AlignCenter, tr("打开K线后，这里显示公式的样子"));
        return;
    }
    chart::PaneContent content = m_results.content(m_instrument);
    content.showsPrices = m_kind != 0;
    const int plotWidth = std::max(0, width() - chart::kAxisWidth),
              total = m_bars ? static_cast<int>(m_bars->size()) : 0;
    const chart::BarView view { std::max(0, total - static_cast<int>(kBarsShown)), total - 1, plotWidth };
    chart::paintPane(painter,
                     { QRect(0, 0, plotWidth, height()), QRect(plotWidth, 0, chart::kAxisWidth, height()) },
                     content, view, {});
}

} // namespace client
