// SPDX-License-Identifier: MIT
/// @file Candles.

#include "draw/CDrawStyle.h"

#include "data/internal/RecordViews.h"
#include "draw/internal/AxisRow.h"
#include "draw/internal/CandleBuilder.h"
#include "draw/internal/LabelSpot.h"
#include "draw/internal/Layout.h"
#include "draw/internal/Pens.h"
#include "draw/internal/RiseFall.h"
#include "draw/internal/ink/Ink.h"
#include "draw/internal/ink/PixelColumns.h"
#include "draw/internal/ink/PriceRuns.h"

#include "host/WB/NumberFormat.h"

#include <QFontMetrics>
#include <QPainter>

#include <cstdlib>

namespace TC {

using namespace detail;

namespace {

/// The four price columns of an output that has exactly four.
class PriceColumns
{
public:
    explicit PriceColumns(const OutputView& output)
        : m_open(output.column(0))
        , m_high(output.column(1))
        , m_low(output.column(2))
        , m_close(output.column(3))
        , m_exist(output.columnCount() == 4 && m_open.exists() && m_high.exists() && m_low.exists()
                  && m_close.exists())
    {
    }

    bool exist() const { return m_exist; }

    /// The bar's prices times `factor`. Empty past the end of a column and where one of the four, as stored,
    /// is not finite or the missing marker. A product that is not a number has no row and counts as missing.
    std::optional<Prices> at(int bar, double factor) const
    {
        const auto open = m_open.raw(bar), high = m_high.raw(bar), low = m_low.raw(bar),
                   close = m_close.raw(bar);
        if (!open || !high || !low || !close)
            return std::nullopt;
        if (isMissing(*open) || isMissing(*high) || isMissing(*low) || isMissing(*close))
            return std::nullopt;
        const Prices prices { *open * factor, *high * factor, *low * factor, *close * factor };
        if (std::isnan(prices.open) || std::isnan(prices.high) || std::isnan(prices.low)
            || std::isnan(prices.close))
            return std::nullopt;
        return prices;
    }

    /// First bar past the bars up to `last` that can have four prices.
    int endOfWalk(const se::RPCFormulaResult& result, int last) const
    {
        const int flags = static_cast<int>(std::min<std::size_t>(result.barValid.size(), INT_MAX));
        const int end =
            std::min({ barTotal(result), flags, m_open.size(), m_high.size(), m_low.size(), m_close.size() });
        return last < end ? last + 1 : end;
    }

    /// The bars of a run as one candle; empty where one of them is left out or jumps.
    std::optional<Prices> mergedOver(const se::RPCFormulaResult& result, int first, int end, double factor,
                                     int period) const
    {
        const PriceRun run { m_open.values()->data() + first, m_high.values()->data() + first,
                             m_low.values()->data() + first,  m_close.values()->data() + first,
                             result.barValid.data() + first,  static_cast<std::size_t>(end - first) };
        return mergePrices(run, factor, period);
    }

private:
    ColumnView m_open, m_high, m_low, m_close;
    bool m_exist;
};

/// One candle in pixels: everything that its ink needs.
struct CandlePixels
{
    int left, center;
    int halfWidth;
    int highRow, lowRow;
    int bodyTop;
    long long bodyHeight; ///< at least 1
    bool rises;
};

/// Places candles in a pane. Deliberate: the rows are those of dataToYAxis, one pixel off the other
/// painters'.
struct CandleScale
{
    QRect rect;
    QPair<double, double> range;
    int halfWidth;

    int row(double price) const
    {
        return axisRow(price, rect.top(), rect.bottom(), range.first, range.second);
    }
    int center(const Candle& candle) const { return saturatedSum(candle.x, halfWidth); }

    CandlePixels place(const Candle& candle, bool rises) const
    {
        const int open = row(candle.prices.open), close = row(candle.prices.close);
        const long long height = std::max(std::llabs(static_cast<long long>(open) - close), 1LL);
        return { candle.x,
                 center(candle),
                 halfWidth,
                 row(candle.prices.high),
                 row(candle.prices.low),
                 std::min(open, close),
                 height,
                 rises };
    }
};

/// Draws one candle with the pen that is set. The brush of a hollow body is the painter's own.
void drawCandle(Ink& ink, const CandlePixels& candle, const QColor& color)
{
    const long long bodyWidth = 2LL * candle.halfWidth;
    if (static_cast<long long>(candle.lowRow) - candle.highRow < 1) {
        if (bodyWidth < 2)
            ink.upright(candle.center, candle.highRow, saturatedSum(candle.highRow, 1));
        else
            ink.level(candle.highRow, candle.left, saturatedSum(candle.left, 1 + bodyWidth));
    } else if (candle.rises) {
        const QRect body = paintableRect(candle.left, candle.bodyTop, bodyWidth, candle.bodyHeight);
        const int bodyBottom = saturatedSum(candle.bodyTop, candle.bodyHeight);
        if (ink.isRun(body) && candle.highRow <= candle.bodyTop && candle.lowRow >= bodyBottom) {
            // A body without width fills the gap between its wicks, on their column: one run has the same
            // pixels.
            ink.upright(candle.center, candle.highRow, candle.lowRow);
            return;
        }
        ink.upright(candle.center, candle.highRow, candle.bodyTop);
        ink.upright(candle.center, bodyBottom, candle.lowRow);
        ink.outline(body);
    } else {
        ink.upright(candle.center, candle.highRow, candle.lowRow);
        // Deliberate: a pixel wider and higher than the outline's numbers; Qt draws an outline that much
        // larger.
        ink.fill(paintableRect(candle.left, candle.bodyTop, bodyWidth + 1, candle.bodyHeight + 1), color);
    }
}

/// A price and the column of the candle that reached it.
struct PriceMark
{
    double price;
    int x;
};

/// The highest high and the lowest low of the view. On ties the earlier candle keeps the mark.
struct ViewExtremes
{
    std::optional<PriceMark> high, low;

