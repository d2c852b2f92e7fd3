// SPDX-License-Identifier: MIT
/// @file Lines: unbroken, broken, vertical, step.

#include "draw/CDrawStyle.h"

#include "data/internal/RecordViews.h"
#include "draw/internal/BarLayout.h"
#include "draw/internal/Pens.h"
#include "draw/internal/ink/Ink.h"
#include "draw/internal/ink/LineTrace.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <optional>

namespace TC {

using namespace detail;

namespace {

constexpr int kWhite = 0xFFFFFF;

/// Client type 3's blue.
QColor accent(int alpha = 255)
{
    return QColor(72, 166, 242, alpha);
}

/// Row of a value on the painters' own scale; on a flat range every value stands on half the bottom
/// coordinate. Deliberate: not the centre of the rectangle, which may begin below row 0.
class LineRows
{
public:
    LineRows(const QRect& rect, const QPair<double, double>& range)
        : m_scale(valueScale(rect, range))
    {
        if (isFlat(range))
            m_flatRow = rect.bottom() / 2;
    }

    /// NaN when the value has no row.
    double at(double value) const { return m_flatRow ? *m_flatRow : m_scale.at(value); }

    /// Whether rows follow the order of all finite values, one way or the other.
    bool isMonotone() const
    {
        return m_flatRow
            || (std::isfinite(m_scale.pixelsPerUnit) && m_scale.pixelsPerUnit != 0.0
                && std::isfinite(m_scale.baseValue));
    }

private:
    ValueScale m_scale;
    std::optional<int> m_flatRow;
};

/// Top and bottom colour of the fill under a line: client type 3's own, the skin's pair, or the default.
QPair<QColor, QColor> fillColors()
{
    if (isClientType3())
        return { accent(102), QColor(31, 33, 38, 0) };
    const QList<QColor>& gradient = CDrawStyle::m_colorListGradient;
    if (gradient.size() == 2)
        return { gradient[0], gradient[1] };
    return { QColor(96, 130, 216, 200), QColor(0, 0, 0, 0) };
}

void fillBeneath(QPainter* painter, const QRect& rect, const QPainterPath& line)
{
    const QPair<QColor, QColor> colors = fillColors();
    // Deliberate: the gradient begins at row 0, not at the rectangle's top, and leans to its left edge.
    QLinearGradient gradient(0, 0, rect.left(), rect.bottom());
    gradient.setColorAt(0.0, colors.first);
    gradient.setColorAt(1.0, colors.second);

    const qreal base = rect.bottom() + 2.0;
    const QPointF first = line.elementAt(0), last = line.elementAt(line.elementCount() - 1);
    QPainterPath area = line;
    area.lineTo(last.x(), base);
    area.lineTo(first.x(), base);
    area.lineTo(first);
    painter->fillPath(area, gradient);
}

/// Pen style of a vertical line. Deliberate: an unknown line-style code takes the output's index as the
/// style.
Qt::PenStyle vertLineStyle(const OutputView& output, int lineStyle)
{
    switch (lineStyle) {
    case se::LineStyle::Solid: return Qt::SolidLine;
    case se::LineStyle::Dot: return Qt::DotLine;
    case se::LineStyle::DashDot: return Qt::DashDotLine;
    case se::LineStyle::DashDotDot: return Qt::DashDotDotLine;
    default: return static_cast<Qt::PenStyle>(output.index());
    }
}

} // namespace

void CDrawStyle::drawSimpleLine(QPainter* painter, QRect& rect, RPCFormulaResultCache& cache,
                                QPair<double, double> range, Qt::PenStyle penStyle, int outputIndex,
                                int startIndex, int endIndex, int barCount, int xOffset, bool fullWidth,
                                bool useScale, float scale, bool gradientFill, bool alignByIndex)
{
    const OutputView output(cache, outputIndex);
    const ColumnView values = output.column(0);
    const std::optional<int> color = outputColor(output);
    const BarWindow bars { startIndex, endIndex, barCount, fullWidth };
    if (output.lineWidth() == 0 || !color || !values.isPlainNumber() || bars.divisor() < 2.0)
        return;

    const SlotLayout layout = alignByIndex ? alignedByIndex(bars, rect) : rightAligned(bars, rect, xOffset);
    const LineRows rows(rect, range);
    const double factor = useScale ? static_cast<double>(scale) : 1.0;

    const QColor ink = isClientType3() && *color == kWhite ? accent() : fromPacked(*color);
    const QPen pen = linePen(ink, output.lineWidth(), penStyle);

    const LineSource<LineRows> source {
        cache.result, values, bars, layout, rect.right(), rows, factor, false
    };
    const Polyline line = LineTrace(source).trace(keptPoints(*painter, pen));
    if (line.isEmpty())
        return;

    if (gradientFill)
        fillBeneath(painter, rect, line.path());
    painter->setBrush(Qt::NoBrush);
    strokeLine(painter, line, pen);
}

void CDrawStyle::drawSegmentLine(QPainter* painter, QRect& rect, RPCFormulaResultCache& cache,
                                 QPair<double, double> range, int outputIndex, int startIndex, int endIndex,
                                 int barCount, int xOffset, bool fullWidth)
{
    const OutputView output(cache, outputIndex);
    const ColumnView values = output.column(0);
    const std::optional<int> color = outputColor(output);
    if (output.lineWidth() == 0 || !color || !values.isPlainNumber())
        return;

    const BarWindow bars { startIndex, endIndex, barCount, fullWidth };
    SlotLayout layout = rightAligned(bars, rect, xOffset);
    layout.shift = -1.0; // Deliberate: one pixel left of the unbroken line, and never clipped
    const LineRows rows(rect, range);

    const QPen pen = linePen(fromPacked(*color), output.lineWidth(), Qt::SolidLine);

    // A missing number breaks the line, an invalid bar does not.
    const LineSource<LineRows> source { cache.result, values, bars, layout, INT_MAX, rows, 1.0, true };
    const Polyline line = LineTrace(source).trace(keptPoints(*painter, pen));
    if (!line.isEmpty())
        strokeLine(painter, line, pen);
}

void CDrawStyle::drawVertLine(QPainter* painter, QRect& rect, RPCFormulaResultCache& cache,
                              QPair<double, double> range, Qt::PenStyle, int outputIndex, int startIndex,
                              int endIndex, int xOffset, int barCount)
{
    const OutputView output(cache, outputIndex);
    const ColumnView condition = output.column(0), upper = output.column(1), lower = output.column(2);
    const std::optional<int> color = outputColor(output);
    const std::optional<int> lineStyle = output.entry(&se::RPCFormulaMetaResult::lineStyle);
    if (output.lineWidth() == 0 || !color || !lineStyle || !condition.exists())
        return;

    const double max = range.first, min = range.second;
    const BarWindow bars { startIndex, endIndex, barCount, false };
    const SlotLayout layout = beginningAt(bars, rect, 0.0, xOffset); // Deliberate: without rect.left()
    const ValueScale scale = spanningOrToMaximum(rect, range);
    const bool hasEnds = output.columnCount() > 2;

    Ink ink(painter);
    ink.setPen(linePen(fromPacked(*color), output.lineWidth(), vertLineStyle(output, *lineStyle)));
    forEachValidBar(cache.result, startIndex, endIndex, [&](int bar) {
        const std::optional<double> isDrawn = condition.raw(bar);
        if (!isDrawn || *isDrawn == 0.0)
            return;
        double upperRow = rect.bottom(), lowerRow = rect.top();
        if (hasEnds) {
            const std::optional<double> top = upper.raw(bar), bottom = lower.raw(bar);
            if (!top || !bottom)
                return;
            upperRow = scale.at(*top - max > kTolerance ? max : *top);
            lowerRow = min - *bottom > kTolerance ? rect.bottom() - 3.0 : scale.at(*bottom);
        }
        const double x = layout.at(bar);
        if (hasPixel(x) && hasPixel(upperRow) && hasPixel(lowerRow))
            ink.upright(toPixel(x), toPixel(upperRow), toPixel(lowerRow));
    });
}

void CDrawStyle::drawBoolLine(QPainter* painter, QRect& rect, RPCFormulaResultCache& cache,
                              QPair<double, double> range, Qt::PenStyle penStyle, int outputIndex,
                              int startIndex, int endIndex, int xOffset, int barCount)
{
    const OutputView output(cache, outputIndex);
    const ColumnView flags = output.column(0);
    const std::optional<int> color = outputColor(output);
    if (output.lineWidth() == 0 || !color || !flags.isFlag())
        return;

    const BarWindow bars { startIndex, endIndex, barCount, false };
    const SlotLayout layout = beginningAt(bars, rect, 0.0, xOffset); // Deliberate: without rect.left()
    ValueScale scale = spanningOrToMaximum(rect, range);
    scale.baseRow = rect.height(); // Deliberate: the height, not the bottom

    Polyline line;
    forEachValidBar(cache.result, startIndex, endIndex, [&](int bar) {
        const std::optional<double> flag = flags.raw(bar);
        if (!flag || std::isnan(*flag) || isMissingMarker(*flag))
            return;
        const double level = 1.0 - *flag <= kTolerance ? 1.0 : 0.0;
        const double x = layout.at(bar), row = scale.at(level);
        if (hasPixel(x) && hasPixel(row))
            line.to(QPoint(toPixel(x), toPixel(row)));
    });
    if (!line.isEmpty())
        strokeLine(painter, line, linePen(fromPacked(*color), output.lineWidth(), penStyle));
}

} // namespace TC
