// SPDX-License-Identifier: MIT
/// @file Painters of tick panes: a cross per trade, a volume stick per trade.

#include "draw/CDrawStyle.h"

#include "data/internal/RecordViews.h"
#include "draw/internal/BarLayout.h"
#include "draw/internal/BookSeries.h"
#include "draw/internal/TickInk.h"
#include "draw/internal/TradeDirection.h"
#include "draw/internal/ink/StandingSticks.h"
#include "draw/tickPaintData.h"

#include <QPainter>

namespace TC {

using namespace detail;

namespace {

/// Positions of the reference prices in the number-series table; they belong to no column.
struct ReferencePositions
{
    int lower, upper;
};
constexpr ReferencePositions kCrossReferences { 2, 3 };
constexpr ReferencePositions kStickReferences { 0, 1 };

TradeSeries tradeSeries(const se::RPCFormulaResult& result, const ColumnView& prices,
                        const ReferencePositions& references)
{
    return { prices.values(), elementAt(result.numberSeries, references.lower),
             elementAt(result.numberSeries, references.upper) };
}

// Crosses

/// The trades of the run in order. Deliberate: invalid bars are trades as well, and so are missing
/// prices: each takes a slot.
std::vector<tickPaintData> classifiedTrades(const se::RPCFormulaResult& result, const TradeSeries& series,
                                            int first, int last)
{
    std::vector<tickPaintData> trades;
    const int begin = std::max(first, 0);
    const int end = last < barTotal(result) ? last + 1 : barTotal(result);
    if (begin >= end)
        return trades;
    trades.reserve(static_cast<std::size_t>(end - begin));
    TradeDirection direction(series);
    for (int bar = begin; bar < end; ++bar) {
        if (const std::optional<bool> rise = direction.rises(bar))
            trades.push_back({ *rise, (*series.price)[static_cast<std::size_t>(bar)] });
    }
    return trades;
}

/// Row of a price's cross. Deliberate: held 8 pixels below the top edge but not at the bottom, and on a
/// flat range at half the pane's height whatever its top is.
std::optional<int> crossRow(const QRect& rect, const QPair<double, double>& range, const ValueScale& scale,
                            double price)
{
    constexpr int reach = 8;
    if (isMissing(price))
        return std::nullopt;
    if (isFlat(range))
        return rect.height() / 2;
    if (!hasPixel(scale.at(price)))
        return std::nullopt;
    const int row = scale.row(price);
    return saturatedSum(row, -reach) < rect.top() ? saturatedSum(rect.top(), reach) : row;
}

// Sticks

/// The arguments of a stick painter that travel together.
struct StickRun
{
    const QRect& rect;
    const RPCFormulaResultCache& cache;
    const QPair<double, double>& range;
    int output;
    BarWindow bars;
    int halfWidth; ///< pixels
    bool asLine;   ///< lines at every width
};

/// Sticks of one run: lines, bodies or one-pixel marks.
class StickInk
{
public:
    StickInk(QPainter* painter, const StickRun& run)
        : m_ink(painter)
        , m_lines(m_ink, run.rect.bottom(), m_pens.areOpaque() && hidesBeneath(*painter))
        , m_run(run)
        , m_layout { run.bars.first, slotWidth(run.rect, run.bars.divisor()), run.rect.left(), 0,
                     run.halfWidth }
        , m_scale(volumeScale(run.rect, run.range))
    {
    }

    void add(int bar, double volume, bool rise)
    {
        if (isMissing(volume) || !hasPixel(m_layout.at(bar)) || !hasPixel(m_scale.at(volume)))
            return;
        const int x = m_layout.bodyLeft(bar), y = m_scale.row(volume);
        const long long width = m_layout.bodyWidth();
        // Deliberate: the pane's height less the row, although rows count from the top of the surface:
        // in a pane that does not start at row 0 sticks come out short, the small ones as one-pixel marks.
        const long long height = std::max(static_cast<long long>(m_run.rect.height()) - y, 1ll);
        if (m_run.asLine)
            m_lines.add(x, y, m_pens.of(rise));
        else if (width == 1)
            m_lines.add(x, height == 1 ? m_run.rect.bottom() : y, m_pens.of(rise));
        else
            paintBody(x, y, width, height, rise);
    }

