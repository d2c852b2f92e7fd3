// SPDX-License-Identifier: MIT
#include "apps/client/chart/TimeAxisWidget.h"

#include "apps/chart/ChartMeasures.h"

#include <QPainter>

namespace client {

TimeAxisWidget::TimeAxisWidget(ChartState* state, QWidget* parent)
    : WB::CBaseWidget(QStringLiteral("time_axis_widget"), true, parent)
    , m_state(state)
{
    setFixedHeight(chart::kTimeHeight);
    connect(state, &ChartState::sigViewChanged, this, &TimeAxisWidget::renew);
    connect(state, &ChartState::sigBarsGrown, this, &TimeAxisWidget::renew);
    connect(state, &ChartState::sigCrosshairChanged, this,
            [this] { update(QRegion(m_tagShown) | tag().box); });
}

chart::BarView TimeAxisWidget::barView() const
{
    return m_state->view(std::max(0, width() - chart::kAxisWidth));
}

const std::vector<std::int64_t>& TimeAxisWidget::times() const
{
    static const std::vector<std::int64_t> none;
    return m_state->bars() ? m_state->bars()->timeMs : none;
}

chart::TimeTag TimeAxisWidget::tag() const
{
    return chart::timeTag(rect(), times(), barView(), m_state->crosshairBar(), font());
}

void TimeAxisWidget::renew()
{
    m_kept = QPixmap();
    update();
}

void TimeAxisWidget::uiResourceChanged()
{
    WB::CBaseWidget::uiResourceChanged();
    renew();
}

void TimeAxisWidget::resizeEvent(QResizeEvent* event)
{
    WB::CBaseWidget::resizeEvent(event);
    renew();
}

void TimeAxisWidget::paintOn(QPainter& painter) const
{
    painter.setFont(font());
    chart::paintTimeAxis(painter, rect(), times(), barView());
    chart::paintTimeTag(painter, tag());
}

void TimeAxisWidget::paintEvent(QPaintEvent*)
{
    if (m_kept.isNull() || !qFuzzyCompare(m_kept.devicePixelRatio(), devicePixelRatioF())) {
        m_kept = QPixmap(size() * devicePixelRatioF());
        m_kept.setDevicePixelRatio(devicePixelRatioF());
        QPainter painter(&m_kept);
        painter.setFont(font());
        chart::paintTimeAxis(painter, rect(), times(), barView());
    }
    const chart::TimeTag shown = tag();
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_kept);
    chart::paintTimeTag(painter, shown);
    m_tagShown = shown.box;
}

} // namespace client
