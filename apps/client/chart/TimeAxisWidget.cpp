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
    connect(state, &ChartState::sigCrosshairChanged, this, &TimeAxisWidget::moveTag);
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

/// Its text is made once a move, and only what the tag leaves and takes is painted.
void TimeAxisWidget::moveTag()
{
    m_tag = tag();
    update(QRegion(m_tagShown) | m_tag->box);
}

void TimeAxisWidget::renew()
{
    m_kept = QPixmap();
    m_tag.reset();
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
    if (!m_tag)
        m_tag = tag();
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_kept);
    chart::paintTimeTag(painter, *m_tag);
    m_tagShown = m_tag->box;
}

} // namespace client
