// SPDX-License-Identifier: MIT
#pragma once
/// @file The painters: one output of a formula result into one rectangle.

#include "data/CFormulaKey.h"
#include "data/RPCFormulaResultCache.h"
#include "host/TC/Periods.h"
#include "indicatorui_export.h"

#include <boost/shared_ptr.hpp>

#include <QColor>
#include <QList>
#include <QMap>
#include <QPair>
#include <QRect>
#include <QString>

#include <memory>
#include <string>

class QPainter;

namespace ttservice {
class CInstrumentDetail;
}

namespace TC {

class CArrowColorSimpleText;
struct ArrowColorTextData;
struct CFormulaDetail;
struct CKLineUiParam;

/// Pixel row of `value` between `top` (where the larger of `max` and `min` lies) and `bottom` (the smaller).
///
/// On a flat range (`max` and `min` within 1e-5) values above it answer `top`, values on it the middle row
/// `(top + 1 + bottom) / 2`, values below it `bottom`. Nothing is clamped: values outside the range give
/// rows outside [top, bottom], saturated at the int limits. NaN answers `bottom`. Candles use this mapping;
/// the other painters use their own, which differs by a pixel.
INDICATORUI_EXPORT int dataToYAxis(double value, int top, int bottom, double max, double min);

/// A price in thousandths, rounded half away from zero; saturates at the int limits, NaN answers 0.
INDICATORUI_EXPORT int buildQuoteKey(double price);

/// Painters of formula outputs, the palette of their colours, and the legend of a pane.
///
/// Painters keep no state. They take, in an order that differs from painter to painter:
/// - `painter`: target; what a painter sets on it (pen, brush, font) stays set. Hosts save and restore.
/// - `rect`: the pane in pixels.
/// - `cache`: the formula's records. Any vector may be short; what is missing is not drawn.
/// - `range`: the pane's scale; `first` is the MAXIMUM, `second` the minimum (see calcMaxMin).
/// - `outputIndex`: the output to draw; one that does not exist draws nothing.
/// - `startIndex`, `endIndex`: bars to draw, both inclusive; bars past the end are ignored.
/// - `barCount`: bar slots across the pane; `fullWidth` false leaves one more slot spare at the right.
/// - `xOffset`: pixels added to every x.
/// - `alignByIndex`: bar i stands in slot i counted from bar 0, instead of right-aligned.
///
/// Colours come from the formula, the palette or the skin; a colour that the skin lacks is black. GUI
/// thread only. Nothing is thrown and nothing is reported: bars without values are skipped.
class INDICATORUI_EXPORT CDrawStyle
{
public:
    /// Reloads the shared palette from the skin; see resetDrawStyleColor.
    CDrawStyle();

    // Scale and number texts (ValueRange.cpp, ValueText.cpp)

    /// Finds the vertical range of everything the pane is about to draw.
    ///
    /// @param[in,out] max,min  in units of the value axis; written only when a value counted, except that a
    ///        result without bars, columns or validity flags sets both to 0.0.
    /// @param cache  outputs of width 0 or draw type 31, text columns, columns off the axis, invalid bars
    ///        and missing numbers do not count. Draw type 42 counts the sum of its columns; draw type 13
    ///        counts bars whose first column is not 0.0; a flag column of draw type 37 counts as [0, 1].
    /// @param rect  not read.
    /// @param countZero  false leaves out values within 1e-5 of zero.
    /// @param scale  factor on every value when `useScale` is true (1 changes nothing).
    /// @return true when at least one value counted.
    static bool calcMaxMin(double& max, double& min, int startIndex, int endIndex,
                           RPCFormulaResultCache& cache, const QRect& rect, bool countZero, bool useScale,
                           float scale);

    /// Range of one output over the same bars. Unlike the range of all outputs it counts zeros, the marker
    /// DBL_MAX and columns off the axis, forms no sum, and never resets `max` and `min` to 0.0.
    /// @return true when at least one value counted; false leaves both as they were.
    static bool calcMaxMin(double& max, double& min, int startIndex, int endIndex,
                           const RPCFormulaResultCache& cache, int outputIndex, const QRect& rect);

    /// Decimals of prices with the given tick: 0.01 has 2, 0.005 has 3, 0.2 has 1, a tick of 1 or more has
    /// none. 2 for the missing marker, for NaN and for ticks that would need more than 9.
    static int priceTick2Precision(double priceTick);

    /// Text of a value. `precision` -1: by price tick; -2: two decimals, large-number style; -3: two
    /// decimals, percent style; any other: that many decimals. Invalid values give "非法值".
    static QString toStringByPrec(int precision, double value, double priceTick);

