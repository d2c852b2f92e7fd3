/// @file Candles.

#include "draw/CDrawStyle.h"

#include "data/internal/RecordViews.h"
#include "draw/internal/CandleBuilder.h"
#include "draw/internal/LabelSpot.h"
#include "draw/internal/Layout.h"
#include "draw/internal/Pens.h"
#include "draw/internal/RiseFall.h"

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

    /// The bar's prices times `factor`. Empty past the end of a column and for a NaN, which has no row;
    /// infinities and the missing marker are prices far outside the pane.
    std::optional<Prices> at(int bar, double factor) const
    {
        const auto open = m_open.raw(bar), high = m_high.raw(bar), low = m_low.raw(bar),
                   close = m_close.raw(bar);
        if (!open || !high || !low || !close)
            return std::nullopt;
        const Prices prices { *open * factor, *high * factor, *low * factor, *close * factor };
        if (std::isnan(prices.open) || std::isnan(prices.high) || std::isnan(prices.low)
            || std::isnan(prices.close))
            return std::nullopt;
        return prices;
    }

private:
    ColumnView m_open, m_high, m_low, m_close;
    bool m_exist;
};

/// One candle in pixels: everything that its ink needs.
struct CandleInk
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
        return dataToYAxis(price, rect.top(), rect.bottom(), range.first, range.second);
    }
    int center(const Candle& candle) const { return saturatedSum(candle.x, halfWidth); }

    CandleInk place(const Candle& candle, bool rises) const
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
void drawCandle(QPainter* painter, const CandleInk& ink, const QColor& color)
{
    const long long bodyWidth = 2LL * ink.halfWidth;
    if (static_cast<long long>(ink.lowRow) - ink.highRow < 1) {
        if (bodyWidth < 2)
            painter->drawLine(ink.center, ink.highRow, ink.center, saturatedSum(ink.highRow, 1));
        else
            painter->drawLine(ink.left, ink.highRow, saturatedSum(ink.left, 1 + bodyWidth), ink.highRow);
    } else if (ink.rises) {
        painter->drawLine(ink.center, ink.highRow, ink.center, ink.bodyTop);
        painter->drawLine(ink.center, saturatedSum(ink.bodyTop, ink.bodyHeight), ink.center, ink.lowRow);
        painter->drawRect(paintableRect(ink.left, ink.bodyTop, bodyWidth, ink.bodyHeight));
    } else {
        painter->drawLine(ink.center, ink.highRow, ink.center, ink.lowRow);
        // Deliberate: a pixel wider and higher than the outline's numbers; Qt draws an outline that much
        // larger.
        painter->fillRect(paintableRect(ink.left, ink.bodyTop, bodyWidth + 1, ink.bodyHeight + 1), color);
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
    forEachValidBar(result, layout.firstBar, endIndex, [&](int bar) {
        const std::optional<Prices> prices = columns.at(bar, factor);
        if (!prices)
            return;
        if (const std::optional<Candle> closed = builder.add(layout.x(bar), *prices))
            visit(*closed);
    });
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

    ViewExtremes extremes;
    std::optional<double> previousClose;
    const auto drawNext = [&](const Candle& candle) {
        const bool rises = candleRises(candle.prices.open, candle.prices.close, previousClose);
        const QColor& color = rises ? riseColor : fallColor;
        painter->setPen(color);
        drawCandle(painter, rows.place(candle, rises), color);
        extremes.take(candle.prices, rows.center(candle));
        previousClose = candle.prices.close;
    };
    forEachCandle(cache.result, columns, layout, endIndex, period, static_cast<double>(scale), drawNext);

    if (useOutputColour || !extremes.high || !extremes.low)
        return;
    painter->setPen(WB::skinColor(kHighLowColor));
    drawPriceLabel(painter, rows, *extremes.high, precision, highLabelSpot);
    drawPriceLabel(painter, rows, *extremes.low, precision, lowLabelSpot);
}

} // namespace TC
