#include "engine/formulas/BuiltIns.h"

namespace engine {

namespace {

/// NOTE: one line of text at a fixed place of the pane, given in per mille of its width and height from the
/// top left. It stands over the candles and takes no part in their range.
void compute(const FormulaInput& input, RecordBuilder& records)
{
    constexpr double shown = 1.0, perMille = 1.0; // condition and placement mode
    const std::size_t count = input.bars.size();
    records.output("注", kFixedText);
    for (const double value : { shown, perMille, input.parameters[0], input.parameters[1] })
        records.column(records.series(Series(count, value)), Axis::No);
    records.textColumn(records.texts(std::vector<std::string>(count, "信号仅供参考")));
}

} // namespace

BuiltIn noteFormula()
{
    return { { "NOTE", "NOTE", 1, { { "X", 500, 0, 1000 }, { "Y", 60, 0, 1000 } } }, compute };
}

} // namespace engine
