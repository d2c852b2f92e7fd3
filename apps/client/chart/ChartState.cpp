// SPDX-License-Identifier: MIT
#include "apps/client/chart/ChartState.h"

#include "apps/chart/BarPeriod.h"
#include "apps/chart/LongerBars.h"
#include "host/TC/Instruments.h"

#include <algorithm>
#include <cmath>

namespace client {

namespace {

constexpr int kUsualCount = 250;
constexpr int kLeastCount = 10;

} // namespace

ChartState::ChartState(QObject* parent)
    : QObject(parent)
{
}

void ChartState::setBars(const Instrument& instrument, const Bars& bars)
{
    m_instrument = instrument;
    m_source = bars;
    gather();
    forgetMeasured();
    m_crosshairBar = -1;
    m_slots = std::min(kUsualCount, barTotal()) + m_margin;
    m_first = std::max(0, barTotal() - kUsualCount);
    Q_EMIT sigBarsChanged();
    Q_EMIT sigViewChanged();
}

void ChartState::setPeriod(const QString& key)
{
    if (key == m_periodKey)
        return;
    const bool wasNewest = last() == barTotal() - 1;
    const std::int64_t until = barTotal() > 0 ? m_bars->timeMs[static_cast<std::size_t>(last())] : 0;
    const int slotCount = m_slots;
    m_periodKey = key;
    gather();
    forgetMeasured();
    m_crosshairBar = -1;
    if (barTotal() > 0 && !wasNewest) {
        const auto& times = m_bars->timeMs;
        const auto right = std::lower_bound(times.begin(), times.end(), until) - times.begin();
        m_first = std::min(static_cast<int>(right), barTotal() - 1) - slotCount + 1;
    } else {
        m_first = barTotal();
    }
    m_slots = std::min(slotCount, barTotal() + m_margin);
    m_first = std::clamp(m_first, 0, barTotal() + m_margin - m_slots);
    Q_EMIT sigBarsChanged();
    Q_EMIT sigViewChanged();
}

void ChartState::gather()
{
    m_bars = inPeriod(m_source);
    const chart::OfferedPeriod* chosen = chart::offeredPeriod(m_periodKey);
    m_period = chosen && m_bars != m_source
        ? chosen->period
        : chart::barPeriod(m_bars ? m_bars->timeMs : std::vector<std::int64_t>());
}

ChartState::Bars ChartState::inPeriod(const Bars& bars) const
{
    const chart::OfferedPeriod* chosen = chart::offeredPeriod(m_periodKey);
    if (!bars || !chosen)
        return bars;
    std::optional<engine::BarSeries> longer = chart::longerBars(*bars, *chosen);
    return longer ? std::make_shared<const engine::BarSeries>(std::move(*longer)) : bars;
}

int ChartState::last() const
{
    return std::min(m_first + m_slots, barTotal()) - 1;
}

chart::BarView ChartState::view(int plotWidth) const
{
    const double share = m_slots > 0 ? (last() - m_first + 1.0) / m_slots : 1.0;
    return { m_first, last(), static_cast<int>(std::lround(plotWidth * share)) };
}

void ChartState::setMargin(int slotCount)
{
    const bool wasNewest = last() == barTotal() - 1;
    m_margin = std::max(0, slotCount);
    if (wasNewest && barTotal() > 0)
        show(m_first, last());
}

void ChartState::growBars(const Bars& bars)
{
    const int before = barTotal();
    if (before == 0)
        return setBars(m_instrument, bars);
    const bool wasNewest = last() == before - 1;
    m_source = bars;
    gather();
    Q_EMIT sigBarsGrown();
    if (wasNewest && barTotal() > before) {
        const int count = std::max(m_slots - m_margin, std::min(kUsualCount, barTotal()));
        show(barTotal() - count, barTotal() - 1);
    }
}

void ChartState::setCrosshairBar(int bar, double place)
{
    m_crosshairPlace = place;
    const int limited = bar < 0 || bar >= barTotal() ? -1 : bar;
    if (limited == m_crosshairBar)
        return;
    m_crosshairBar = limited;
    Q_EMIT sigCrosshairChanged();
}

void ChartState::setAxisKind(chart::AxisKind kind)
{
    if (kind == m_axisKind)
        return;
    m_axisKind = kind;
    Q_EMIT sigAxisChanged();
}

void ChartState::setMagnetic(bool on)
{
    m_isMagnetic = on;
    Q_EMIT sigCrosshairChanged();
}

void ChartState::setMeasured(const QObject* pane, const QPair<int, int>& bars)
{
    m_measuredBars = bars;
    Q_EMIT sigMeasureChanged(pane);
}

void ChartState::forgetMeasured()
{
    if (!m_measuredBars)
        return;
    m_measuredBars.reset();
    Q_EMIT sigMeasureChanged(nullptr);
}

std::vector<double> ChartState::priceLines() const
{
    const QVector<double> lines = m_priceLines.value(TC::getDetailQsKey(m_instrument));
    return { lines.begin(), lines.end() };
}

void ChartState::addPriceLine(double price)
{
    QVector<double>& lines = m_priceLines[TC::getDetailQsKey(m_instrument)];
    if (!std::isfinite(price) || lines.contains(price))
        return;
    lines.insert(std::lower_bound(lines.begin(), lines.end(), price), price);
    Q_EMIT sigAxisChanged();
}

void ChartState::removePriceLine(double price)
{
    const QString key = TC::getDetailQsKey(m_instrument);
    m_priceLines[key].removeOne(price);
    if (m_priceLines[key].isEmpty())
        m_priceLines.remove(key);
    Q_EMIT sigAxisChanged();
}

void ChartState::movePriceLine(double from, double to)
{
    m_priceLines[TC::getDetailQsKey(m_instrument)].removeOne(from);
    addPriceLine(to);
}

void ChartState::clearPriceLines()
{
    m_priceLines.remove(TC::getDetailQsKey(m_instrument));
    Q_EMIT sigAxisChanged();
}

void ChartState::setAllPriceLines(const QMap<QString, QVector<double>>& lines)
{
    m_priceLines = lines;
    for (QVector<double>& prices : m_priceLines)
        std::sort(prices.begin(), prices.end());
    Q_EMIT sigAxisChanged();
}

void ChartState::zoomAtCrosshair(double factor)
{
    if (m_crosshairBar >= 0)
        zoom(factor, m_crosshairBar, m_crosshairPlace);
    else
        place(m_first + m_slots - zoomedSlots(factor), zoomedSlots(factor));
}

int ChartState::zoomedSlots(double factor) const
{
    const double wanted = factor < 1.0 ? std::floor(m_slots * factor) : std::ceil(m_slots * factor);
    return static_cast<int>(
        std::clamp<double>(wanted, std::min(kLeastCount, barTotal()), barTotal() + m_margin));
}

void ChartState::stepCrosshair(int bars)
{
    if (barTotal() == 0)
        return;
    const bool hasOne = m_crosshairBar >= m_first && m_crosshairBar <= last();
    const int bar = hasOne ? std::clamp(m_crosshairBar + bars, 0, barTotal() - 1) : last();
    setCrosshairBar(bar); // first: a resting pointer gives it up
    if (bar < m_first)
        pan(bar - m_first);
    else if (bar > last())
        pan(bar - last());
}

void ChartState::zoom(double factor, int anchor, double place)
{
    if (barTotal() < 1 || m_slots < 1)
        return;
    const int newSlots = zoomedSlots(factor);
    const int shown = std::clamp(anchor, m_first, last());
    if (place <= 0.0)
        place = (shown - m_first + 0.5) / m_slots;
    // The bar whose slot holds the place: the last one that begins left of the place's right edge.
    const int slot = static_cast<int>(std::ceil(std::min(place, 1.0) * newSlots)) - 1;
    this->place(shown - slot, newSlots);
}

void ChartState::pan(int bars)
{
    place(m_first + std::clamp(bars, -barTotal(), barTotal()), m_slots);
}

void ChartState::showFirst()
{
    pan(-barTotal());
}

void ChartState::showLast()
{
    pan(barTotal());
}

void ChartState::show(int first, int last)
{
    first = std::clamp(first, 0, std::max(0, barTotal() - 1));
    last = std::clamp(last, first - 1, barTotal() - 1);
    place(first, last - first + 1 + (last >= 0 && last == barTotal() - 1 ? m_margin : 0));
}

void ChartState::centre(int bar)
{
    place(std::clamp(bar, 0, std::max(0, barTotal() - 1)) - m_slots / 2, m_slots);
}

void ChartState::place(int first, int slotCount)
{
    slotCount = std::clamp(slotCount, 0, barTotal() + m_margin);
    first = std::clamp(first, 0, std::max(0, barTotal() + m_margin - slotCount));
    first = std::min(first, std::max(0, barTotal() - 1));
    if (first == m_first && slotCount == m_slots)
        return;
    m_first = first;
    m_slots = slotCount;
    Q_EMIT sigViewChanged();
}

} // namespace client
