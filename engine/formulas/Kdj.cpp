#include "engine/formulas/BuiltIns.h"

namespace engine {

namespace {

/// Where the close stands between the lowest low and the highest high of the last bars, 0 to 100. Prices that
/// have not moved at all stand in the middle.
Series rawStochastic(const BarSeries& bars, int period)
{
    const Series lowest = lowestOf(bars.low, period);
    const Series highest = highestOf(bars.high, period);
    const auto difference = [](double a, double b) { return a - b; };
    return combine(combine(bars.close, lowest, difference), combine(highest, lowest, difference),
                   [](double above, double extent) { return extent == 0.0 ? 50.0 : above / extent * 100.0; });
}

/// KDJ: the stochastic oscillator (G. Lane, "Lane's Stochastics", 1984) with the J line of Asian traders.
///
///   RSV = (C - LLV(L, N)) / (HHV(H, N) - LLV(L, N)) * 100
///   K = SMA(RSV, M1, 1);  D = SMA(K, M2, 1);  J = 3 K - 2 D
void compute(const FormulaInput& input, RecordBuilder& records)
{
    const Series stochastic = rawStochastic(input.bars, input.period(0));
    if (input.cancelled())
        return;
    Series k = smoothedAverage(stochastic, input.period(1), 1);
    Series d = smoothedAverage(k, input.period(2), 1);
    Series j = combine(k, d, [](double fast, double slow) { return 3.0 * fast - 2.0 * slow; });
    records.line("K", std::move(k));
    records.line("D", std::move(d));
    records.line("J", std::move(j));
}

} // namespace

BuiltIn kdjFormula()
{
    return {
        { "KDJ", "KDJ", 0, { periodParameter("N", 9), periodParameter("M1", 3), periodParameter("M2", 3) } },
        compute
    };
}

} // namespace engine
