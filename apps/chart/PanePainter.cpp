// SPDX-License-Identifier: MIT
#include "apps/chart/PanePainter.h"

#include "apps/chart/FormulaPainting.h"
#include "apps/chart/PaneScale.h"
#include "apps/chart/TimeMarks.h"
#include "apps/chart/ValueMarks.h"
#include "host/WB/SkinLookup.h"

#include <QImage>
#include <QPaintEngine>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace chart {

namespace {

constexpr int kMarkSpacing = 38; // least rows between two marks of a value axis
constexpr int kTimeSpacing = 74; // least columns between two marks of the time axis
constexpr int kTagHeight = 18;   // of a value beside the pointer
constexpr int kTextMargin = 6;   // between the frame and an axis text

QColor background()
{
    return WB::skinColor("ic_clr_graph_kline_bg", Qt::black);
}

QColor frame()
{
    return WB::skinColor("ic_clr_kline_graph_frame_border", Qt::darkGray);
}

QColor axisText()
{
    return WB::skinColor("clr_chart_axis_text", Qt::gray);
}

void useAxisFont(QPainter& painter)
{
    painter.setFont(WB::skinFont("fnt_graph_axis_text", painter.font()));
}

QPen dotted(const QColor& color)
{
    return QPen(color, 0, Qt::DotLine);
}

/// Row of the plot on which a value of the axis stands.
int rowOfValue(double value, const PaneContent& pane, const QPair<double, double>& range, int height)
{
    return rowOf(pane.axis.placeOf(value), range, height);
}

void paintGrid(QPainter& painter, const PaneGeometry& geometry, const std::vector<AxisMark>& marks,
               const PaneContent& pane, const BarView& view, const QPair<double, double>& range)
{
    painter.setPen(dotted(WB::skinColor("clr_chart_grid", Qt::darkGray)));
    for (const AxisMark& mark : marks) {
        const int row = geometry.plot.top() + rowOfValue(mark.value, pane, range, geometry.plot.height());
        painter.drawLine(geometry.plot.left(), row, geometry.plot.right(), row);
    }
    for (int bar : pane.markedBars) {
        const int column = geometry.plot.left() + view.centre(bar);
        painter.drawLine(column, geometry.plot.top(), column, geometry.plot.bottom());
    }
}

/// Row of the last price, if the pane marks it and its axis reaches there.
std::optional<int> lastPriceRow(const PaneGeometry& geometry, const PaneContent& pane,
                                const QPair<double, double>& range)
{
    if (!pane.lastPrice)
        return std::nullopt;
    const int row = rowOfValue(pane.lastPrice->price, pane, range, geometry.plot.height());
    return row >= 0 && row < geometry.plot.height() ? std::optional(row) : std::nullopt;
}

/// Files of pictures, and printers, take every stroke of every bar: where many bars share a column that is
/// most of them for nothing.
bool isTooDense(const QPainter& painter, const BarView& view)
{
    const QPaintEngine::Type engine = painter.paintEngine()->type();
    return (engine == QPaintEngine::SVG || engine == QPaintEngine::Pdf)
        && view.count() > kMostBarsAColumn * std::max(1, view.width);
}

/// The formulas as pixels, without what is beneath them.
QImage formulasAsPicture(const PaneContent& pane, const BarView& view, const QPair<double, double>& range,
                         const QSize& size, const QFont& font)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setFont(font);
    paintFormulas(painter, pane, view, range, size.height());
    return image;
}

/// A price with a line through the plot and a tag on the axis.
struct MarkedPrice
{
    int row = 0, tagRow = 0; ///< of the plot
    double price = 0.0;
    QColor color;
    Qt::PenStyle line = Qt::SolidLine;
    bool isLast = false;
};

/// The prices that the pane marks, from the top; of those beyond its ends none.
std::vector<MarkedPrice> markedPrices(const PaneGeometry& geometry, const PaneContent& pane,
                                      const QPair<double, double>& range)
{
    std::vector<MarkedPrice> marked;
    marked.reserve(pane.priceLines.size() + 1);
    const QColor own = WB::skinColor("clr_chart_price_line", axisText());
    for (double price : pane.priceLines) {
        const int row = rowOfValue(price, pane, range, geometry.plot.height());
        if (row >= 0 && row < geometry.plot.height())
            marked.push_back({ row, row, price, own, Qt::SolidLine, false });
    }
    if (const std::optional<int> row = lastPriceRow(geometry, pane, range)) {
        const QColor color =
            WB::skinColor(pane.lastPrice->rises ? "ic_clr_kline_rise" : "ic_clr_kline_fall", axisText());
        marked.push_back({ *row, *row, pane.lastPrice->price, color, Qt::DashLine, true });
    }
    std::sort(marked.begin(), marked.end(), [](const MarkedPrice& a, const MarkedPrice& b) {
        return a.row != b.row ? a.row < b.row : a.price > b.price; // of one row the higher first, too
    });
    return marked;
}