    /// Cuts trailing zeros of a text that contains a "."; then the first "." if it stands last.
    static void removeEndZero(QString& text);

    /// Whether a market code names a commodity-futures exchange ("DF", "DCE", "ZF", "CZCE", "SF", "SHFE",
    /// "GF", "GFEX", exactly so). Financial futures are not.
    static bool isCommodityFuturesMarket(const std::string& market);

    // Palette (Palette.cpp)

    /// Replaces the palette: one colour per output position, 0x00BBGGRR.
    static void initColorList(QList<int> colors);
    /// Replaces the gradient; drawSimpleLine uses it when it holds exactly two colours (top, bottom).
    static void initColorListGradient(QList<QColor> colors);
    /// Reloads palette and gradient from the skin; keys that the skin lacks are left out.
    static void resetDrawStyleColor();

    /// Colour of an output, 0x00BBGGRR: `colour` when `colourIsSet` is above 0, else the palette's entry;
    /// past the palette its first entry; 0 (black) when the palette is empty.
    static int getIndexOutPutColorKey(int outputIndex, int colourIsSet, int colour);

    /// Colour name, as QColor understands it, of a colour constant of the formula language (0x00BBGGRR);
    /// "white" for every other value.
    static std::string colorName(int colour);

    // Lines and dots (LinePainters.cpp, DotPainters.cpp)

    /// A polyline of the first column that joins across missing values; x is limited to rect.right().
    /// @param penStyle  style of the pen; the output's own line style is not read.
    /// @param scale  factor on every value when `useScale` is true.
    /// @param gradientFill  fills the area under the line with the gradient before the line is stroked.
    void drawSimpleLine(QPainter* painter, QRect& rect, RPCFormulaResultCache& cache,
                        QPair<double, double> range, Qt::PenStyle penStyle, int outputIndex, int startIndex,
                        int endIndex, int barCount, int xOffset, bool fullWidth, bool useScale, float scale,
                        bool gradientFill, bool alignByIndex);

    /// A polyline of the first column that breaks at missing values (not at invalid bars).
    void drawSegmentLine(QPainter* painter, QRect& rect, RPCFormulaResultCache& cache,
                         QPair<double, double> range, int outputIndex, int startIndex, int endIndex,
                         int barCount, int xOffset, bool fullWidth);

    /// One vertical line per bar whose first column is not 0.0: from the second to the third column's row,
    /// or over the whole height when the output has two columns or fewer.
    /// @param penStyle  not read: the pen follows the output's line style.
    void drawVertLine(QPainter* painter, QRect& rect, RPCFormulaResultCache& cache,
                      QPair<double, double> range, Qt::PenStyle penStyle, int outputIndex, int startIndex,
                      int endIndex, int xOffset, int barCount);

    /// A step line of a flag column (column type 2): level 1 from values of 1 on, level 0 below.
    void drawBoolLine(QPainter* painter, QRect& rect, RPCFormulaResultCache& cache,
                      QPair<double, double> range, Qt::PenStyle penStyle, int outputIndex, int startIndex,
                      int endIndex, int xOffset, int barCount);

    /// A 4 by 4 pixel ellipse per finite value; bar `startIndex` stands at the left edge.
    static void drawPointDot(QPainter* painter, QRect& rect, RPCFormulaResultCache& cache,
                             QPair<double, double> range, int outputIndex, int startIndex, int endIndex,
                             int xOffset, bool fullWidth, int barCount);

    /// As drawPointDot, but right-aligned or aligned by index.
    static void drawCircleDot(QPainter* painter, QRect& rect, RPCFormulaResultCache& cache,
                              QPair<double, double> range, int outputIndex, int startIndex, int endIndex,
                              int xOffset, bool fullWidth, int barCount, bool alignByIndex);

    // Sticks (StickPainters.cpp, VolumePainters.cpp)

    /// Sticks from the zero row: rise colour above zero, fall colour below.
    /// @param realtimeColours  both in the skin's single stick colour.
    void drawColorStick(QPainter* painter, QRect& rect, RPCFormulaResultCache& cache,
                        QPair<double, double> range, Qt::PenStyle penStyle, int outputIndex, int startIndex,
                        int endIndex, int xOffset, bool fullWidth, int barCount, bool realtimeColours,
                        bool alignByIndex);

    /// Volume bars on the zero level, hollow when the bar rises and filled when it falls. Columns: volume,
    /// open, close.
    /// @param halfWidth  half the width of a bar in pixels.
    /// @param thinLines  one-pixel lines instead of bodies.
    /// @param previousClose  close before `startIndex`: decides an unchanged first bar.
    void drawVolStick(QPainter* painter, QRect& rect, RPCFormulaResultCache& cache,
                      QPair<double, double> range, int outputIndex, int startIndex, int endIndex,
                      int halfWidth, bool thinLines, bool fullWidth, int barCount, double previousClose,
                      bool alignByIndex);

