#include "engine/formulas/BuiltIns.h"

#include <algorithm>
#include <cmath>

namespace engine {

namespace {

/// Change of the close against the bar before; missing on the first.
Series closeChange(const Series& close)
{
    Series change(close.size(), kMissing);
    for (std::size_t bar = 1; bar < close.size(); ++bar) {
        if (isValue(close[bar]) && isValue(close[bar - 1]))
            change[bar] = valueOrMissing(close[bar] - close[bar - 1]);
    }
    return change;
}

/// RSI: relative strength index (J. W. Wilder, "New Concepts in Technical Trading Systems", 1978).
///
///   RSI(N) = SMA(max(C - C', 0), N, 1) / SMA(|C - C'|, N, 1) * 100
///
/// Wilder begins with a plain mean of N changes; here, as in Chinese clients, the averages begin with the
/// first change. Prices that have never moved have no strength either way: 50.
void compute(const FormulaInput& input, RecordBuilder& records)
{
    const Series change = closeChange(input.bars.close);
    const Series rise = combine(change, change, [](double c, double) { return std::max(c, 0.0); });
    const Series size = combine(change, change, [](double c, double) { return std::abs(c); });
    for (std::size_t line = 0; line < input.parameters.size() && !input.cancelled(); ++line) {
        const int period = input.period(line);
        records.line(periodName("RSI", period),
                     combine(smoothedAverage(rise, period, 1), smoothedAverage(size, period, 1),
                             [](double up, double all) { return all == 0.0 ? 50.0 : up / all * 100.0; }));
    }
}

} // namespace

BuiltIn rsiFormula()
{
    return { { "RSI",
               "RSI",
               0,
               { periodParameter("N1", 6), periodParameter("N2", 12), periodParameter("N3", 24) } },
             compute };
}

} // namespace engine