    void take(const Prices& prices, int x)
    {
        if (!high || prices.high - high->price > kTolerance)
            high = PriceMark { prices.high, x };
        if (!low || low->price - prices.low > kTolerance)
            low = PriceMark { prices.low, x };
    }
};

using PlaceLabel = LabelSpot (*)(const QPoint&, const QSize&, const QRect&);

void drawPriceLabel(QPainter* painter, const CandleScale& scale, const PriceMark& mark, int precision,
                    PlaceLabel place)
{
    const QString text = WB::formatDoubleNumber(mark.price, precision, WB::FormatNumberFlags(), true,
                                                QStringLiteral("非法值"));
    const QFontMetrics metrics = painter->fontMetrics();
    const QSize size(metrics.horizontalAdvance(text), metrics.height());
    const LabelSpot spot = place(QPoint(mark.x, scale.row(mark.price)), size, scale.rect);
    painter->drawLine(spot.leaderFrom, spot.leaderTo);
    painter->drawText(spot.text, text);
}

/// Builds the candles of the view and hands each one on when it is complete.
template <class Visit>
void forEachCandle(const se::RPCFormulaResult& result, const PriceColumns& columns, const SlotLayout& layout,
                   int endIndex, int period, double factor, Visit visit)
{
    CandleBuilder builder(period);
    const auto addBar = [&](int bar) {
        const std::optional<Prices> prices = columns.at(bar, factor);
        if (!prices)
            return;
        if (const std::optional<Candle> closed = builder.add(layout.x(bar), *prices))
            visit(*closed);
    };
    const int end = columns.endOfWalk(result, endIndex);
    const PixelColumns<SlotLayout> runs(layout, layout.width, INT_MAX, end);
    if (!runs.areDense()) {
        forEachValidBar(result, layout.firstBar, endIndex, addBar);
    } else {
        for (int bar = std::max(layout.firstBar, 0); bar < end;) {
            const int next = runs.endOf(bar);
            if (const std::optional<Prices> merged = columns.mergedOver(result, bar, next, factor, period)) {
                if (const std::optional<Candle> closed = builder.add(runs.x(bar), *merged))
                    visit(*closed);
            } else {
                forEachValidBar(result, bar, next - 1, addBar);
            }
            bar = next;
        }
    }
    if (const std::optional<Candle> last = builder.finish())
        visit(*last);
}

} // namespace

void CDrawStyle::drawKLine(QPainter* painter, QRect& rect, RPCFormulaResultCache& cache,
                           QPair<double, double> range, int outputIndex, int startIndex, int endIndex,
                           int barCount, int halfWidth, int period, bool useOutputColour, float scale,
                           int precision)
{
    const OutputView output(cache, outputIndex);
    const PriceColumns columns(output);
    // Deliberate: the one colour is the first output's entry, whichever output is drawn.
    const int* packed = elementAt(cache.meta.color, 0);
    if (!columns.exist() || barCount < 1 || (useOutputColour && !packed))
        return;

    // Deliberate: no spare slot and no start offset; candles always begin at the pane's left edge.
    const SlotLayout layout = candleSlots(rect, startIndex, barCount);
    const CandleScale rows { rect, range, halfWidth };
    const QColor riseColor = useOutputColour ? fromPacked(*packed) : WB::skinColor(kRiseColor);
    const QColor fallColor = useOutputColour ? fromPacked(*packed) : WB::skinColor(kFallColor);

    Ink ink(painter);
    ViewExtremes extremes;
    std::optional<double> previousClose;
    const auto drawNext = [&](const Candle& candle) {
        const bool rises = candleRises(candle.prices.open, candle.prices.close, previousClose);
        const QColor& color = rises ? riseColor : fallColor;
        ink.setPen(color);
        drawCandle(ink, rows.place(candle, rises), color);
        extremes.take(candle.prices, rows.center(candle));
        previousClose = candle.prices.close;
    };
    forEachCandle(cache.result, columns, layout, endIndex, period, static_cast<double>(scale), drawNext);

    if (useOutputColour || !extremes.high || !extremes.low)
        return;
    ink.setPen(WB::skinColor(kHighLowColor));
    drawPriceLabel(ink.painter(), rows, *extremes.high, precision, highLabelSpot);
    drawPriceLabel(ink.painter(), rows, *extremes.low, precision, lowLabelSpot);
}

} // namespace TC
