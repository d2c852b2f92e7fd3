// SPDX-License-Identifier: MIT
/// @file Painters of texts and numbers. They share the columns condition and price, and the position code
/// of the result's first output.

#include "draw/CDrawStyle.h"

#include "data/internal/RecordViews.h"
#include "draw/internal/LabelPlacement.h"
#include "draw/internal/Layout.h"
#include "draw/internal/Pens.h"

#include "host/WB/NumberFormat.h"
#include "host/WB/TextConversion.h"

#include <QFontMetrics>
#include <QPainter>

namespace TC {

using namespace detail;

namespace {

/// Position code of every text and number. Deliberate: the first output's, whichever output is painted.
int textPosition(const se::RPCFormulaMetaResult& meta)
{
    const int* code = elementAt(meta.position, 0);
    return code ? *code : se::Position::AtPoint;
}

/// Where a run of labels stands. Deliberate: x counts from 0 whatever the pane's left edge is, and runs
/// are not right-aligned.
struct LabelLayout
{
    QRect pane;
    int position = 0; ///< position code
    SlotLayout slots;
    ValueScale scale;

    /// Paints the text of a bar, if it has a place.
    void paint(QPainter* painter, const QFontMetrics& metrics, int bar, double price,
               const QString& text) const
    {
        if (!hasPixel(slots.at(bar)))
            return;
        const QSize size(metrics.horizontalAdvance(text), metrics.height());
        if (const auto point = textPoint(position, pane, size, slots.x(bar), rowOf(scale, price)))
            painter->drawText(*point, text);
    }
};

void setTitleFont(QPainter* painter)
{
    // Deliberate: without the skin's font the painter keeps its own.
    const auto* skin = utils::CSingletonT<WB::CUiResource>::instance();
    if (const QFont* font = skin->getFont(QString::fromLatin1(kTitleFont)))
        painter->setFont(*font);
}

/// Pen of an output's texts; empty where the output is not drawn.
std::optional<QPen> textPen(const OutputView& output, const std::optional<int>& color)
{
    if (!color || output.lineWidth() == 0)
        return std::nullopt;
    return linePen(fromPacked(*color), output.lineWidth(), Qt::SolidLine);
}

/// Last value of a column; empty without values.
std::optional<double> lastOf(const ColumnView& column)
{
    return column.raw(column.size() - 1);
}

/// Whether a number is `code` once its fraction is cut off.
bool isCode(double number, int code)
{
    return hasPixel(number) && toPixel(number) == code;
}

} // namespace

void CDrawStyle::drawText(QPainter* painter, QRect& rect, RPCFormulaResultCache& cache,
                          QPair<double, double> range, int outputIndex, int startIndex, int endIndex,
                          int xOffset, int barCount)
{
    const OutputView output(cache, outputIndex);
    const ColumnView condition = output.column(0), prices = output.column(1);
    const std::vector<std::string>* texts = output.column(2).texts();
    // Deliberate: with a fourth column the colour entry counts even where the formula did not set it.
    const bool usesColorEntry = output.columnCount() >= 4;
    const std::optional<QPen> pen = textPen(
        output, usesColorEntry ? output.entry(&se::RPCFormulaMetaResult::color) : outputColor(output));
    if (!condition.exists() || !texts || !pen)
        return;

    painter->setPen(*pen);
    setTitleFont(painter);
    const QFontMetrics metrics = painter->fontMetrics();
    const BarWindow bars { startIndex, endIndex, barCount, false };
    const LabelLayout layout { rect,
                               textPosition(cache.meta),
                               { startIndex, slotWidth(rect, bars.divisor()), static_cast<double>(xOffset) },
                               spanningOrToMaximum(rect, range, 1.0) };
    // Deliberate: a result with fewer bars than slots is walked from its first bar, which then stands left
    // of the pane when the window starts later.
    const int first = barTotal(cache.result) < barCount ? 0 : startIndex;
    forEachValidBar(cache.result, first, endIndex, [&](int bar) {
        const std::string* bytes = elementAt(*texts, bar);
        if (!asksForLabel(condition.raw(bar)) || !bytes)
            return;
        const QString text = WB::sToQs(*bytes);
        if (!text.trimmed().isEmpty())
            layout.paint(painter, metrics, bar, prices.at(bar).value_or(NAN), text);
    });
}

void CDrawStyle::drawTextEx(QPainter* painter, QRect& rect, RPCFormulaResultCache& cache,
                            QPair<double, double>, int outputIndex, int, int)
{
    const OutputView output(cache, outputIndex);
    // Deliberate: the last value of each column by itself; columns of different length are not aligned.
    const auto condition = lastOf(output.column(0)), mode = lastOf(output.column(1));
    const auto across = lastOf(output.column(2)), down = lastOf(output.column(3));
    const std::vector<std::string>* texts = output.column(4).texts();
    const std::optional<QPen> pen = textPen(output, outputColor(output));
    if (!condition || !isCode(*condition, 1) || !mode || !across || !down || !texts || texts->empty() || !pen
        || isMissing(*across) || isMissing(*down))
        return;

    painter->setPen(*pen);
    setTitleFont(painter);
    const QString text = WB::sToQs(texts->back());
    // Deliberate: neither mode adds the pane's left or top edge.
    if (isCode(*mode, 0)) {
        painter->drawText(toPixel(*across), toPixel(*down), text);
    } else if (isCode(*mode, 1)) {
        const QFontMetrics metrics = painter->fontMetrics();
        const int x = toPixel(rect.width() * (*across / 1000.0));
        const int y = toPixel(rect.height() * (*down / 1000.0));
        painter->drawText(saturatedSum(x, -metrics.horizontalAdvance(text) / 2),
                          saturatedSum(y, -metrics.height() / 2), text);
    }
}

void CDrawStyle::drawNumber(QPainter* painter, QRect& rect, QPair<double, double> range,
                            RPCFormulaResultCache& cache, int startIndex, int endIndex, int outputIndex,
                            int xOffset, bool fullWidth, int barCount)
{
    constexpr double mostDecimals = 7.0;
    const OutputView output(cache, outputIndex);
    const ColumnView condition = output.column(0), prices = output.column(1);
    const ColumnView numbers = output.column(2), decimals = output.column(3);
    const std::optional<QPen> pen = textPen(output, outputColor(output));
    if (!decimals.exists() || !pen)
        return;

    painter->setPen(*pen); // the font is the painter's own
    const QFontMetrics metrics = painter->fontMetrics();
    const BarWindow bars { startIndex, endIndex, barCount, fullWidth };
    const LabelLayout layout { rect,
                               textPosition(cache.meta),
                               { startIndex, slotWidth(rect, bars.divisor()), static_cast<double>(xOffset) },
                               valueScale(rect, range) };
    forEachValidBar(cache.result, startIndex, endIndex, [&](int bar) {
        const auto on = condition.raw(bar), asked = decimals.raw(bar);
        // Deliberate: only finite is asked for, so the missing marker becomes the text of invalid numbers.
        const auto price = prices.finite(bar), number = numbers.finite(bar);
        if (!asksForLabel(on) || isZero(*on) || !price || !number || !asked)
            return;
        const int precision = std::isnan(*asked) ? 0 : toPixel(std::min(mostDecimals, *asked));
        layout.paint(painter, metrics, bar, *price,
                     WB::formatDoubleNumber(*number, precision, {}, true, QStringLiteral("非法值")));
    });
}

} // namespace TC
