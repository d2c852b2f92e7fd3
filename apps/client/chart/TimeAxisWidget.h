// SPDX-License-Identifier: MIT
#pragma once
/// @file The time axis below the panes.

#include "apps/chart/PanePainter.h"
#include "apps/client/chart/ChartState.h"

#include "host/WB/CBaseWidget.h"

#include <QPixmap>

#include <optional>

namespace client {

/// Dates of the shown bars, which are painted once and kept, and over them that of the bar under the
/// crosshair.
class TimeAxisWidget : public WB::CBaseWidget
{
    Q_OBJECT

public:
    TimeAxisWidget(ChartState* state, QWidget* parent);

    /// Paints dates and tag at once on another surface.
    void paintOn(QPainter& painter) const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void uiResourceChanged() override;

private:
    chart::BarView barView() const;
    const std::vector<std::int64_t>& times() const;
    chart::TimeTag tag() const;
    void moveTag();
    void renew();

    ChartState* m_state;
    QPixmap m_kept; ///< the dates; null when they are to be painted anew
    QRect m_tagShown;
    std::optional<chart::TimeTag> m_tag; ///< empty when its text is to be made anew
};

} // namespace client
