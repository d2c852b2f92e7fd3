#include "engine/formulas/BuiltIns.h"

namespace engine {

namespace {

/// VOL: volume sticks in the colour of their candle, and moving averages of the volume.
void compute(const FormulaInput& input, RecordBuilder& records)
{
    const BarSeries& bars = input.bars;
    const int volume = records.series(bars.volume);
    const int open = records.series(bars.open), close = records.series(bars.close);
    records.output("VOL", kVolume);
    records.column(volume, Axis::Yes).column(open, Axis::No).column(close, Axis::No);
    for (std::size_t line = 0; line < input.parameters.size() && !input.cancelled(); ++line) {
        const int period = input.period(line);
        records.line(periodName("MA", period), movingAverage(bars.volume, period));
    }
}

} // namespace

BuiltIn volumeFormula()
{
    return { { "VOL", "VOL", 0, { periodParameter("M1", 5), periodParameter("M2", 10) } }, compute };
}

} // namespace engine
