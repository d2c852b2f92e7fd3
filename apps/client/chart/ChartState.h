// SPDX-License-Identifier: MIT
#pragma once
/// @file What all panes of a chart share: the bars, the shown run of them, the crosshair.

#include "apps/chart/BarView.h"
#include "apps/chart/ValueAxis.h"
#include "engine/series/BarSeries.h"
#include "host/TC/Periods.h"

#include <QMap>
#include <QObject>
#include <QPair>
#include <QVector>

#include <memory>
#include <optional>

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
    /// @param bars  as their source has them; they are shown in the chosen period.
    void setBars(const Instrument& instrument, const Bars& bars);
    /// Chooses the period that bars are gathered into. As many bars as before are shown, up to the same time.
    /// @param key  of chart::offeredPeriods(); empty: as the source has them. Bars that are not shorter than
    ///        the period stay as they are.
    void setPeriod(const QString& key);

    /// Takes the bars that were set before, the last one perhaps changed and more behind it. Where the newest
    /// bar was in view it stays so; what else is in view stays.
    void growBars(const Bars& bars);

    const Instrument& instrument() const { return m_instrument; }
    /// The shown bars.
    const Bars& bars() const { return m_bars; }
    /// The bars before they were gathered into the chosen period.
    const Bars& source() const { return m_source; }
    /// Other bars of the source's times, gathered as the shown bars are.
    Bars inPeriod(const Bars& bars) const;
    const QString& chosenPeriod() const { return m_periodKey; }
    /// Period of the shown bars; where none was chosen, told by their distance.
    TC::EFormulaPeriod period() const { return m_period; }
    int barTotal() const { return m_bars ? static_cast<int>(m_bars->size()) : 0; }

    /// Shown bars, both inclusive; last() is -1 when there are none.
    int first() const { return m_first; }
    int last() const;
    /// How the shown bars lie in a plot of some width: empty slots stay free at its right.
    chart::BarView view(int plotWidth) const;

    /// Empty slots that stay free right of the newest bar; 0 at first.
    int margin() const { return m_margin; }
    void setMargin(int slots);

    /// Bar under the crosshair; -1 without one.
    int crosshairBar() const { return m_crosshairBar; }
    /// @param place  where in the plot the pointer stands on the bar, as zoom's; 0: in its middle.
    void setCrosshairBar(int bar, double place = 0.0);
    /// Moves the crosshair by bars and keeps it in view; without one it appears on the last bar in view.
    void stepCrosshair(int bars);

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
    /// Shows the given run, limited to the bars that exist; with the newest bar its margin as well.
    void show(int first, int last);
    /// Brings a bar into the middle, as far as there are bars on both sides of it.
    void centre(int bar);

    /// How the prices of the main pane stand on its axis.
    chart::AxisKind axisKind() const { return m_axisKind; }
    void setAxisKind(chart::AxisKind kind);

    /// Whether the crosshair stands on the close of its bar wherever prices are shown.
    bool isMagnetic() const { return m_isMagnetic; }
    void setMagnetic(bool on);

    /// The bars that are measured, in the order in which they were chosen, both inclusive; none without a
    /// measure.
    const std::optional<QPair<int, int>>& measuredBars() const { return m_measuredBars; }
    /// @param pane  that knows the values; the others show the bars alone.
    void setMeasured(const QObject* pane, const QPair<int, int>& bars);
    void forgetMeasured();

    /// Horizontal lines of the user's own over the shown instrument: prices, lowest first.
    std::vector<double> priceLines() const;
    /// Adds a line; one that is there already stays alone.
    void addPriceLine(double price);
    void removePriceLine(double price);
    void movePriceLine(double from, double to);
    void clearPriceLines();
    /// The lines of every instrument, by its key.
    const QMap<QString, QVector<double>>& allPriceLines() const { return m_priceLines; }
    void setAllPriceLines(const QMap<QString, QVector<double>>& lines);

Q_SIGNALS:
    void sigBarsChanged();
    /// The last bar has changed, or more have come.
    void sigBarsGrown();
    void sigViewChanged();
    void sigCrosshairChanged();
    /// @param pane  that is measured in; null when the measure is forgotten.
    void sigMeasureChanged(const QObject* pane);
    /// The axis of the prices, or what is drawn on it, has changed.
    void sigAxisChanged();

private:
    void gather();
    int zoomedSlots(double factor) const;
    /// Shows slots, limited to the bars that exist and the margin.
    void place(int first, int slotCount);

    Instrument m_instrument;
    Bars m_source, m_bars;
    QString m_periodKey;
    TC::EFormulaPeriod m_period = TC::EFormulaPeriod_Day;
    int m_first = 0, m_slots = 0; ///< first slot's bar, and how many slots the plots have
    int m_margin = 0;
    chart::AxisKind m_axisKind = chart::AxisKind::Linear;
    bool m_isMagnetic = false;
    std::optional<QPair<int, int>> m_measuredBars;
    QMap<QString, QVector<double>> m_priceLines;
    int m_crosshairBar = -1;
    double m_crosshairPlace = 0.0;
};

} // namespace client