    /// Paints what is held back; call it behind the last stick.
    void finish() { m_lines.finish(); }

private:
    /// Hollow when it rises, filled from a row lower on when it falls, a mark on the bottom row when flat.
    void paintBody(int x, int y, long long width, long long height, bool rise)
    {
        const int bottom = m_run.rect.bottom();
        m_ink.setPen(m_pens.of(rise));
        if (height == 1)
            m_ink.level(bottom, x, saturatedSum(x, width));
        else if (rise)
            m_ink.outline(paintableRect(x, y, width, height));
        else
            m_ink.fill(paintableRect(x, y + 1ll, width, height), m_pens.fallColor());
    }

    Ink m_ink;
    DirectionPens m_pens;
    StandingSticks m_lines;
    const StickRun& m_run;
    BodyLayout m_layout;
    ValueScale m_scale;
};

/// A stick per valid trade that has a volume; a volume of zero is one. Deliberate: the run's first trade
/// is the first valid one, not the one at the window's start.
/// @param decide  final direction from (bar, volume, price, direction by the prices).
template <class Decide>
void paintSticks(QPainter* painter, const StickRun& run, Decide decide)
{
    const OutputView output(run.cache, run.output);
    const se::RPCFormulaResult& result = run.cache.result;
    const ColumnView volumes = output.column(0);
    const ColumnView prices = output.column(2); // the second column is not read
    if (!volumes.exists() || !prices.exists())
        return;
    TradeDirection direction(tradeSeries(result, prices, kStickReferences));
    StickInk ink(painter, run);
    forEachValidBar(result, run.bars.first, run.bars.last, [&](int bar) {
        const std::optional<bool> rise = direction.rises(bar);
        if (!rise)
            return;
        const double volume = volumes.raw(bar).value_or(DBL_MAX);
        ink.add(bar, volume, decide(bar, volume, *prices.raw(bar), *rise));
    });
    ink.finish();
}

} // namespace

void CDrawStyle::drawTick(QPainter* painter, QRect& rect, QPair<double, double> range,
                          RPCFormulaResultCache& cache, int startIndex, int endIndex, int outputIndex,
                          int crossSize, double, double, bool fullWidth, int barCount)
{
    const ColumnView prices = OutputView(cache, outputIndex).column(0);
    const std::vector<tickPaintData> trades = classifiedTrades(
        cache.result, tradeSeries(cache.result, prices, kCrossReferences), startIndex, endIndex);
    if (trades.empty())
        return;

    // Deliberate: slots are as many as trades, whatever the pane shows, and columns count from 0; only
    // client type 3 asks for the pane's slots and starts at the pane's left edge.
    const bool inPane = isClientType3();
    const double tradeCount = static_cast<double>(trades.size());
    const BarWindow bars { startIndex, endIndex, barCount, fullWidth };
    const double slots = inPane ? std::max(tradeCount, bars.divisor()) : tradeCount;
    const BodyLayout layout { 0, slotWidth(rect, slots), inPane ? rect.left() : 0, crossSize, 0 };
    const ValueScale scale = valueScale(rect, range);
    const int half = std::max(crossSize / 2, 1);

    CrossInk ink(painter, rect, half);
    for (std::size_t trade = 0; trade < trades.size(); ++trade) {
        if (const std::optional<int> row = crossRow(rect, range, scale, trades[trade].price))
            ink.add(layout.bodyLeft(static_cast<int>(trade)), *row, trades[trade].rise);
    }
    ink.finish();
}

void CDrawStyle::drawTickVolStick(QPainter* painter, QRect& rect, RPCFormulaResultCache& cache,
                                  QPair<double, double> range, int outputIndex, int startIndex, int endIndex,
                                  int halfWidth, bool asLine, bool fullWidth, int barCount, double)
{
    const BarWindow bars { startIndex, endIndex, barCount, fullWidth };
    paintSticks(painter, { rect, cache, range, outputIndex, bars, halfWidth, asLine },
                [](int, double, double, bool rise) { return rise; });
}

void CDrawStyle::drawTickVolStickNew(QPainter* painter, QRect& rect, RPCFormulaResultCache& cache,
                                     QPair<double, double> range, int outputIndex, int startIndex,
                                     int endIndex, int halfWidth, bool asLine, bool fullWidth, int barCount,
                                     double)
{
    const BarWindow bars { startIndex, endIndex, barCount, fullWidth };
    BookWalk book(cache.result);
    paintSticks(painter, { rect, cache, range, outputIndex, bars, halfWidth, asLine },
                [&book](int bar, double volume, double price, bool rise) {
                    return book.rises(bar, volume, price, rise);
                });
}

} // namespace TC
