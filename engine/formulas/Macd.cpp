#include "engine/formulas/BuiltIns.h"

namespace engine {

namespace {

/// MACD: moving average convergence and divergence (G. Appel, "Technical Analysis: Power Tools for Active
/// Investors", 2005).
///
///   DIF = EMA(C, SHORT) - EMA(C, LONG);  DEA = EMA(DIF, MID);  MACD = 2 (DIF - DEA)
///
/// The histogram is doubled, as Chinese clients show it.
void compute(const FormulaInput& input, RecordBuilder& records)
{
    const auto difference = [](double a, double b) { return a - b; };
    const Series& close = input.bars.close;
    Series dif = combine(exponentialAverage(close, input.period(0)),
                         exponentialAverage(close, input.period(1)), difference);
    if (input.cancelled())
        return;
    Series dea = exponentialAverage(dif, input.period(2));
    const int histogram = records.series(combine(dif, dea, [](double a, double b) { return 2.0 * (a - b); }));
    records.line("DIF", std::move(dif));
    records.line("DEA", std::move(dea));
    records.output("MACD", kColorStick).column(histogram, Axis::Yes);
}

} // namespace

BuiltIn macdFormula()
{
    return { { "MACD",
               "MACD",
               0,
               { periodParameter("SHORT", 12), periodParameter("LONG", 26), periodParameter("MID", 9) } },
             compute };
}

} // namespace engine
