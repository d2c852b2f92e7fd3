// SPDX-License-Identifier: MIT
#include "apps/client/chart/TimeAxisWidget.h"

#include "apps/chart/ChartMeasures.h"
#include "apps/chart/PanePainter.h"

#include <QPainter>

namespace client {

TimeAxisWidget::TimeAxisWidget(ChartState* state, QWidget* parent)
    : WB::CBaseWidget(QStringLiteral("time_axis_widget"), true, parent)
    , m_state(state)
{
    setFixedHeight(chart::kTimeHeight);
    connect(state, &ChartState::sigViewChanged, this, [this] { update(); });
    connect(state, &ChartState::sigCrosshairChanged, this, [this] { update(); });
}

void TimeAxisWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    std::vector<std::int64_t> none;
    const auto& times = m_state->bars() ? m_state->bars()->timeMs : none;
    const chart::BarView view = m_state->view(std::max(0, width() - chart::kAxisWidth));
    chart::paintTimeAxis(painter, rect(), times, view, { m_state->crosshairBar(), std::nullopt });
}

} // namespace client
