#include "engine/formulas/BuiltIns.h"

namespace engine {

namespace {

/// What the day's change is measured against: the close before; on the first bar its own open.
Series referencePrice(const BarSeries& bars)
{
    Series reference(bars.size(), kMissing);
    for (std::size_t bar = 0; bar < bars.size(); ++bar)
        reference[bar] = valueOrMissing(bar == 0 ? bars.open[0] : bars.close[bar - 1]);
    return reference;
}

double ratio(double part, double whole)
{
    return whole == 0.0 ? kMissing : part / whole;
}

/// KLINE: candles, and the figures of a bar for the legend.
///
///   涨跌 = close - previous close;  涨跌百分比 = 涨跌 / previous close;  振幅 = (high - low) / previous
///   close
///
/// The two ratios are fractions (0.01 is one per cent). 成交额 and 持仓量 stand only where the bars have
/// them.
void compute(const FormulaInput& input, RecordBuilder& records)
{
    const BarSeries& bars = input.bars;
    const auto difference = [](double a, double b) { return a - b; };
    const int open = records.series(bars.open), high = records.series(bars.high);
    const int low = records.series(bars.low), close = records.series(bars.close);

    records.output("KLINE", kCandles);
    for (const int price : { open, high, low, close })
        records.column(price, Axis::Yes);
    records.legendOnly("开", open).legendOnly("高", high).legendOnly("低", low).legendOnly("收", close);
    records.legendOnly("成交量", records.series(bars.volume));
    if (!bars.amount.empty())
        records.legendOnly("成交额", records.series(bars.amount));
    if (input.cancelled())
        return;

    const Series reference = referencePrice(bars);
    Series change = combine(bars.close, reference, difference);
    Series changeRatio = combine(change, reference, ratio);
    Series amplitude = combine(combine(bars.high, bars.low, difference), reference, ratio);
    records.legendOnly("涨跌", records.series(std::move(change)));
    records.legendOnly("涨跌百分比", records.series(std::move(changeRatio)));
    records.legendOnly("振幅", records.series(std::move(amplitude)));
    if (!bars.openInterest.empty())
        records.legendOnly("持仓量", records.series(bars.openInterest));
}

} // namespace

BuiltIn candlesFormula()
{
    return { { "KLINE", "KLINE", 2, {} }, compute };
}

} // namespace engine