    /// Volume bars stacked from the output's columns, each in the named colour of the colour entry at
    /// `outputIndex` plus its position in the column list.
    void drawStackVolstick(QPainter* painter, QRect& rect, RPCFormulaResultCache& cache,
                           QPair<double, double> range, int outputIndex, int startIndex, int endIndex,
                           int halfWidth, bool fullWidth, int barCount, bool alignByIndex);

    /// Bars between two prices. Columns: condition, price 1, price 2, width in tenths of a slot (16 or more:
    /// one pixel), empty flag (exactly 1.0: outlined).
    void drawStickKline(QPainter* painter, QRect& rect, QPair<double, double> range,
                        RPCFormulaResultCache& cache, int startIndex, int endIndex, int outputIndex,
                        int xOffset, bool fullWidth, int barCount);

    // Candles (CandlePainter.cpp)

    /// Candles of an output with exactly four columns: open, high, low, close. Bars on one pixel column are
    /// merged; the highest high and the lowest low are labelled.
    /// @param halfWidth  half the width of a body in pixels.
    /// @param period  seconds of a bar; 60 splits merged bars at changes above 2 %.
    /// @param useOutputColour  every candle in the first output's colour, without labels.
    /// @param scale  factor on every price.
    /// @param precision  decimals of the labels.
    void drawKLine(QPainter* painter, QRect& rect, RPCFormulaResultCache& cache, QPair<double, double> range,
                   int outputIndex, int startIndex, int endIndex, int barCount, int halfWidth, int period,
                   bool useOutputColour, float scale, int precision);

    // Ticks (TickPainters.cpp)

    /// A small cross per trade, coloured by the trade's direction. Price: first column; reference prices:
    /// number series 2 (lower) and 3 (upper) of the result.
    /// @param crossSize  width of a cross in pixels.
    /// The two doubles are not read.
    void drawTick(QPainter* painter, QRect& rect, QPair<double, double> range, RPCFormulaResultCache& cache,
                  int startIndex, int endIndex, int outputIndex, int crossSize, double, double,
                  bool fullWidth, int barCount);

    /// A volume stick per trade, coloured by the trade's direction. Columns: volume, (unused), price;
    /// reference prices: number series 0 (lower) and 1 (upper). The last double is not read.
    void drawTickVolStick(QPainter* painter, QRect& rect, RPCFormulaResultCache& cache,
                          QPair<double, double> range, int outputIndex, int startIndex, int endIndex,
                          int halfWidth, bool asLine, bool fullWidth, int barCount, double);

    /// As drawTickVolStick; large changes of the five-level order book between two trades override the
    /// direction.
    void drawTickVolStickNew(QPainter* painter, QRect& rect, RPCFormulaResultCache& cache,
                             QPair<double, double> range, int outputIndex, int startIndex, int endIndex,
                             int halfWidth, bool asLine, bool fullWidth, int barCount, double);

    // Texts, numbers, icons (TextPainters.cpp, IconPainter.cpp)

    /// A text per bar at a price. Columns: condition, price, text.
    void drawText(QPainter* painter, QRect& rect, RPCFormulaResultCache& cache, QPair<double, double> range,
                  int outputIndex, int startIndex, int endIndex, int xOffset, int barCount);

    /// One text at a fixed place, from the last value of each column: condition, mode (0: x and y in pixels,
    /// 1: in per mille of the pane), x, y, text. The two ints are not read.
    void drawTextEx(QPainter* painter, QRect& rect, RPCFormulaResultCache& cache, QPair<double, double> range,
                    int outputIndex, int, int);

    /// A number per bar at a price. Columns: condition, price, number, decimals (7 at most).
    void drawNumber(QPainter* painter, QRect& rect, QPair<double, double> range, RPCFormulaResultCache& cache,
                    int startIndex, int endIndex, int outputIndex, int xOffset, bool fullWidth, int barCount);

    /// A 6 by 6 pixel mark per bar at a price. Columns: condition, price, and optionally the shape (1:
    /// ellipse, else rectangle). `iconName` is not read.
    void drawIcon(QPainter* painter, QRect& rect, QString iconName, QPair<double, double> range,
                  RPCFormulaResultCache& cache, int startIndex, int endIndex, int outputIndex, int xOffset,
                  int barCount);

    // Legend (title/LegendText.cpp, title/LegendArrow.cpp, title/LegendPainting.cpp)

