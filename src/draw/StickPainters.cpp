// SPDX-License-Identifier: MIT
/// @file Sticks from the zero row, and bars between two prices.

#include "draw/CDrawStyle.h"

#include "data/internal/RecordViews.h"
#include "draw/internal/BarLayout.h"
#include "draw/internal/Pens.h"
#include "draw/internal/ink/FurthestSticks.h"
#include "draw/internal/ink/StandingSticks.h"

#include <QPainter>

namespace TC {

using namespace detail;

namespace {

/// Deliberate: the start offset stays fractional here; the other painters truncate theirs first.
SlotLayout colorStickLayout(const QRect& rect, const BarWindow& bars, int xOffset, bool alignByIndex)
{
    const double width = slotWidth(rect, bars.divisor());
    const double start = alignByIndex ? bars.first * width
        : isClientType3()             ? xOffset // from the pane's left edge
                                      : bars.rightShift() * width + xOffset;
    return { bars.first, width, rect.left() + start };
}

} // namespace

void CDrawStyle::drawColorStick(QPainter* painter, QRect& rect, RPCFormulaResultCache& cache,
                                QPair<double, double> range, Qt::PenStyle penStyle, int outputIndex,
                                int startIndex, int endIndex, int xOffset, bool fullWidth, int barCount,
                                bool realtimeColours, bool alignByIndex)
{
    const OutputView output(cache, outputIndex);
    const ColumnView column = output.column(0);
    const BarWindow bars { startIndex, endIndex, barCount, fullWidth };
    if (!column.exists() || bars.divisor() < 1.0)
        return;

    const SlotLayout layout = colorStickLayout(rect, bars, xOffset, alignByIndex);
    const ValueScale scale = spanningOrToMaximum(rect, range);
    if (!hasPixel(scale.at(0.0)))
        return;
    const int zeroRow = scale.row(0.0);
    const QPen rise =
        linePen(WB::skinColor(realtimeColours ? kRealtimeStickColor : kRiseColor), 1.0, penStyle);
    const QPen fall =
        linePen(WB::skinColor(realtimeColours ? kRealtimeStickColor : kFallColor), 1.0, penStyle);

    Ink ink(painter);
    const bool hides = coversWhole(rise) && coversWhole(fall) && hidesBeneath(*painter);
    StandingSticks sticks(ink, zeroRow, hides);
    const SignedSticks values { cache.result, *column.values(), layout, scale, rect.right(), hides };
    forEachFurthestStick(values, startIndex, endIndex, [&](int bar, double value) {
        if (!hasPixel(layout.at(bar)) || !hasPixel(scale.at(value)))
            return;
        const int x = std::min(layout.x(bar), rect.right());
        const int row = scale.row(value);
        // Every stick shows: one that ends on the zero row is moved a pixel away from it.
        if (value > 0.0)
            sticks.add(x, row == zeroRow ? saturatedSum(row, -1) : row, rise);
        else
            sticks.add(x, row == zeroRow ? saturatedSum(row, 1) : row, fall, true);
    });
    sticks.finish();
}

namespace {

/// One bar of the formula language's stick-line.
struct StickLine
{
    double condition, price1, price2;
    double width; ///< tenths of a slot
    double empty; ///< exactly 1.0: outlined
};

/// The five columns of a stick-line.
class StickLineColumns
{
public:
    explicit StickLineColumns(const OutputView& output)
        : m_columns { output.column(0), output.column(1), output.column(2), output.column(3),
                      output.column(4) }
    {
    }

    bool exist() const
    {
        return std::all_of(std::begin(m_columns), std::end(m_columns),
                           [](const ColumnView& column) { return column.exists(); });
    }

    /// The bar's stick; empty when a column ends before it, a price is missing, or the condition does not
    /// hold.
    std::optional<StickLine> at(int bar) const
    {
        const auto condition = m_columns[0].raw(bar), price1 = m_columns[1].raw(bar);
        const auto price2 = m_columns[2].raw(bar), width = m_columns[3].raw(bar),
                   empty = m_columns[4].raw(bar);
        if (!condition || !price1 || !price2 || !width || !empty)
            return std::nullopt;
        if (isMissing(*price1) || isMissing(*price2) || *condition == 0.0)
            return std::nullopt;
        return StickLine { *condition, *price1, *price2, *width, *empty };
    }

private:
    ColumnView m_columns[5];
};

/// Deliberate: from 16 tenths of a slot on, a stick is one pixel wide whatever the slot.
double stickPixels(double tenths, double slot)
{
    return tenths >= 16.0 ? 1.0 : tenths * slot / 10.0;
}

} // namespace

void CDrawStyle::drawStickKline(QPainter* painter, QRect& rect, QPair<double, double> range,
                                RPCFormulaResultCache& cache, int startIndex, int endIndex, int outputIndex,
                                int xOffset, bool fullWidth, int barCount)
{
    const OutputView output(cache, outputIndex);
    const StickLineColumns columns(output);
    const std::optional<int> packed = outputColor(output);
    if (!columns.exist() || !packed || output.lineWidth() == 0)
        return;

    const BarWindow bars { startIndex, endIndex, barCount, fullWidth };
    const double slot = slotWidth(rect, bars.divisor());
    const SlotLayout layout { startIndex, slot, static_cast<double>(rect.left()),
                              static_cast<double>(xOffset) };
    const ValueScale scale = valueScale(rect, range);
    const QColor color = fromPacked(*packed);
    Ink ink(painter);
    ink.setPen(linePen(color, output.lineWidth(), Qt::SolidLine));

    forEachValidBar(cache.result, startIndex, endIndex, [&](int bar) {
        const std::optional<StickLine> stick = columns.at(bar);
        if (!stick)
            return;
        const double row1 = scale.at(stick->price1), row2 = scale.at(stick->price2);
        const double pixels = stickPixels(stick->width, slot);
        if (!hasPixel(layout.at(bar)) || !hasPixel(row1) || !hasPixel(row2) || !hasPixel(pixels))
            return;
        const int x = layout.x(bar), y1 = toPixel(row1), y2 = toPixel(row2), width = toPixel(pixels);
        if (width <= 1) {
            ink.upright(x, y1, y2);
            return;
        }
        // Deliberate: the height is negative when price 2 is the higher one, and goes to Qt as it is.
        const QRect body =
            paintableRect(static_cast<long long>(x) - width / 2, y1, width, static_cast<long long>(y2) - y1);
        // Deliberate: only an empty flag of exactly 1.0 outlines.
        if (stick->empty == 1.0)
            ink.outline(body);
        else
            ink.fill(body, color);
    });
}

} // namespace TC
