#include "apps/chart/ChartPicture.h"

#include "apps/chart/PanePainter.h"
#include "host/WB/CUiResource.h"
#include "host/utils/CSingletonT.h"

#include <QPainter>

namespace chart {

namespace {

constexpr int kAxisWidth = 66;
constexpr int kTimeHeight = 20;
constexpr int kMainShare = 3; // the first pane is this many times as high as the others
constexpr int kLeastHeight = 24;

} // namespace

void paintChart(QPainter& painter, const ChartPicture& picture, const QSize& size)
{
    const int shares = kMainShare + static_cast<int>(picture.panes.size()) - 1;
    const int height = size.height() - kTimeHeight;
    BarView view { picture.first, picture.last, size.width() - kAxisWidth };
    const QColor* frame = utils::CSingletonT<WB::CUiResource>::instance()->getColor(
        QStringLiteral("ic_clr_kline_graph_frame_border"));

    int top = 0, share = 0;
    for (std::size_t i = 0; i < picture.panes.size(); ++i) {
        share += i == 0 ? kMainShare : 1;
        const int bottom = height * share / shares;
        if (bottom - top < kLeastHeight)
            break;
        const PaneGeometry geometry { QRect(0, top, view.width, bottom - top),
                                      QRect(view.width, top, kAxisWidth, bottom - top) };
        paintPane(painter, geometry, picture.panes[i], view, Crosshair());
        if (i > 0 && frame) {
            painter.setPen(*frame);
            painter.drawLine(0, top, size.width() - 1, top);
        }
        top = bottom;
    }
    paintTimeAxis(painter, QRect(0, height, size.width(), kTimeHeight), picture.times, view, Crosshair());
}

} // namespace chart
