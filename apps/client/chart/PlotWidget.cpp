// SPDX-License-Identifier: MIT
#include "apps/client/chart/PlotWidget.h"

#include "apps/chart/ChartMeasures.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <cmath>

namespace client {

namespace {

constexpr double kZoomStep = 1.2; // bars shown after one notch of the wheel, as a factor

} // namespace

PlotWidget::PlotWidget(ChartState* state, Content content, QWidget* parent)
    : WB::CBaseWidget(QStringLiteral("index_plot_widget"), true, parent)
    , m_state(state)
    , m_content(std::move(content))
{
    setMouseTracking(true);
    setMinimumHeight(40);
    connect(state, &ChartState::sigViewChanged, this, [this] { update(); });
    connect(state, &ChartState::sigCrosshairChanged, this, [this] { update(); });
}

chart::PaneGeometry PlotWidget::geometryOfPane() const
{
    const int plotWidth = std::max(0, width() - chart::kAxisWidth);
    return { QRect(0, 0, plotWidth, height()), QRect(plotWidth, 0, chart::kAxisWidth, height()) };
}

chart::BarView PlotWidget::barView() const
{
    return { m_state->first(), m_state->last(), geometryOfPane().plot.width() };
}

void PlotWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    chart::paintPane(painter, geometryOfPane(), m_content(), barView(),
                     { m_state->crosshairBar(), m_pointerRow });
}

void PlotWidget::mouseMoveEvent(QMouseEvent* event)
{
    if (m_dragColumn)
        drag(event->x());
    const bool inPlot = geometryOfPane().plot.contains(event->pos());
    m_pointerRow = inPlot ? std::optional<int>(event->y()) : std::nullopt;
    m_state->setCrosshairBar(inPlot ? barView().barAt(event->x()) : -1);
    update();
}

void PlotWidget::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_dragColumn = event->x();
}

void PlotWidget::mouseReleaseEvent(QMouseEvent*)
{
    m_dragColumn.reset();
}

void PlotWidget::leaveEvent(QEvent*)
{
    m_pointerRow.reset();
    m_state->setCrosshairBar(-1);
    update();
}

void PlotWidget::wheelEvent(QWheelEvent* event)
{
    const double notches = event->angleDelta().y() / 120.0;
    const int bar = barView().barAt(static_cast<int>(event->position().x()));
    m_state->zoom(std::pow(kZoomStep, -notches), bar < 0 ? m_state->last() : bar);
    event->accept();
}

void PlotWidget::drag(int column)
{
    const double slot = barView().slotWidth();
    if (slot <= 0.0)
        return;
    const int bars = static_cast<int>((column - *m_dragColumn) / slot);
    if (bars == 0)
        return;
    m_state->pan(-bars);
    m_dragColumn = *m_dragColumn + static_cast<int>(std::lround(bars * slot));
}

} // namespace client
