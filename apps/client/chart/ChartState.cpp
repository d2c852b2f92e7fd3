// SPDX-License-Identifier: MIT
#include "apps/client/chart/ChartState.h"

#include "apps/chart/BarPeriod.h"

#include <algorithm>
#include <cmath>

namespace client {

namespace {

constexpr int kUsualCount = 250;
constexpr int kLeastCount = 10;
constexpr int kTellingCount = 100; // bars whose distances tell the period for good

} // namespace

ChartState::ChartState(QObject* parent)
    : QObject(parent)
{
}

void ChartState::setBars(const Instrument& instrument, const Bars& bars)
{
    m_instrument = instrument;
    m_bars = bars;
    m_period = chart::barPeriod(bars ? bars->timeMs : std::vector<std::int64_t>());
    m_crosshairBar = -1;
    m_first = std::max(0, barTotal() - kUsualCount);
    m_last = barTotal() - 1;
    Q_EMIT sigBarsChanged();
    Q_EMIT sigViewChanged();
}

void ChartState::growBars(const Bars& bars)
{
    const int before = barTotal();
    if (before == 0)
        return setBars(m_instrument, bars);
    const bool wasNewest = m_last == before - 1;
    m_bars = bars;
    if (before < kTellingCount)
        m_period = chart::barPeriod(bars->timeMs);
    Q_EMIT sigBarsGrown();
    if (wasNewest && barTotal() > before) {
        const int count = std::max(m_last - m_first + 1, std::min(kUsualCount, barTotal()));
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

void ChartState::zoomAtCrosshair(double factor)
{
    if (m_crosshairBar >= 0)
        zoom(factor, m_crosshairBar, m_crosshairPlace);
    else
        zoom(factor, m_last, 1.0);
}

void ChartState::zoom(double factor, int anchor, double place)
{
    const int count = m_last - m_first + 1;
    if (count < 1)
        return;
    const double wanted = factor < 1.0 ? std::floor(count * factor) : std::ceil(count * factor);
    const int newCount =
        static_cast<int>(std::clamp<double>(wanted, std::min(kLeastCount, barTotal()), barTotal()));
    const int shown = std::clamp(anchor, m_first, m_last);
    if (place <= 0.0)
        place = (shown - m_first + 0.5) / count;
    // The bar whose slot holds the place: the last one that begins left of the place's right edge.
    const int slot = static_cast<int>(std::ceil(std::min(place, 1.0) * newCount)) - 1;
    const int first = std::clamp(shown - slot, 0, barTotal() - newCount);
    show(first, first + newCount - 1);
}

void ChartState::pan(int bars)
{
    const int count = m_last - m_first + 1;
    const int first = std::clamp(m_first + bars, 0, std::max(0, barTotal() - count));
    show(first, first + count - 1);
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
    if (first == m_first && last == m_last)
        return;
    m_first = first;
    m_last = last;
    Q_EMIT sigViewChanged();
}

} // namespace client
