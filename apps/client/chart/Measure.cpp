// SPDX-License-Identifier: MIT
#include "apps/client/chart/Measure.h"

#include "apps/chart/ValueMarks.h"
#include "draw/CDrawStyle.h"
#include "host/WB/SkinLookup.h"

#include <QCoreApplication>
#include <QPainter>

#include <algorithm>

namespace client {

namespace {

/// Of this file, for the catalogue.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Measure)
};

constexpr int kPadding = 6, kGap = 8; // pixels around the text, and to the pointer
constexpr int kFill = 40;             // opacity of the rectangle, of 255

QString withSign(double number, const QString& digits)
{
    return (number > 0.0 ? QStringLiteral("+") : QString()) + digits;
}

/// Where a box stands beside a place, inside the plot.
QRect beside(const QPoint& place, const QSize& box, const QRect& plot, bool above)
{
    const int left =
        place.x() + kGap + box.width() > plot.right() ? place.x() - kGap - box.width() : place.x() + kGap;
    const int top = above ? place.y() - kGap - box.height() : place.y() + kGap;
    return QRect(QPoint(std::max(left, plot.left()),
                        std::max(plot.top(), std::min(top, plot.bottom() - box.height()))),
                 box);
}

} // namespace

QString Measure::text(const chart::PaneContent& pane, double step) const
{
    constexpr int percentDecimals = 2;
    chart::PaneContent plain; // a change is told in the pane's own units, whatever its axis counts in
    plain.showsPrices = pane.showsPrices;
    plain.priceTick = pane.priceTick;
    const double change = to.value - from.value;
    QString told = Texts::tr("%1 根  %2")
                       .arg(to.bar - from.bar)
                       .arg(withSign(change, chart::valueText(change, plain, step)));
    if (from.value > 0.0) {
        const double percent = change / from.value * 100.0;
        told += QStringLiteral("  %1%").arg(
            withSign(percent, TC::CDrawStyle::toStringByPrec(percentDecimals, percent, 0.0)));
    }
    return told;
}

void paintMeasuredBars(QPainter& painter, const QRect& plot, int from, int to)
{
    QColor color = WB::skinColor("clr_chart_crosshair", Qt::gray);
    painter.save();
    painter.setClipRect(plot, Qt::IntersectClip);
    painter.setPen(QPen(color, 0));
    for (int column : { from, to })
        painter.drawLine(plot.left() + column, plot.top(), plot.left() + column, plot.bottom());
    color.setAlpha(kFill);
    painter.fillRect(QRect(QPoint(plot.left() + std::min(from, to), plot.top()),
                           QPoint(plot.left() + std::max(from, to), plot.bottom())),
                     color);
    painter.restore();
}

void paintMeasure(QPainter& painter, const QRect& plot, const QPoint& from, const QPoint& to,
                  const QString& text, bool rises)
{
    const QColor color =
        WB::skinColor(rises ? "ic_clr_kline_rise" : "ic_clr_kline_fall", painter.pen().color());
    QColor fill = color;
    fill.setAlpha(kFill);
    painter.save();
    painter.setClipRect(plot, Qt::IntersectClip);
    painter.fillRect(QRect(from, to).normalized(), fill);
    painter.setPen(QPen(color, 0));
    painter.drawRect(QRect(from, to).normalized().adjusted(0, 0, -1, -1));
    painter.setFont(WB::skinFont("fnt_graph_axis_text", painter.font()));
    const QSize room = painter.fontMetrics().size(Qt::TextSingleLine, text) + QSize(2 * kPadding, kPadding);
    const QRect box = beside(to, room, plot, to.y() <= from.y());
    painter.fillRect(box, color);
    painter.setPen(WB::skinColor("ic_clr_graph_kline_bg", Qt::black));
    painter.drawText(box, Qt::AlignCenter, text);
    painter.restore();
}

} // namespace client
