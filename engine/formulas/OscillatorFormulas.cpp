#include "engine/RecordBuilder.h"
#include "engine/formulas/BuiltIns.h"

#include <algorithm>

namespace engine {

namespace {

/// Moving average convergence and divergence (G. Appel, 1979), with the histogram doubled as Chinese
/// traders draw it: DIF = EMA(C, short) - EMA(C, long); DEA = EMA(DIF, m); MACD = 2 (DIF - DEA).
FormulaRecords macd(const BarSeries& bars, const Arguments& arguments)
{
    const auto difference = [](double a, double b) { return a - b; };
    const Series dif = combine(exponentialMean(bars.close, wholeNumber(arguments, 0)),
                               exponentialMean(bars.close, wholeNumber(arguments, 1)), difference);
    const Series dea = exponentialMean(dif, wholeNumber(arguments, 2));
    RecordBuilder builder(bars.timeMs);
    builder.line("DIF", dif);
    builder.line("DEA", dea);
    builder.output("MACD",
                   { builder.column(combine(dif, dea, [](double a, double b) { return 2.0 * (a - b); })) },
                   { DrawType::ColorStick });
    return builder.take();
}

/// Stochastics (G. Lane): RSV = 100 (C - LLV(L, n)) / (HHV(H, n) - LLV(L, n)), 0 where high and low
/// are equal; K = SMA(RSV, m1, 1); D = SMA(K, m2, 1); J = 3 K - 2 D.
FormulaRecords kdj(const BarSeries& bars, const Arguments& arguments)
{
    const Series top = highest(bars.high, wholeNumber(arguments, 0)),
                 bottom = lowest(bars.low, wholeNumber(arguments, 0));
    const auto difference = [](double a, double b) { return a - b; };
    const Series rsv =
        combine(combine(bars.close, bottom, difference), combine(top, bottom, difference),
                [](double above, double extent) { return extent > 0.0 ? 100.0 * above / extent : 0.0; });
    const Series k = smoothedMean(rsv, wholeNumber(arguments, 1), 1.0);
    const Series d = smoothedMean(k, wholeNumber(arguments, 2), 1.0);
    RecordBuilder builder(bars.timeMs);
    builder.line("K", k);
    builder.line("D", d);
    builder.line("J", combine(k, d, [](double a, double b) { return 3.0 * a - 2.0 * b; }));
    return builder.take();
}

/// Relative strength (J. W. Wilder, New Concepts in Technical Trading Systems, 1978):
/// RSI(n) = 100 SMA(max(change, 0), n, 1) / SMA(|change|, n, 1); missing while no price has changed.
FormulaRecords rsi(const BarSeries& bars, const Arguments& arguments)
{
    Series moves = change(bars.close), rises = moves;
    for (std::size_t bar = 0; bar < moves.size(); ++bar) {
        if (isMissing(moves[bar]))
            continue;
        rises[bar] = std::max(moves[bar], 0.0);
        moves[bar] = std::abs(moves[bar]);
    }
    RecordBuilder builder(bars.timeMs);
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const int period = wholeNumber(arguments, i);
        builder.line(numbered("RSI", period),
                     combine(smoothedMean(rises, period, 1.0), smoothedMean(moves, period, 1.0),
                             [](double up, double all) { return 100.0 * up / all; }));
    }
    return builder.take();
}

} // namespace

std::vector<BuiltIn> oscillatorFormulas()
{
    return {
        { { "MACD", "MACD", 0, { { "SHORT", 12, 1, 9999 }, { "LONG", 26, 1, 9999 }, { "M", 9, 1, 9999 } } },
          macd },
        { { "KDJ", "KDJ", 0, { { "N", 9, 1, 9999 }, { "M1", 3, 1, 9999 }, { "M2", 3, 1, 9999 } } }, kdj },
        { { "RSI", "RSI", 0, { { "N1", 6, 1, 9999 }, { "N2", 12, 1, 9999 }, { "N3", 24, 1, 9999 } } }, rsi },
    };
}

} // namespace engine
