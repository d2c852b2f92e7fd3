// SPDX-License-Identifier: MIT
#pragma once
/// @file What all panes of a chart share: the bars, the shown run of them, the crosshair.

#include "engine/series/BarSeries.h"
#include "host/TC/Periods.h"

#include <QObject>

#include <memory>

namespace ttservice {
class CInstrumentDetail;
}

namespace client {

/// Model of one chart. GUI thread only.
class ChartState : public QObject
{
    Q_OBJECT

public:
    using Bars = std::shared_ptr<const engine::BarSeries>;
    using Instrument = std::shared_ptr<ttservice::CInstrumentDetail>;

    explicit ChartState(QObject* parent = nullptr);

    /// Replaces what is shown; the newest bars come into view.
    void setBars(const Instrument& instrument, const Bars& bars);

    const Instrument& instrument() const { return m_instrument; }
    const Bars& bars() const { return m_bars; }
    /// Period of the bars, told by their distance.
    TC::EFormulaPeriod period() const { return m_period; }
    int barTotal() const { return m_bars ? static_cast<int>(m_bars->size()) : 0; }

    /// Shown bars, both inclusive; last() is -1 when there are none.
    int first() const { return m_first; }
    int last() const { return m_last; }

    /// Bar under the crosshair; -1 without one.
    int crosshairBar() const { return m_crosshairBar; }
    void setCrosshairBar(int bar);

    /// Shows fewer (factor below 1) or more bars; the bar at `anchor` keeps its place.
    void zoom(double factor, int anchor);
    /// Moves the shown run by whole bars, as far as there are bars.
    void pan(int bars);
    void showFirst();
    void showLast();
    /// Shows the given run, limited to the bars that exist.
    void show(int first, int last);

Q_SIGNALS:
    void sigBarsChanged();
    void sigViewChanged();
    void sigCrosshairChanged();

private:
    Instrument m_instrument;
    Bars m_bars;
    TC::EFormulaPeriod m_period = TC::EFormulaPeriod_Day;
    int m_first = 0, m_last = -1;
    int m_crosshairBar = -1;
};

} // namespace client
