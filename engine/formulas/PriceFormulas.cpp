#include "engine/RecordBuilder.h"
#include "engine/formulas/BuiltIns.h"

namespace engine {

namespace {

/// Turnover of bars: as given, else missing.
Series amountOf(const BarSeries& bars)
{
    return bars.amount.empty() ? Series(bars.size(), kMissing) : bars.amount;
}

/// The values of the bar before; missing at the first.
Series previous(const Series& values)
{
    Series result(values.size(), kMissing);
    for (std::size_t bar = 1; bar < values.size(); ++bar)
        result[bar] = values[bar - 1];
    return result;
}

/// Candles, and what the legend says about a bar:
///   涨跌 = close - previous close; 涨跌百分比 = 涨跌 / previous close;
///   振幅 = (high - low) / previous close. The last two are fractions.
FormulaRecords kline(const BarSeries& bars, const Arguments&)
{
    RecordBuilder builder(bars.timeMs);
    const int open = builder.column(bars.open), high = builder.column(bars.high),
              low = builder.column(bars.low), close = builder.column(bars.close);
    const OutputStyle legendOnly { DrawType::Line, 0 };
    const auto legendLine = [&](const char* name, Series values) {
        builder.output(name, { builder.column(std::move(values), false) }, legendOnly);
    };
    const Series before = previous(bars.close);
    const Series change = combine(bars.close, before, [](double now, double then) { return now - then; });
    const Series extent =
        combine(bars.high, bars.low, [](double top, double bottom) { return top - bottom; });
    const auto ratio = [](double part, double whole) { return part / whole; };

    builder.output("KLINE", { open, high, low, close }, { DrawType::Candle });
    builder.output("开", { open }, legendOnly);
    builder.output("高", { high }, legendOnly);
    builder.output("低", { low }, legendOnly);
    builder.output("收", { close }, legendOnly);
    legendLine("成交量", bars.volume);
    if (!bars.amount.empty())
        legendLine("成交额", amountOf(bars));
    legendLine("涨跌", change);
    legendLine("涨跌百分比", combine(change, before, ratio));
    legendLine("振幅", combine(extent, before, ratio));
    if (!bars.openInterest.empty())
        legendLine("持仓量", bars.openInterest);
    return builder.take();
}

/// Simple moving averages: MA(n) = (C1 + ... + Cn) / n over the last n closes.
FormulaRecords movingAverages(const BarSeries& bars, const Arguments& arguments)
{
    RecordBuilder builder(bars.timeMs);
    for (std::size_t i = 0; i < arguments.size(); ++i)
        builder.line(numbered("MA", wholeNumber(arguments, i)), mean(bars.close, wholeNumber(arguments, i)));
    return builder.take();
}

/// Bollinger bands: MID = MA(n); UPPER, LOWER = MID +- k standard deviations of the last n closes, the
/// population form (J. Bollinger, Bollinger on Bollinger Bands, 2001).
FormulaRecords bollingerBands(const BarSeries& bars, const Arguments& arguments)
{
    const int period = wholeNumber(arguments, 0);
    const double widths = arguments[1];
    const Series middle = mean(bars.close, period), spread = deviation(bars.close, period);
    RecordBuilder builder(bars.timeMs);
    builder.line("MID", middle);
    builder.line("UPPER", combine(middle, spread, [widths](double m, double s) { return m + widths * s; }));
    builder.line("LOWER", combine(middle, spread, [widths](double m, double s) { return m - widths * s; }));
    return builder.take();
}

} // namespace

std::vector<BuiltIn> priceFormulas()
{
    return {
        { { "KLINE", "KLINE", 2, {} }, kline },
        { { "MA",
            "MA",
            1,
            { { "N1", 5, 1, 9999 }, { "N2", 10, 1, 9999 }, { "N3", 20, 1, 9999 }, { "N4", 60, 1, 9999 } } },
          movingAverages },
        { { "BOLL", "BOLL", 1, { { "N", 20, 2, 9999 }, { "K", 2, 0, 100 } } }, bollingerBands },
    };
}

} // namespace engine
