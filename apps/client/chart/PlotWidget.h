// SPDX-License-Identifier: MIT
#pragma once
/// @file The drawing area of one pane: formulas, value axis, crosshair, mouse and wheel.

#include "apps/chart/PaneContent.h"
#include "apps/chart/PanePainter.h"
#include "apps/client/chart/ChartState.h"

#include "host/WB/CBaseWidget.h"

#include <functional>
#include <optional>

namespace client {

/// Shows one pane of the chart. The content is asked for at each paint.
class PlotWidget : public WB::CBaseWidget
{
    Q_OBJECT

public:
    using Content = std::function<chart::PaneContent()>;

    PlotWidget(ChartState* state, Content content, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    chart::PaneGeometry geometryOfPane() const;
    chart::BarView barView() const;
    void drag(int column);

    ChartState* m_state;
    Content m_content;
    std::optional<int> m_pointerRow;
    std::optional<int> m_dragColumn; ///< column under the pointer when the shown run last moved
};

} // namespace client
