// SPDX-License-Identifier: MIT
/// @file Dots: one small circle per value.

#include "draw/CDrawStyle.h"

#include "data/internal/RecordViews.h"
#include "draw/internal/BarLayout.h"
#include "draw/internal/Pens.h"
#include "draw/internal/ink/Ink.h"
#include "draw/internal/ink/PaintedPlaces.h"

#include <optional>

namespace TC {

using namespace detail;

namespace {

constexpr int kDotSize = 4;

/// Top of a dot whose value stands at `row`; dots below the rectangle stand on its bottom.
int dotTop(double row, const QRect& rect)
{
    const int top = saturatedSum(toPixel(row), -2);
    if (top >= saturatedSum(rect.bottom(), -2))
        return saturatedSum(rect.bottom(), -kDotSize);
    // Deliberate: a dot above the rectangle goes to row 0, wherever the rectangle begins.
    return top > rect.top() ? top : 0;
}

void drawDots(QPainter* painter, const QRect& rect, const RPCFormulaResultCache& cache,
              const QPair<double, double>& range, int outputIndex, const BarWindow& bars,
              const SlotLayout& layout)
{
    const OutputView output(cache, outputIndex);
    const ColumnView values = output.column(0);
    const std::optional<int> color = outputColor(output);
    if (output.lineWidth() == 0 || !color || !values.exists())
        return;

    const ValueScale scale = valueScale(rect, range); // no fallback on a flat range

    Ink ink(painter);
    PaintedPlaces painted; // a dot on the spot of another one adds nothing where its pixels are stored
    ink.setPen(linePen(fromPacked(*color), output.lineWidth(), Qt::SolidLine));
    forEachValidBar(cache.result, bars.first, bars.last, [&](int bar) {
        const std::optional<double> value = values.finite(bar); // the missing marker is drawn like a value
        if (!value)
            return;
        const double x = layout.at(bar), row = scale.at(*value);
        if (!hasPixel(x) || !hasPixel(row))
            return;
        const QRect dot = paintableRect(toPixel(x), dotTop(row, rect), kDotSize, kDotSize);
        if (!ink.isEllipseStored() || painted.isNew(dot.topLeft()))
            ink.ellipse(dot);
    });
}

} // namespace

void CDrawStyle::drawPointDot(QPainter* painter, QRect& rect, RPCFormulaResultCache& cache,
                              QPair<double, double> range, int outputIndex, int startIndex, int endIndex,
                              int xOffset, bool fullWidth, int barCount)
{
    const BarWindow bars { startIndex, endIndex, barCount, fullWidth };
    const double left = static_cast<double>(rect.left()) + xOffset;
    drawDots(painter, rect, cache, range, outputIndex, bars, beginningAt(bars, rect, left, -2.0));
}

void CDrawStyle::drawCircleDot(QPainter* painter, QRect& rect, RPCFormulaResultCache& cache,
                               QPair<double, double> range, int outputIndex, int startIndex, int endIndex,
                               int xOffset, bool fullWidth, int barCount, bool alignByIndex)
{
    const BarWindow bars { startIndex, endIndex, barCount, fullWidth };
    const double width = slotWidth(rect, bars.divisor());
    int start = 0;
    if (barCount >= 1) {
        if (alignByIndex)
            start = toPixel(startIndex * width);
        else if (isClientType3())
            start = xOffset; // Deliberate: the offset counts twice, here and below
        else
            start = toPixel(bars.rightShift() * width);
    }
    const double left = static_cast<double>(rect.left()) + xOffset + start;
    drawDots(painter, rect, cache, range, outputIndex, bars, beginningAt(bars, rect, left, -2.0));
}

} // namespace TC
