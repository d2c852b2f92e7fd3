// SPDX-License-Identifier: MIT
#include "apps/client/chart/PlotWidget.h"

#include "apps/chart/ChartMeasures.h"
#include "apps/chart/PaneScale.h"

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
    connect(state, &ChartState::sigViewChanged, this, &PlotWidget::renew);
    connect(state, &ChartState::sigCrosshairChanged, this, &PlotWidget::moveCrosshair);
}

void PlotWidget::renew()
{
    m_kept = QPixmap();
    followPointer();
    update();
}

void PlotWidget::uiResourceChanged()
{
    WB::CBaseWidget::uiResourceChanged();
    renew();
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

/// Share of the plot's width up to the right edge of a column.
double PlotWidget::placeOf(int column) const
{
    return (column + 1.0) / std::max(1, barView().width);
}

chart::Crosshair PlotWidget::crosshair() const
{
    return { m_state->crosshairBar(), m_pointer ? std::optional<int>(m_pointer->y()) : std::nullopt };
}

void PlotWidget::paintKept()
{
    m_kept = QPixmap(size() * devicePixelRatioF());
    m_kept.setDevicePixelRatio(devicePixelRatioF());
    m_pane = m_content();
    if (m_state->bars())
        m_pane.markedBars = chart::timeGrid(m_state->bars()->timeMs, barView());
    m_range = chart::visibleRange(m_pane, barView());
    QPainter painter(&m_kept);
    painter.setFont(font());
    chart::paintPlot(painter, geometryOfPane(), m_pane, barView(), m_range);
}

void PlotWidget::paintEvent(QPaintEvent*)
{
    if (m_kept.isNull() || !qFuzzyCompare(m_kept.devicePixelRatio(), devicePixelRatioF()))
        paintKept();
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_kept);
    chart::paintCrosshair(painter, geometryOfPane(), m_pane, barView(), m_range, crosshair());
    m_crosshairShown = chart::crosshairRegion(geometryOfPane(), barView(), crosshair());
}

/// Only what the crosshair leaves and takes is painted.
void PlotWidget::moveCrosshair()
{
    update(m_crosshairShown | chart::crosshairRegion(geometryOfPane(), barView(), crosshair()));
}

void PlotWidget::followPointer()
{
    if (m_pointer)
        m_state->setCrosshairBar(barView().barAt(m_pointer->x()), placeOf(m_pointer->x()));
}

void PlotWidget::resizeEvent(QResizeEvent* event)
{
    WB::CBaseWidget::resizeEvent(event);
    renew();
}

void PlotWidget::mouseMoveEvent(QMouseEvent* event)
{
    if (m_dragColumn)
        drag(event->pos().x());
    const bool inPlot = geometryOfPane().plot.contains(event->pos());
    m_pointer = inPlot ? std::optional<QPoint>(event->pos()) : std::nullopt;
    followPointer();
    if (!inPlot)
        m_state->setCrosshairBar(-1);
    moveCrosshair();
}

void PlotWidget::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_dragColumn = event->pos().x();
}

void PlotWidget::mouseReleaseEvent(QMouseEvent*)
{
    m_dragColumn.reset();
}

void PlotWidget::leaveEvent(QEvent*)
{
    m_pointer.reset();
    m_state->setCrosshairBar(-1);
    moveCrosshair();
}

void PlotWidget::wheelEvent(QWheelEvent* event)
{
    const double notches = event->angleDelta().y() / 120.0;
    const int column = static_cast<int>(event->position().x());
    const int bar = barView().barAt(column);
    m_state->zoom(std::pow(kZoomStep, -notches), bar < 0 ? m_state->last() : bar, placeOf(column));
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
