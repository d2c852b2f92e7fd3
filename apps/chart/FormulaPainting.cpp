// SPDX-License-Identifier: MIT
#include "apps/chart/FormulaPainting.h"

#include "apps/chart/AxisTexts.h"
#include "apps/chart/PaneScale.h"
#include "data/RecordReading.h"
#include "draw/CDrawStyle.h"
#include "host/se/RecordCodes.h"

#include <QPainter>

namespace chart {

namespace {

using se::DrawType;

Qt::PenStyle penStyle(const se::RPCFormulaMetaResult& meta, std::size_t output)
{
    switch (output < meta.lineStyle.size() ? meta.lineStyle[output] : se::LineStyle::Solid) {
    case se::LineStyle::Dot: return Qt::DotLine;
    case se::LineStyle::DashDot: return Qt::DashDotLine;
    case se::LineStyle::DashDotDot: return Qt::DashDotDotLine;
    default: return Qt::SolidLine;
    }
}

/// Close of the bar before the shown ones, for volume bars whose first bar is unchanged.
double closeBefore(const TC::RPCFormulaResultCache& cache, int output, int first)
{
    constexpr int close = 2; // third column of a volume output
    return TC::recordedNumber(cache, output, close, first - 1).value_or(0.0);
}

void paintCandles(QPainter& painter, TC::CDrawStyle& style, const PaneContent& pane,
                  const PaneFormula& formula, int output, const BarView& view,
                  const QPair<double, double>& range, int height)
{
    QRect rect(0, 0, view.width, height);
    const int decimals = TC::CDrawStyle::priceTick2Precision(pane.priceTick);
    const auto draw = [&](QPainter* on, int precision) {
        style.drawKLine(on, rect, *formula.records, range, output, view.first, view.last, view.count(),
                        view.halfWidth(), pane.periodSeconds, formula.overlaid, formula.scale, precision);
    };
    if (!pane.axis.isLogarithmic() || formula.overlaid)
        return draw(&painter, decimals);
    constexpr int exact = 12; // decimals of a place that tell its price
    AxisTexts device(&painter, pane.axis, decimals);
    QPainter labelled(&device);
    labelled.setFont(painter.font());
    labelled.setBrush(painter.brush());
    draw(&labelled, exact);
}

void paintOutput(QPainter& painter, TC::CDrawStyle& style, const PaneContent& pane,
                 const PaneFormula& formula, int output, const BarView& view,
                 const QPair<double, double>& range, int height)
{
    TC::RPCFormulaResultCache& cache = *formula.records;
    QRect rect(0, 0, view.width, height);
    // One slot fewer and one spare slot make exactly one slot per shown bar, and no start offset: lines,
    // sticks and labels then share the candles' columns.
    const int barCount = view.count() - 1;
    const bool fullWidth = false;
    const int half = view.halfWidth();
    const int crossWidth = std::clamp(2 * half + 1, 6, 10);
    const int first = view.first, last = view.last;
    const auto index = static_cast<std::size_t>(output);
    switch (cache.meta.drawType[index]) {
    case DrawType::Line:
        style.drawSimpleLine(&painter, rect, cache, range, penStyle(cache.meta, index), output, first, last,
                             barCount, half, fullWidth, false, 1.0f, false, false);
        break;
    case DrawType::SegmentLine:
        style.drawSegmentLine(&painter, rect, cache, range, output, first, last, barCount, half + 1,
                              fullWidth);
        break;
    case DrawType::ColorStick:
        style.drawColorStick(&painter, rect, cache, range, Qt::SolidLine, output, first, last, half,
                             fullWidth, barCount, false, false);
        break;
    case DrawType::Tick:
        // A cross stands its own width to the right of the slot's edge: it is brought over the slot's column.
        painter.translate(half - crossWidth, 0);
        style.drawTick(&painter, rect, range, cache, first, last, output, crossWidth, 0.0, 0.0, fullWidth,
                       barCount);
        break;
    case DrawType::TickVolume:
        if (pane.bookRule)
            style.drawTickVolStickNew(&painter, rect, cache, range, output, first, last, half, half == 0,
                                      fullWidth, barCount, 0.0);
        else
            style.drawTickVolStick(&painter, rect, cache, range, output, first, last, half, half == 0,
                                   fullWidth, barCount, 0.0);
        break;
    case DrawType::PointDot:
        TC::CDrawStyle::drawPointDot(&painter, rect, cache, range, output, first, last, half, fullWidth,
                                     barCount);
        break;
    case DrawType::CircleDot:
        TC::CDrawStyle::drawCircleDot(&painter, rect, cache, range, output, first, last, half, fullWidth,
                                      barCount, false);
        break;
    case DrawType::Candle: paintCandles(painter, style, pane, formula, output, view, range, height); break;
    case DrawType::Text:
        style.drawText(&painter, rect, cache, range, output, first, last, half, barCount);
        break;
    case DrawType::Icon:
        style.drawIcon(&painter, rect, QString(), range, cache, first, last, output, half, barCount);
        break;
    case DrawType::Number:
        style.drawNumber(&painter, rect, range, cache, first, last, output, half, fullWidth, barCount);
        break;
    case DrawType::Volume:
        style.drawVolStick(&painter, rect, cache, range, output, first, last, half, false, fullWidth,
                           barCount, closeBefore(cache, output, first), false);
        break;
    case DrawType::StickLine:
        style.drawStickKline(&painter, rect, range, cache, first, last, output, half, fullWidth, barCount);
        break;
    case DrawType::FixedText: style.drawTextEx(&painter, rect, cache, range, output, 0, 0); break;
    case DrawType::VertLine:
        style.drawVertLine(&painter, rect, cache, range, Qt::SolidLine, output, first, last, half, barCount);
        break;
    case DrawType::BoolLine:
        style.drawBoolLine(&painter, rect, cache, range, penStyle(cache.meta, index), output, first, last,
                           half, barCount);
        break;
    case DrawType::StackedVolume:
        style.drawStackVolstick(&painter, rect, cache, range, output, first, last, half, fullWidth, barCount,
                                false);
        break;
    default: break;
    }
}

} // namespace

void paintFormulas(QPainter& painter, const PaneContent& pane, const BarView& view,
                   const QPair<double, double>& range, int height)
{
    if (view.count() == 0)
        return;
    TC::CDrawStyle style;
    for (const PaneFormula& formula : pane.formulas) {
        const se::RPCFormulaMetaResult& meta = formula.records->meta;
        const QPair<double, double> own = ownRange(formula, range);
        const std::size_t described =
            std::min({ meta.drawType.size(), meta.outputColumns.size(), meta.lineWidth.size() });
        for (std::size_t output = 0; output < described; ++output) {
            if (meta.lineWidth[output] == 0)
                continue;
            painter.save();
            painter.translate(view.shift(), 0);
            paintOutput(painter, style, pane, formula, static_cast<int>(output), view, own, height);
            painter.restore();
        }
    }
}

} // namespace chart
