// SPDX-License-Identifier: MIT
/// @file Formulas as texts. The first case computes MACD over a million bars beside the same loops written by
/// hand, counter "ratio"; the others time one more bar for ten formulas of four outputs over a million bars,
/// and the reading of a text of 2,000 statements.

#include "bench/RandomWalk.h"
#include "engine/evaluation/FormulaEvaluation.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <string>

namespace {

using Clock = std::chrono::steady_clock;
using Series = std::vector<double>;

constexpr std::size_t kBars = 1'000'000;

engine::BarSeries walk(std::size_t count)
{
    const bench::RandomWalk prices(count);
    engine::BarSeries bars;
    for (std::size_t bar = 0; bar < count; ++bar)
        bars.timeMs.push_back(static_cast<std::int64_t>(bar) * 60'000);
    bars.open = prices.open;
    bars.high = prices.high;
    bars.low = prices.low;
    bars.close = prices.close;
    bars.volume = prices.volume;
    return bars;
}

std::shared_ptr<const engine::Formula> formulaOf(const std::string& text)
{
    auto formula = engine::readFormula(text).formula;
    if (!formula)
        std::abort();
    return formula;
}

Series averageByHand(const Series& values, double period)
{
    Series averages(values.size());
    double average = values.front();
    for (std::size_t bar = 0; bar < values.size(); ++bar) {
        average += 2.0 / (period + 1.0) * (values[bar] - average);
        averages[bar] = average;
    }
    return averages;
}

void macdByHand(const Series& close)
{
    const Series fast = averageByHand(close, 12), slow = averageByHand(close, 26);
    Series difference(close.size()), histogram(close.size());
    for (std::size_t bar = 0; bar < close.size(); ++bar)
        difference[bar] = fast[bar] - slow[bar];
    const Series signal = averageByHand(difference, 9);
    for (std::size_t bar = 0; bar < close.size(); ++bar)
        histogram[bar] = 2.0 * (difference[bar] - signal[bar]);
    benchmark::DoNotOptimize(histogram.data());
}

void computeMacd(benchmark::State& state)
{
    const engine::BarSeries bars = walk(kBars);
    const auto formula =
        formulaOf("DIF:EMA(CLOSE,12)-EMA(CLOSE,26);DEA:EMA(DIF,9);MACD:2*(DIF-DEA),COLORSTICK;");
    Clock::duration computing {}, byHand {};
    for (auto _ : state) {
        const auto start = Clock::now();
        engine::FormulaEvaluation evaluation(formula, {}, engine::FormulaEvaluation::Mode::Once);
        benchmark::DoNotOptimize(evaluation.update(bars));
        const auto computed = Clock::now();
        macdByHand(bars.close);
        byHand += Clock::now() - computed;
        computing += computed - start;
        state.SetIterationTime(std::chrono::duration<double>(computed - start).count());
    }
    state.counters["ratio"] = static_cast<double>(computing.count()) / static_cast<double>(byHand.count());
}

/// Adds a bar like one of the first thousand.
void appendOne(engine::BarSeries& bars)
{
    const std::size_t source = bars.size() % 1000;
    bars.timeMs.push_back(bars.timeMs.back() + 60'000);
    for (Series* column : { &bars.open, &bars.high, &bars.low, &bars.close, &bars.volume })
        column->push_back((*column)[source]);
}

void appendOneBar(benchmark::State& state)
{
    engine::BarSeries bars = walk(kBars);
    std::vector<std::unique_ptr<engine::FormulaEvaluation>> evaluations;
    for (int formula = 1; formula <= 10; ++formula) {
        const std::string period = std::to_string(5 * formula);
        evaluations.push_back(std::make_unique<engine::FormulaEvaluation>(
            formulaOf("MID:MA(CLOSE," + period + ");UPPER:MID+2*STD(CLOSE," + period + ");TREND:EMA(CLOSE,"
                      + period + ")-MID;HIGHEST:HHV(HIGH," + period + ");")));
        evaluations.back()->update(bars);
    }
    appendOne(bars); // makes room for later ones
    for (const auto& evaluation : evaluations)
        evaluation->update(bars);
    for (auto _ : state) {
        appendOne(bars);
        for (const auto& evaluation : evaluations)
            benchmark::DoNotOptimize(evaluation->update(bars));
    }
}

void readText(benchmark::State& state)
{
    std::string text = "V0:=CLOSE;\n";
    for (int statement = 1; statement < 1999; ++statement)
        text += "V" + std::to_string(statement) + ":=EMA(V" + std::to_string(statement - 1) + ","
            + std::to_string(statement % 20 + 1) + ")+(HIGH-LOW)/2;\n";
    text += "RESULT:V1998;\n";
    for (auto _ : state)
        benchmark::DoNotOptimize(formulaOf(text));
}

} // namespace

BENCHMARK(computeMacd)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(appendOneBar)->Unit(benchmark::kMillisecond);
BENCHMARK(readText)->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
