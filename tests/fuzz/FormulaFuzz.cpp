// SPDX-License-Identifier: MIT
/// @file Gives the formula reader bytes of any kind and computes whatever it takes for a formula, over bars
/// that grow and with parameters of any kind.

#include "engine/Formulas.h"
#include "engine/evaluation/FormulaEvaluation.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

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

engine::BarSeries firstBars(engine::BarSeries bars, std::size_t count)
{
    bars.timeMs.resize(count);
    for (auto* column : { &bars.open, &bars.high, &bars.low, &bars.close, &bars.volume })
        column->resize(count);
    return bars;
}

void require(bool holds)
{
    if (!holds)
        std::abort();
}

/// Requires columns of full length that are equal bit for bit.
void requireSame(const std::vector<std::vector<double>>& a, const std::vector<std::vector<double>>& b,
                 std::size_t bars)
{
    require(a.size() == b.size());
    for (std::size_t series = 0; series < a.size(); ++series) {
        require(a[series].size() == bars && b[series].size() == bars);
        require(std::memcmp(a[series].data(), b[series].data(), bars * sizeof(double)) == 0);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const engine::BarSeries bars = fewBars();
    const engine::FormulaReading reading = engine::readFormula({ reinterpret_cast<const char*>(data), size });
    require(reading.problems.empty() == (reading.formula != nullptr));
    if (!reading.formula)
        return 0;
    const double first =
        size > 0 ? static_cast<double>(data[0]) - 100.0 : 0.0; // whatever parameters there are
    const std::vector<double> parameters { first, first / 7.0, 1e300 };
    engine::FormulaEvaluation evaluation(reading.formula, parameters);
    engine::BarSeries grown = firstBars(bars, bars.size() - 3);
    require(evaluation.update(grown));
    grown = bars; // three bars more
    require(evaluation.update(grown));
    engine::FormulaEvaluation anew(reading.formula, parameters);
    require(anew.update(bars));
    requireSame(evaluation.records().result.numberSeries, anew.records().result.numberSeries, bars.size());
    return 0;
}
