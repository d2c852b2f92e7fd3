#include "engine/formulas/BuiltIns.h"

namespace engine {

namespace {

/// MA: simple moving averages of the close.
///
///   MA(n) = (C + C' + ... over n bars) / n
void compute(const FormulaInput& input, RecordBuilder& records)
{
    for (std::size_t line = 0; line < input.parameters.size() && !input.cancelled(); ++line) {
        const int period = input.period(line);
        records.line(periodName("MA", period), movingAverage(input.bars.close, period));
    }
}

} // namespace

BuiltIn movingAverageFormula()
{
    return { { "MA",
               "MA",
               1,
               { periodParameter("N1", 5), periodParameter("N2", 10), periodParameter("N3", 20),
                 periodParameter("N4", 60) } },
             compute };
}

} // namespace engine