/// Moves tags apart: that of the last price stays, the others make room above and below it.
void moveTagsApart(std::vector<MarkedPrice>& marked)
{
    const auto found =
        std::find_if(marked.begin(), marked.end(), [](const MarkedPrice& one) { return one.isLast; });
    const auto fixed =
        found == marked.end() ? std::size_t { 0 } : static_cast<std::size_t>(found - marked.begin());
    for (std::size_t tag = fixed; tag > 0; --tag)
        marked[tag - 1].tagRow = std::min(marked[tag - 1].tagRow, marked[tag].tagRow - kTagHeight);
    for (std::size_t tag = fixed + 1; tag < marked.size(); ++tag)
        marked[tag].tagRow = std::max(marked[tag].tagRow, marked[tag - 1].tagRow + kTagHeight);
}

void paintAxis(QPainter& painter, const PaneGeometry& geometry, const std::vector<AxisMark>& marks,
               const PaneContent& pane, const QPair<double, double>& range)
{
    std::vector<MarkedPrice> marked = markedPrices(geometry, pane, range);
    moveTagsApart(marked);
    const auto isCovered = [&](int row) {
        return std::any_of(marked.begin(), marked.end(),
                           [&](const MarkedPrice& one) { return std::abs(row - one.tagRow) < kLabelHeight; });
    };
    useAxisFont(painter);
    painter.setPen(axisText());
    for (const AxisMark& mark : marks) {
        const int row = rowOfValue(mark.value, pane, range, geometry.plot.height());
        if (!hasLabelRoom(row, geometry.plot.height()) || isCovered(row))
            continue;
        painter.drawText(QRect(geometry.axis.left() + kTextMargin,
                               geometry.plot.top() + row - kLabelHeight / 2,
                               geometry.axis.width() - kTextMargin, kLabelHeight),
                         Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, mark.text);
    }
}

/// A text in a filled box, as crosshairs show their value and time.
void paintTag(QPainter& painter, const QRect& box, const QString& text, const QColor& color)
{
    painter.fillRect(box, color);
    painter.setPen(background());
    painter.drawText(box, Qt::AlignCenter, text);
}

/// Where the value of a row stands on the axis.
QRect tagOf(const PaneGeometry& geometry, int row)
{
    return QRect(geometry.axis.left() + 1, row - kTagHeight / 2, geometry.axis.width() - 1, kTagHeight);
}

/// The row of the pointer with its value.
void paintPointer(QPainter& painter, const PaneGeometry& geometry, const PaneContent& pane,
                  const QPair<double, double>& range, const Crosshair& crosshair)
{
    const int pointer = *crosshair.row, row = geometry.plot.top() + pointer;
    painter.drawLine(geometry.plot.left(), row, geometry.plot.right(), row);
    const double value = pane.axis.valueAt(valueAt(pointer, range, geometry.plot.height()));
    const double step =
        std::abs(value - pane.axis.valueAt(valueAt(pointer + 1, range, geometry.plot.height())));
    useAxisFont(painter);
    paintTag(painter, tagOf(geometry, row), valueText(crosshair.value.value_or(value), pane, step),
             axisText());
}

/// A line at each price that the pane marks, and the price on the axis.
void paintMarkedPrices(QPainter& painter, const PaneGeometry& geometry, const PaneContent& pane,
                       const QPair<double, double>& range)
{
    std::vector<MarkedPrice> marked = markedPrices(geometry, pane, range);
    moveTagsApart(marked);
    useAxisFont(painter);
    for (const MarkedPrice& one : marked) {
        const int row = geometry.plot.top() + one.row;
        painter.setPen(QPen(one.color, 0, one.line));
        painter.drawLine(geometry.plot.left(), row, geometry.plot.right(), row);
        paintTag(painter, tagOf(geometry, geometry.plot.top() + one.tagRow),
                 valueText(one.price, pane, pane.priceTick), one.color);
    }
}

} // namespace

