// SPDX-License-Identifier: MIT
#pragma once
/// @file Bars for the engine's tests.

#include "engine/files/BarFile.h"
#include "engine/Formulas.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <random>
#include <string>
#include <vector>

namespace test {

/// Daily bars with the given closes; open = high = low = close and volume 100 unless set afterwards.
inline engine::BarSeries barsOf(const std::vector<double>& closes)
{
    engine::BarSeries bars;
    bars.open = bars.high = bars.low = bars.close = closes;
    bars.volume.assign(closes.size(), 100.0);
    for (std::size_t bar = 0; bar < closes.size(); ++bar)
        bars.timeMs.push_back(static_cast<std::int64_t>(bar) * 86'400'000);
    return bars;
}

/// Bars of a bundled file ("SH000001").
inline engine::BarSeries sampleBars(const std::string& name)
{
    std::string failure;
    const auto bars = engine::readBars(SAMPLES_DIR "/bars/" + name + ".csv", failure);
    EXPECT_TRUE(bars) << failure;
    return bars.value_or(engine::BarSeries());
}

/// A random walk of `count` bars.
inline engine::BarSeries randomBars(unsigned seed, std::size_t count)
{
    std::mt19937 random(seed);
    std::normal_distribution<double> step(0.0, 1.0);
    engine::BarSeries bars = barsOf(std::vector<double>(count, 0.0));
    double price = 100.0;
    for (std::size_t bar = 0; bar < count; ++bar) {
        bars.open[bar] = price + step(random) * 0.2;
        price = std::max(1.0, price + step(random));
        bars.close[bar] = price;
        bars.high[bar] = std::max(bars.open[bar], price) + std::abs(step(random)) * 0.3;
        bars.low[bar] = std::min(bars.open[bar], price) - std::abs(step(random)) * 0.3;
        bars.volume[bar] = 1000.0 + std::abs(step(random)) * 500.0;
    }
    return bars;
}

/// The records of a formula that must be computable.
inline engine::FormulaRecords computed(const std::string& name, const engine::BarSeries& bars,
                                       const std::vector<double>& parameters = {})
{
    auto records = engine::computeFormula(name, bars, parameters);
    EXPECT_TRUE(records) << name;
    return std::move(records).value_or(engine::FormulaRecords());
}

/// Position of an output by name, -1 when there is none.
inline int outputOf(const engine::FormulaRecords& records, const std::string& name)
{
    for (std::size_t output = 0; output < records.meta.outputNames.size(); ++output) {
        if (records.meta.outputNames[output] == name)
            return static_cast<int>(output);
    }
    return -1;
}

/// The series behind the k-th column of a named output, DBL_MAX where there is no value; empty when there is
/// no such column.
inline std::vector<double> seriesOf(const engine::FormulaRecords& records, const std::string& output,
                                    std::size_t k = 0)
{
    const int index = outputOf(records, output);
    if (index < 0 || records.meta.outputColumns[static_cast<std::size_t>(index)].size() <= k) {
        ADD_FAILURE() << "no output \"" << output << "\" with column " << k;
        return {};
    }
    const int column = records.meta.outputColumns[static_cast<std::size_t>(index)][k];
    std::vector<double> series = records.result.numberSeries.at(
        static_cast<std::size_t>(records.result.columnSeries.at(static_cast<std::size_t>(column))));
    std::replace_if(
        series.begin(), series.end(), [](double value) { return std::isnan(value); }, DBL_MAX);
    return series;
}

/// The only output of a text over bars with the given closes and volumes.
inline std::vector<double> valuesOf(const std::string& expression, const std::vector<double>& closes,
                                    const std::vector<double>& volumes = {})
{
    engine::BarSeries bars = barsOf(closes);
    if (!volumes.empty())
        bars.volume = volumes;
    const engine::FormulaReading reading = engine::readFormula("X:" + expression + ";");
    EXPECT_TRUE(reading.formula) << expression;
    const auto records = engine::computeFormula(reading.formula, bars);
    return records ? seriesOf(*records, "X") : std::vector<double>();
}

} // namespace test