    /// Pieces of one formula's legend at a bar, each with the output that it shows (-1 for an overlaid
    /// instrument's piece), in display order.
    /// @param index  bar; below 0 or past the end: the last bar. An invalid bar gives no pieces.
    /// @param stock  the pane's instrument; may be null, prices then have two decimals.
    /// @param addStocks  instruments overlaid on the pane.
    /// @param mainChart  the pane shows prices of `stock`: prices follow its tick, and a key of another
    ///        instrument gives that instrument's single piece.
    /// @param klineParam  may be null; with a positive host count `index` counts bars of the pane's price
    ///        series, and is moved so that this result ends on the same bar.
    /// @return empty when the formula is unknown or has no bars.
    static QList<QPair<int, ArrowColorTextData>> getTitleTextData(
        CFormulaKey key, const RPCFormulaResultCache& cache, int index,
        std::shared_ptr<ttservice::CInstrumentDetail>& stock,
        QList<std::shared_ptr<ttservice::CInstrumentDetail>>& addStocks, bool mainChart,
        boost::shared_ptr<CKLineUiParam> klineParam);

    /// The pieces of getTitleTextData as one row of text.
    static CArrowColorSimpleText getTitleText(CFormulaKey key, const RPCFormulaResultCache& cache, int index,
                                              std::shared_ptr<ttservice::CInstrumentDetail>& stock,
                                              QList<std::shared_ptr<ttservice::CInstrumentDetail>>& addStocks,
                                              bool mainChart, boost::shared_ptr<CKLineUiParam> klineParam);

    /// A row of the given pieces in the legend's font; the output indexes are left out.
    static CArrowColorSimpleText buildTitleText(const QList<QPair<int, ArrowColorTextData>>& pieces);

    /// Whether an output's value rose (1) or fell (2) against the bar before; 0: unchanged, first bar, or
    /// no value. The change pieces of "KLINE" compare closes within 1e-5, its first bar open with close.
    /// @param subLine  position in the output's column list.
    static int getTitleArrow(const se::RPCFormulaResult& result, const se::RPCFormulaMetaResult& meta,
                             int index, CFormulaKey key, int output, int subLine);

    /// Heading of a formula: its name and its parameters in parentheses, "MA(5,10)".
    /// @return false for null, `text` is then left as it was.
    static bool getFormulaText(boost::shared_ptr<CFormulaDetail> formula, QString& text);

    /// Whether a time (milliseconds since 1970-01-01 UTC) falls on a Friday of day 21 or later, local time.
    static bool isPromptDay(long long msecs);

    /// Paints the legend of a pane: row 0 with the values of price formulas and, on a main chart, the
    /// user's trade summary and accounts; row 1 (row 0 off the main chart) with headings and values of all
    /// other formulas. Rows are 16 pixels high, the first at y 0 whatever `rect` says.
    /// @param rect  its left edge and width are used.
    /// @param data  painted in key order.
    /// @param index,stock,addStocks,mainChart,klineParam  as for getTitleTextData.
    /// @param leftOffset  indent of the rows in pixels.
    /// @param accounts,positions,positionFlags  by account; a position shows when both lists reach it, in
    ///        the rise colour where its flag is not 0.
    /// @param totalBuyAmount  this amount and the next four show when they differ from zero by more than
    ///        1e-5; volumes show when they are not 0.
    static void drawTitle(QPainter* painter, QRect& rect,
                          const QMap<CFormulaKey, RPCFormulaResultCache>& data, int index,
                          std::shared_ptr<ttservice::CInstrumentDetail>& stock,
                          QList<std::shared_ptr<ttservice::CInstrumentDetail>>& addStocks,
                          EIndexViewType viewType, int leftOffset, bool mainChart, QList<QString> accounts,
                          QList<int> positions, QList<int> positionFlags, double totalBuyAmount,
                          double totalSellAmount, double netBuyAmount, double profitLoss,
                          double balanceAmount, int buyVolume, int sellVolume, double buyAvgPrice,
                          double sellAvgPrice, boost::shared_ptr<CKLineUiParam> klineParam);

    static QList<int> m_colorList;            ///< palette, 0x00BBGGRR per output position
    static QList<QColor> m_colorListGradient; ///< fill of drawSimpleLine: top, bottom

private:
    /// Sets `penStyle` from the output's line-style code; unknown codes and missing entries leave it. Part
    /// of the fixed interface: hosts hand each painter its pen style themselves, so nothing here calls it.
    static void getLineStyle(int& penStyle, const se::RPCFormulaMetaResult& meta, int outputIndex);
};

} // namespace TC
