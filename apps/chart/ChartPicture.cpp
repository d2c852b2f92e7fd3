// SPDX-License-Identifier: MIT
#include "apps/chart/ChartPicture.h"

#include "apps/chart/ChartMeasures.h"
#include "apps/chart/PanePainter.h"
#include "draw/CDrawStyle.h"
#include "host/TC/Instruments.h"
#include "host/TC/UiParams.h"
#include "host/WB/SkinLookup.h"

#include <boost/make_shared.hpp>

#include <QPainter>

namespace chart {

namespace {

constexpr int kRowHeight = 16;
constexpr int kLeastHeight = 40;
constexpr int kGap = 8; // between the heading's parts

/// Writes one part of the heading. @return the column behind it.
int paintHeadingPart(QPainter& painter, int x, const QString& text, const char* fontKey, const char* colorKey)
{
    painter.setFont(WB::skinFont(fontKey, painter.font()));
    painter.setPen(WB::skinColor(colorKey, Qt::gray));
    const int width = painter.fontMetrics().horizontalAdvance(text);
    painter.drawText(QRect(x, 0, width + 1, 2 * kRowHeight), Qt::AlignLeft | Qt::AlignVCenter, text);
    return x + width + kGap;
}

/// The strip above a pane: the heading and two rows for the main pane, one row for the others.
void paintLegend(QPainter& painter, const ChartPicture& picture, const PicturePane& pane, bool main,
                 int width)
{
    int left = 0;
    if (main) {
        left = paintHeadingPart(painter, kGap, TC::getDetailQsName(picture.instrument),
                                "ic_fnt_index_modulegroup_header_text", "ic_clr_modulegroup_header_stock");
        left = paintHeadingPart(painter, left, picture.periodName, "ic_fnt_index_realtime_stock_title_text",
                                "clr_stock_code");
    }
    QRect rect(left, 0, width - left, main ? 2 * kRowHeight : kRowHeight);
    auto param = boost::make_shared<TC::CKLineUiParam>();
    param->barCount = static_cast<int>(picture.times.size());
    Instrument instrument = picture.instrument;
    QList<Instrument> overlaid;
    for (const Instrument& other : main ? picture.overlaid : std::vector<Instrument>())
        overlaid << other;
    const int indent = main ? 0 : kGap - 1;
    TC::CDrawStyle::drawTitle(&painter, rect, pane.results->getData(), picture.last, instrument, overlaid,
                              TC::EIndexView_Module, indent, main, {}, {}, {}, 0, 0, 0, 0, 0, 0, 0, 0, 0,
                              param);
}

} // namespace

QSize leastSize(std::size_t panes)
{
    constexpr int leastPlot = 100, alone = 2 * kRowHeight + kLeastHeight;
    const int shares = kMainShare + static_cast<int>(panes) - 1;
    return QSize(kAxisWidth + leastPlot, kTimeHeight + (panes > 1 ? shares * kLeastHeight : alone));
}

void paintChart(QPainter& painter, const ChartPicture& picture, const QSize& size)
{
    const int shares = kMainShare + static_cast<int>(picture.panes.size()) - 1;
    const int height = size.height() - kTimeHeight;
    const BarView view { picture.first, picture.last, size.width() - kAxisWidth };

    painter.fillRect(QRect(QPoint(0, 0), size), WB::skinColor("ic_clr_graph_kline_bg", Qt::gray));
    const std::vector<int> grid = timeGrid(picture.times, view);
    int top = 0, share = 0;
    for (std::size_t i = 0; i < picture.panes.size(); ++i) {
        const bool main = i == 0;
        share += main ? kMainShare : 1;
        const int bottom = height * share / shares;
        if (bottom - top < kLeastHeight)
            break;
        const int plotTop = top + (main ? 2 * kRowHeight : kRowHeight);
        const PaneGeometry geometry { QRect(0, plotTop, view.width, bottom - plotTop),
                                      QRect(view.width, plotTop, kAxisWidth, bottom - plotTop) };
        PaneContent content = picture.panes[i].content;
        content.markedBars = grid;
        paintPane(painter, geometry, content, view, Crosshair());
        painter.save();
        painter.translate(0, top);
        paintLegend(painter, picture, picture.panes[i], main, size.width());
        painter.restore();
        if (!main) {
            painter.setPen(WB::skinColor("ic_clr_kline_graph_frame_border", Qt::gray));
            painter.drawLine(0, top, size.width() - 1, top);
        }
        top = bottom;
    }
    paintTimeAxis(painter, QRect(0, height, size.width(), kTimeHeight), picture.times, view);
}

} // namespace chart
