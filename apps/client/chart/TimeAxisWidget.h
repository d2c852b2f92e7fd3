// SPDX-License-Identifier: MIT
#pragma once
/// @file The time axis below the panes.

#include "apps/client/chart/ChartState.h"

#include "host/WB/CBaseWidget.h"

namespace client {

/// Dates of the shown bars and of the bar under the crosshair.
class TimeAxisWidget : public WB::CBaseWidget
{
    Q_OBJECT

public:
    TimeAxisWidget(ChartState* state, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ChartState* m_state;
};

} // namespace client
