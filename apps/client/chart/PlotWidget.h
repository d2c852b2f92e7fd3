// SPDX-License-Identifier: MIT
#pragma once
/// @file The drawing area of one pane: formulas, value axis, crosshair, mouse and wheel.

#include "apps/chart/PaneContent.h"
#include "apps/chart/PanePainter.h"
#include "apps/client/chart/ChartState.h"
#include "apps/client/chart/Measure.h"

#include "host/WB/CBaseWidget.h"

#include <QPixmap>

#include <functional>
#include <optional>

namespace client {

/// Shows one pane of the chart. Its plot is painted once and kept; the crosshair is painted over it.
class PlotWidget : public WB::CBaseWidget
{
    Q_OBJECT

public:
    using Content = std::function<chart::PaneContent()>;

    /// @param content  asked for whenever the plot is painted anew.
    PlotWidget(ChartState* state, Content content, QWidget* parent);

    /// Paints plot, axis and crosshair at once on another surface.
    void paintOn(QPainter& painter);

    /// The price of a row, whole ticks; none where the pane shows no prices.
    std::optional<double> priceAt(int row) const;
    /// The user's own price line under a row, if any.
    std::optional<double> priceLineAt(int row) const;
    /// What a drag with Shift measured last in this pane.
    const std::optional<Measure>& measure() const { return m_measure; }
    /// Forgets what was measured in any pane.
    void forgetMeasure();

    /// What the plot shows now.
    chart::PaneContent content() const { return m_content(); }
    const ChartState* state() const { return m_state; }

    /// The content has changed: it is asked for and painted anew.
    void renew();

    /// Factor on the range that the axis would have by itself: above 1 it shows more values. A drag on the
    /// axis changes it, a double click there makes it 1 again.
    double stretch() const { return m_stretch; }
    void setStretch(double factor);

    /// Row of the plot on which the crosshair stands while the pointer is in it: the pointer's, or the close
    /// of its bar where the crosshair is magnetic.
    std::optional<int> crosshairRow() const;

    void uiResourceChanged() override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    chart::PaneGeometry geometryOfPane() const;
    chart::BarView barView() const;
    double placeOf(int column) const;
    std::optional<double> magnet() const;
    chart::Crosshair crosshair() const;
    void paintPlot(QPainter& painter);
    void paintKept();
    /// Puts the crosshair under the pointer, where it now stands over the bars.
    void followPointer();
    void moveCrosshair();
    void drag(int column);
    void dragAxis(int row);
    void dragPriceLine(int row);
    MeasuredPlace placeAt(const QPoint& pixel) const;
    QPoint pixelOf(const MeasuredPlace& place) const;
    void measureTo(const QPoint& pixel);
    void followMeasure(const QObject* pane);
    void paintMeasured(QPainter& painter) const;
    void showCursor(const QPoint& place);

    ChartState* m_state;
    Content m_content;
    QPixmap m_kept;                ///< the painted plot; null when it is to be painted anew
    chart::PaneContent m_pane;     ///< what m_kept shows; its records may be gone
    QPair<double, double> m_range; ///< of m_kept
    double m_stretch = 1.0;
    QRegion m_crosshairShown;
    std::optional<QPoint> m_pointer; ///< in the plot
    std::optional<Measure> m_measure;
    bool m_isMeasuring = false;
    std::optional<double> m_dragLine; ///< price of the line under the button
    std::optional<int> m_dragRow;     ///< row under the pointer when the axis last moved
    std::optional<int> m_dragColumn;  ///< column under the pointer when the shown run last moved
};

} // namespace client
