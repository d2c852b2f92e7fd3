/// @file Gives the formula reader bytes of any kind and computes whatever it takes for a formula.

#include "engine/evaluation/FormulaEvaluation.h"

#include <cstdint>
#include <cstdlib>

namespace {

/// A few bars with gaps and a wild price.
engine::BarSeries fewBars()
{
    engine::BarSeries bars;
    for (int bar = 0; bar < 12; ++bar) {
        bars.timeMs.push_back(bar * 86'400'000LL);
        const double price = bar == 5 ? 1e308 : 10.0 + bar % 4;
        bars.open.push_back(price);
        bars.high.push_back(price + 1.0);
        bars.low.push_back(price - 1.0);
        bars.close.push_back(bar == 7 ? 1.7976931348623157e308 : price);
        bars.volume.push_back(100.0 * bar);
    }
    return bars;
}

void require(bool holds)
{
    if (!holds)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const engine::BarSeries bars = fewBars();
    const engine::FormulaReading reading = engine::readFormula({ reinterpret_cast<const char*>(data), size });
    require(reading.problems.empty() == (reading.formula != nullptr));
    if (!reading.formula)
        return 0;
    engine::FormulaEvaluation evaluation(reading.formula);
    require(evaluation.update(bars));
    for (const auto& series : evaluation.records().result.numberSeries)
        require(series.size() == bars.size());
    return 0;
}
