#include "engine/formulas/BuiltIns.h"

namespace engine {

namespace {

/// Number of bars in a row, this one included, whose close is above the close before.
Series risingRun(const Series& close)
{
    Series run(close.size(), 0.0);
    for (std::size_t bar = 1; bar < close.size(); ++bar) {
        if (isValue(close[bar]) && isValue(close[bar - 1]) && close[bar] > close[bar - 1])
            run[bar] = run[bar - 1] + 1.0;
    }
    return run;
}

/// RISINGDAYS: the number of rising bars in a row above the candle, from N bars on. It belongs over the
/// candles; the legend shows the number on every bar.
void compute(const FormulaInput& input, RecordBuilder& records)
{
    constexpr int usualBars = 20; // over which the usual height of a candle is taken
    const BarSeries& bars = input.bars;
    const Series reach =
        movingAverage(combine(bars.high, bars.low, [](double a, double b) { return a - b; }), usualBars);
    if (input.cancelled())
        return;
    Series run = risingRun(bars.close);
    Series condition(bars.size(), 0.0), price(bars.size(), kMissing);
    for (std::size_t bar = 0; bar < bars.size(); ++bar) {
        if (run[bar] < input.parameters[0] || !isValue(bars.high[bar]))
            continue;
        condition[bar] = 1.0;
        price[bar] = valueOrMissing(bars.high[bar] + (isValue(reach[bar]) ? 0.25 * reach[bar] : 0.0));
    }
    const int number = records.series(std::move(run));
    const int shown = records.series(std::move(condition)), at = records.series(std::move(price));
    const int decimals = records.series(Series(bars.size(), 0.0));
    records.output("连涨", kNumber).position(kCentred);
    records.column(shown, Axis::No).column(at, Axis::Yes).column(number, Axis::No).column(decimals, Axis::No);
    records.legendOnly("连涨天数", number).valueKind(kIntegerValue);
}

} // namespace

BuiltIn risingDaysFormula()
{
    return { { "RISINGDAYS", "RISINGDAYS", 1, { periodParameter("N", 3) } }, compute };
}

} // namespace engine
