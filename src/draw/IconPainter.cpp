// SPDX-License-Identifier: MIT
/// @file Painter of the small marks of signals.

#include "draw/CDrawStyle.h"

#include "data/internal/RecordViews.h"
#include "draw/internal/LabelPlacement.h"
#include "draw/internal/Layout.h"
#include "draw/internal/Pens.h"
#include "draw/internal/ink/DeviceClip.h"

#include <QPainter>

namespace TC {

using namespace detail;

void CDrawStyle::drawIcon(QPainter* painter, QRect& rect, QString, QPair<double, double> range,
                          RPCFormulaResultCache& cache, int startIndex, int endIndex, int outputIndex,
                          int xOffset, int barCount)
{
    constexpr int ellipse = 1;
    const OutputView output(cache, outputIndex);
    const ColumnView condition = output.column(0), prices = output.column(1), shapes = output.column(2);
    const std::optional<int> position = output.entry(&se::RPCFormulaMetaResult::position);
    if (!prices.exists() || !position)
        return;

    // Deliberate: the skin's colour, not the output's, and the painter keeps pen and brush.
    const DeviceClip clip(painter);
    painter->setPen(WB::skinColor(kIconColor));
    painter->setBrush(WB::skinColor(kIconColor));
    const BarWindow bars { startIndex, endIndex, barCount, false };
    const SlotLayout layout { startIndex, slotWidth(rect, bars.divisor()), static_cast<double>(xOffset),
                              -kIconSize / 2.0 };
    const ValueScale scale = valueScale(rect, range);
    // Deliberate: a mark past the end of the shapes repeats the shape before it.
    int shape = ellipse;
    forEachValidBar(cache.result, startIndex, endIndex, [&](int bar) {
        const std::optional<double> price = prices.finite(bar);
        if (!asksForLabel(condition.raw(bar)) || !price)
            return;
        if (const auto read = shapes.raw(bar))
            shape = toPixel(*read);
        const std::optional<int> top = iconTop(*position, rect, rowOf(scale, *price));
        if (!top || !hasPixel(layout.at(bar)))
            return;
        const QRect mark = paintableRect(layout.x(bar), *top, kIconSize, kIconSize);
        if (shape == ellipse)
            painter->drawEllipse(mark);
        else
            painter->drawRect(mark);
    });
}

} // namespace TC
