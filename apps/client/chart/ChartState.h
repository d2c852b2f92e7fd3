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

    /// Takes the bars that were set before, the last one perhaps changed and more behind it. Where the newest
    /// bar was in view it stays so; what else is in view stays.
    void growBars(const Bars& bars);

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
    /// @param place  where in the plot the pointer stands on the bar, as zoom's; 0: in its middle.
    void setCrosshairBar(int bar, double place = 0.0);

    /// Shows fewer (factor below 1) or more bars.
    /// @param anchor  this bar keeps its place, as far as there are bars on both sides of it.
    /// @param place  share of the plot's width that lies left of the place's right edge, above 0 and at most
    ///        1; 0: the middle of the bar.
    void zoom(double factor, int anchor, double place = 0.0);
    /// The same around the bar under the crosshair; without one the last bar stays at the right.
    void zoomAtCrosshair(double factor);
    /// Moves the shown run by whole bars, as far as there are bars.
    void pan(int bars);
    void showFirst();
    void showLast();
    /// Shows the given run, limited to the bars that exist.
    void show(int first, int last);

Q_SIGNALS:
    void sigBarsChanged();
    /// The last bar has changed, or more have come.
    void sigBarsGrown();
    void sigViewChanged();
    void sigCrosshairChanged();

private:
    Instrument m_instrument;
    Bars m_bars;
    TC::EFormulaPeriod m_period = TC::EFormulaPeriod_Day;
    int m_first = 0, m_last = -1;
    int m_crosshairBar = -1;
    double m_crosshairPlace = 0.0;
};

} // namespace client
