// SPDX-License-Identifier: MIT
#include "apps/client/chart/PlotWidget.h"

#include "apps/chart/ChartMeasures.h"
#include "apps/chart/PaneScale.h"
#include "apps/client/access/Announcement.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <cmath>

namespace client {

namespace {

constexpr int kGrip = 3;          // rows beside a price line on which it can be taken
constexpr double kAxisDrag = 6.0; // range after a drag over the whole axis, as a factor
constexpr double kMostStretch = 20.0;
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
    connect(state, &ChartState::sigAxisChanged, this, &PlotWidget::renew);
    connect(state, &ChartState::sigMeasureChanged, this, &PlotWidget::followMeasure);
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
    return m_state->view(geometryOfPane().plot.width());
}

/// Share of the plot's width up to the right edge of a column.
double PlotWidget::placeOf(int column) const
{
    return (column + 1.0) / std::max(1, geometryOfPane().plot.width());
}

/// The close that a magnetic crosshair stands on; none where it follows the pointer.
std::optional<double> PlotWidget::magnet() const
{
    const int bar = m_state->crosshairBar();
    if (!m_state->isMagnetic() || !m_pane.showsPrices || bar < 0 || !m_state->bars()
        || bar >= static_cast<int>(m_state->bars()->close.size()))
        return std::nullopt;
    const double close = m_state->bars()->close[static_cast<std::size_t>(bar)];
    return std::isnan(m_pane.axis.placeOf(close)) ? std::nullopt : std::optional(close);
}

std::optional<int> PlotWidget::crosshairRow() const
{
    if (!m_pointer)
        return std::nullopt;
    const std::optional<double> close = magnet();
    return close ? chart::rowOf(m_pane.axis.placeOf(*close), m_range, geometryOfPane().plot.height())
                 : m_pointer->y();
}

chart::Crosshair PlotWidget::crosshair() const
{
    return { m_state->crosshairBar(), crosshairRow(), magnet() };
}

void PlotWidget::paintPlot(QPainter& painter)
{
    m_pane = m_content();
    if (m_state->bars())
        m_pane.markedBars = chart::timeGrid(m_state->bars()->timeMs, barView());
    m_range =
        chart::stretched(chart::visibleRange(m_pane, barView()), m_stretch, chart::standsOnZero(m_pane));
    painter.setFont(font());
    chart::paintPlot(painter, geometryOfPane(), m_pane, barView(), m_range);
}

void PlotWidget::paintOn(QPainter& painter)
{
    paintPlot(painter);
    paintMeasured(painter);
    chart::paintCrosshair(painter, geometryOfPane(), m_pane, barView(), m_range, crosshair());
}

void PlotWidget::paintKept()
{
    m_kept = QPixmap(size() * devicePixelRatioF());
    m_kept.setDevicePixelRatio(devicePixelRatioF());
    QPainter painter(&m_kept);
    paintPlot(painter);
}

void PlotWidget::paintEvent(QPaintEvent*)
{
    if (m_kept.isNull() || !qFuzzyCompare(m_kept.devicePixelRatio(), devicePixelRatioF()))
        paintKept();
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_kept);
    paintMeasured(painter);
    chart::paintCrosshair(painter, geometryOfPane(), m_pane, barView(), m_range, crosshair());
    m_crosshairShown = chart::crosshairRegion(geometryOfPane(), barView(), crosshair());
}

/// Only what the crosshair leaves and takes is painted. A pointer that rests gives the crosshair up when keys
/// move it.
void PlotWidget::moveCrosshair()
{
    if (m_pointer && barView().barAt(m_pointer->x()) != m_state->crosshairBar())
        m_pointer.reset();
    update(m_crosshairShown | chart::crosshairRegion(geometryOfPane(), barView(), crosshair()));
    announceValues(this);
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
    if (m_isMeasuring)
        measureTo(event->pos());
    if (m_dragLine)
        dragPriceLine(event->pos().y());
    if (m_dragRow)
        return dragAxis(event->pos().y());
    if (m_dragColumn)
        drag(event->pos().x());
    showCursor(event->pos());
    const bool inPlot = geometryOfPane().plot.contains(event->pos());
    m_pointer = inPlot ? std::optional<QPoint>(event->pos()) : std::nullopt;
    followPointer();
    if (!inPlot)
        m_state->setCrosshairBar(-1);
    moveCrosshair();
}

