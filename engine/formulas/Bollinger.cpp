#include "engine/formulas/BuiltIns.h"

namespace engine {

namespace {

/// BOLL: Bollinger bands of the close.
///
///   MID = MA(C, N);  UPPER = MID + P STD(C, N);  LOWER = MID - P STD(C, N)
///
/// STD is the sample deviation, as the formula languages of Chinese clients define it; J. Bollinger's own
/// text
/// ("Bollinger on Bollinger Bands", 2001) divides by N instead of N - 1, which gives bands narrower by 2.5
/// per cent at N = 20.
void compute(const FormulaInput& input, RecordBuilder& records)
{
    const int period = input.period(0);
    const double width = input.parameters[1];
    Series middle = movingAverage(input.bars.close, period);
    if (input.cancelled())
        return;
    const Series deviation = standardDeviation(input.bars.close, period);
    Series upper = combine(middle, deviation, [&](double m, double d) { return m + width * d; });
    Series lower = combine(middle, deviation, [&](double m, double d) { return m - width * d; });
    records.line("MID", std::move(middle));
    records.line("UPPER", std::move(upper));
    records.line("LOWER", std::move(lower));
}

} // namespace

BuiltIn bollingerFormula()
{
    return { { "BOLL", "BOLL", 1, { periodParameter("N", 20), { "P", 2, 0, 100 } } }, compute };
}

} // namespace engine
