// SPDX-License-Identifier: MIT
#pragma once
/// @file The drawing area of one pane: formulas, value axis, crosshair, mouse and wheel.

#include "apps/chart/PaneContent.h"
#include "apps/chart/PanePainter.h"
#include "apps/client/chart/ChartState.h"

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

    /// The content has changed: it is asked for and painted anew.
    void renew();

    void uiResourceChanged() override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    chart::PaneGeometry geometryOfPane() const;
    chart::BarView barView() const;
    double placeOf(int column) const;
    chart::Crosshair crosshair() const;
    void paintKept();
    /// Puts the crosshair under the pointer, where it now stands over the bars.
    void followPointer();
    void moveCrosshair();
    void drag(int column);

    ChartState* m_state;
    Content m_content;
    QPixmap m_kept;                ///< the painted plot; null when it is to be painted anew
    chart::PaneContent m_pane;     ///< what m_kept shows; its records may be gone
    QPair<double, double> m_range; ///< of m_kept
    QRegion m_crosshairShown;
    std::optional<QPoint> m_pointer; ///< in the plot
    std::optional<int> m_dragColumn; ///< column under the pointer when the shown run last moved
};

} // namespace client