void PlotWidget::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    forgetMeasure();
    if (geometryOfPane().axis.contains(event->pos())) {
        m_dragRow = event->pos().y();
    } else if (event->modifiers() & Qt::ShiftModifier) {
        m_measure = Measure { placeAt(event->pos()), {} };
        m_isMeasuring = true;
        measureTo(event->pos());
    } else if (const std::optional<double> line = priceLineAt(event->pos().y())) {
        m_dragLine = line;
    } else
        m_dragColumn = event->pos().x();
}

/// On the axis: its own range again.
void PlotWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && geometryOfPane().axis.contains(event->pos()))
        setStretch(1.0);
}

void PlotWidget::mouseReleaseEvent(QMouseEvent*)
{
    m_dragColumn.reset();
    m_dragRow.reset();
    m_dragLine.reset();
    m_isMeasuring = false;
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

/// A drag over the whole axis makes the range as many times as large as kAxisDrag says.
void PlotWidget::dragAxis(int row)
{
    setStretch(m_stretch * std::pow(kAxisDrag, (row - *m_dragRow) / std::max(1.0, 1.0 * height())));
    m_dragRow = row;
}

void PlotWidget::setStretch(double factor)
{
    const double limited = std::isfinite(factor) ? std::clamp(factor, 1.0 / kMostStretch, kMostStretch) : 1.0;
    if (limited == m_stretch)
        return;
    m_stretch = limited;
    renew();
}

/// The pointer says where the axis can be dragged.
void PlotWidget::showCursor(const QPoint& place)
{
    const bool isGrip = geometryOfPane().axis.contains(place) || priceLineAt(place.y());
    setCursor(isGrip ? Qt::SizeVerCursor : Qt::ArrowCursor);
}

std::optional<double> PlotWidget::priceAt(int row) const
{
    const int height = geometryOfPane().plot.height();
    const double price = m_pane.axis.valueAt(chart::valueAt(row, m_range, height));
    if (!m_pane.showsPrices || m_pane.formulas.empty() || !std::isfinite(price) || !(m_pane.priceTick > 0.0))
        return std::nullopt;
    return std::round(price / m_pane.priceTick) * m_pane.priceTick;
}

std::optional<double> PlotWidget::priceLineAt(int row) const
{
    for (double price : m_pane.priceLines) {
        const int line = chart::rowOf(m_pane.axis.placeOf(price), m_range, geometryOfPane().plot.height());
        if (std::abs(line - row) <= kGrip)
            return price;
    }
    return std::nullopt;
}

void PlotWidget::dragPriceLine(int row)
{
    const std::optional<double> price = priceAt(row);
    if (!price || *price == *m_dragLine)
        return;
    m_state->movePriceLine(*m_dragLine, *price);
    m_dragLine = price;
}

void PlotWidget::measureTo(const QPoint& pixel)
{
    m_measure->to = placeAt(pixel);
    m_state->setMeasured(this, { m_measure->from.bar, m_measure->to.bar });
}

/// There is one measure on the page, whose bars every pane shows.
void PlotWidget::followMeasure(const QObject* pane)
{
    if (pane != this) {
        m_measure.reset();
        m_isMeasuring = false;
    }
    update();
}

void PlotWidget::forgetMeasure()
{
    m_state->forgetMeasured();
}

MeasuredPlace PlotWidget::placeAt(const QPoint& pixel) const
{
    const int height = geometryOfPane().plot.height();
    return { barView().barAt(pixel.x()),
             m_pane.axis.valueAt(chart::valueAt(std::clamp(pixel.y(), 0, height - 1), m_range, height)) };
}

QPoint PlotWidget::pixelOf(const MeasuredPlace& place) const
{
    return { barView().centre(place.bar),
             chart::rowOf(m_pane.axis.placeOf(place.value), m_range, geometryOfPane().plot.height()) };
}

void PlotWidget::paintMeasured(QPainter& painter) const
{
    if (!m_state->measuredBars())
        return;
    const auto [from, to] = *m_state->measuredBars();
    if (!m_measure)
        return paintMeasuredBars(painter, geometryOfPane().plot, barView().centre(from),
                                 barView().centre(to));
    const double step = (m_range.first - m_range.second) / std::max(1, height());
    paintMeasure(painter, geometryOfPane().plot, pixelOf(m_measure->from), pixelOf(m_measure->to),
                 m_measure->text(m_pane, step), m_measure->to.value >= m_measure->from.value);
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