void paintPlot(QPainter& painter, const PaneGeometry& geometry, const PaneContent& pane, const BarView& view,
               const QPair<double, double>& range)
{
    painter.save();
    painter.fillRect(geometry.plot.united(geometry.axis), background());
    const auto marks = valueMarks(range, geometry.plot.height(), kMarkSpacing, pane);
    paintGrid(painter, geometry, marks, pane, view, range);

    painter.save();
    painter.setClipRect(geometry.plot, Qt::IntersectClip);
    painter.translate(geometry.plot.topLeft());
    useAxisFont(painter); // candles and numbers are labelled in the painter's font
    if (isTooDense(painter, view) && !geometry.plot.isEmpty())
        painter.drawImage(0, 0, formulasAsPicture(pane, view, range, geometry.plot.size(), painter.font()));
    else
        paintFormulas(painter, pane, view, range, geometry.plot.height());
    painter.restore();

    paintAxis(painter, geometry, marks, pane, range);
    paintMarkedPrices(painter, geometry, pane, range);
    painter.setPen(frame());
    painter.drawLine(geometry.axis.topLeft(), geometry.axis.bottomLeft());
    painter.restore();
}

void paintCrosshair(QPainter& painter, const PaneGeometry& geometry, const PaneContent& pane,
                    const BarView& view, const QPair<double, double>& range, const Crosshair& crosshair)
{
    if (crosshair.bar < view.first || crosshair.bar > view.last)
        return;
    painter.save();
    painter.setPen(dotted(WB::skinColor("clr_chart_crosshair", Qt::gray)));
    const int column = geometry.plot.left() + view.centre(crosshair.bar);
    painter.drawLine(column, geometry.plot.top(), column, geometry.plot.bottom());
    if (crosshair.row)
        paintPointer(painter, geometry, pane, range, crosshair);
    painter.restore();
}

QRegion crosshairRegion(const PaneGeometry& geometry, const BarView& view, const Crosshair& crosshair)
{
    if (crosshair.bar < view.first || crosshair.bar > view.last)
        return QRegion();
    QRegion region(geometry.plot.left() + view.centre(crosshair.bar) - 1, geometry.plot.top(), 3,
                   geometry.plot.height());
    if (crosshair.row) {
        const int row = geometry.plot.top() + *crosshair.row;
        region += QRect(geometry.plot.left(), row - 1, geometry.plot.width(), 3);
        region += tagOf(geometry, row);
    }
    return region;
}

void paintPane(QPainter& painter, const PaneGeometry& geometry, const PaneContent& pane, const BarView& view,
               const Crosshair& crosshair)
{
    const QPair<double, double> range = visibleRange(pane, view);
    paintPlot(painter, geometry, pane, view, range);
    paintCrosshair(painter, geometry, pane, view, range, crosshair);
}

std::vector<int> timeGrid(const std::vector<std::int64_t>& times, const BarView& view)
{
    std::vector<int> bars;
    for (const TimeMark& mark : timeMarks(times, view, kTimeSpacing))
        bars.push_back(mark.bar);
    return bars;
}

void paintTimeAxis(QPainter& painter, const QRect& rect, const std::vector<std::int64_t>& times,
                   const BarView& view)
{
    painter.save();
    painter.fillRect(rect, background());
    painter.setPen(frame());
    painter.drawLine(rect.topLeft(), rect.topRight());
    useAxisFont(painter);
    painter.setPen(axisText());
    for (const TimeMark& mark : timeMarks(times, view, kTimeSpacing)) {
        const int column = rect.left() + view.centre(mark.bar);
        painter.drawLine(column, rect.top(), column, rect.top() + 3);
        const int width = painter.fontMetrics().horizontalAdvance(mark.text);
        if (column - width / 2 >= rect.left() && column + width / 2 <= rect.right())
            painter.drawText(QRect(column - width / 2 - 1, rect.top() + 3, width + 2, rect.height() - 3),
                             Qt::AlignCenter, mark.text);
    }
    painter.restore();
}

TimeTag timeTag(const QRect& rect, const std::vector<std::int64_t>& times, const BarView& view, int bar,
                const QFont& font)
{
    const QString text = timeText(times, bar);
    if (text.isEmpty() || bar < view.first || bar > view.last)
        return {};
    const QFontMetrics metrics(WB::skinFont("fnt_graph_axis_text", font));
    const int width = metrics.horizontalAdvance(text) + 2 * kTextMargin;
    const int left =
        std::max(rect.left(), std::min(rect.left() + view.centre(bar) - width / 2, rect.right() - width));
    return { QRect(left, rect.top() + 1, width, rect.height() - 1), text };
}

void paintTimeTag(QPainter& painter, const TimeTag& tag)
{
    if (tag.box.isEmpty())
        return;
    painter.save();
    useAxisFont(painter);
    paintTag(painter, tag.box, tag.text, axisText());
    painter.restore();
}

} // namespace chart
