// SPDX-License-Identifier: MIT
/// @file Formulas as texts, over a million bars. The cases "besidePlain" compute a formula, its records
/// included, beside a loop written by hand (PlainFormulas.h), by turns in one run: counters "own", "lines"
/// (the loop that leaves lines alone) and "same" (the loop that delivers what the engine does, with sums that
/// do not drift) are milliseconds of thread time, low quantiles; "ratio" is what the engine takes of "same",
/// "ofLines" of "lines". "changingWindow" compares windows of changing length with those of one length;
/// "appendOneBar" times one more bar for every built-in formula, "appendToTen" one for ten formulas of four
/// outputs, "readText" the reading of 2,000 statements.

#include "bench/PlainFormulas.h"
#include "bench/RandomWalk.h"
#include "engine/Formulas.h"
#include "engine/evaluation/FormulaEvaluation.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>

#include <malloc.h>

namespace {

using Series = std::vector<double>;
using engine::FormulaEvaluation;

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

/// Milliseconds that this thread has worked.
double threadTime()
{
    timespec time;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

double lowQuantile(Series values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 5];
}

/// Ends the program unless both say the same but for rounding.
void compare(const char* name, const engine::FormulaRecords& records, const bench::Lines& lines)
{
    for (std::size_t line = 0; line < lines.size(); ++line) {
        const auto column = static_cast<std::size_t>(records.meta.outputColumns[line][0]);
        const auto series = static_cast<std::size_t>(records.result.columnSeries[column]);
        const Series& own = records.result.numberSeries[series];
        for (std::size_t bar = 100; bar < kBars; ++bar) { // where every line has begun
            const double plain = lines[line][bar];
            const bool isSame = std::abs(own[bar] - plain) <= 1e-6 * std::max(1.0, std::abs(plain))
                || (std::isnan(own[bar]) && std::isnan(plain)) || own[bar] == plain;
            if (isSame)
                continue;
            std::fprintf(stderr, "%s: line %zu, bar %zu: %g instead of %g\n", name, line, bar, own[bar],
                         plain);
            std::exit(1);
        }
    }
}

struct Contest
{
    const char* name;
    const char* text; ///< null: the built-in formula of the name
    bench::Lines (*plain)(const engine::BarSeries&);
    bench::Lines (*exact)(const engine::BarSeries&); ///< with sums that do not drift
};

constexpr Contest kContests[] = {
    { "MACD", nullptr, bench::plainMacd, bench::plainMacd },
    { "KDJ", nullptr, bench::plainKdj, bench::plainKdj },
    { "BOLL", nullptr, bench::plainBands, bench::plainBands },
    { "MA", nullptr, bench::plainMeans, bench::exactMeans },
    { "SAR", nullptr, bench::plainSar, bench::plainSar },
    { "DMI", nullptr, bench::plainDmi, bench::exactDmi },
    { "HHV", "X:HHV(HIGH,20);", bench::plainHighest, bench::plainHighest },
};

void besidePlain(benchmark::State& state, const Contest& contest)
{
    const engine::BarSeries bars = walk(kBars);
    const auto formula = contest.text ? formulaOf(contest.text) : engine::findBuiltIn(contest.name)->formula;
    Series own, plain, same;
    for (auto _ : state) {
        const double start = threadTime();
        FormulaEvaluation evaluation(formula, {}, FormulaEvaluation::Mode::Once);
        evaluation.update(bars);
        const double computed = threadTime();
        const bench::Lines lines = contest.plain(bars);
        plain.push_back(threadTime() - computed);
        own.push_back(computed - start);
        const double begun = threadTime();
        const engine::FormulaRecords records = bench::sameWork(contest.exact, bars);
        same.push_back(threadTime() - begun);
        benchmark::DoNotOptimize(&records);
        if (own.size() == 1)
            compare(contest.name, evaluation.records(), lines);
        state.SetIterationTime(own.back() / 1e3);
    }
    state.counters["own"] = lowQuantile(own);
    state.counters["lines"] = lowQuantile(plain);
    state.counters["same"] = lowQuantile(same);
    state.counters["ofLines"] = lowQuantile(own) / lowQuantile(plain);
    state.counters["ratio"] = lowQuantile(own) / lowQuantile(same);
}

/// Windows whose length changes from bar to bar, 1 to 39 and back to 1, beside one of 20, both without the
/// line of the lengths; "ratio" is what they take of it.
void changingWindow(benchmark::State& state, const std::string& function)
{
    engine::BarSeries bars = walk(kBars / 4);
    for (std::size_t bar = 0; bar < bars.size(); ++bar)
        bars.volume[bar] = static_cast<double>(bar % 39 + 1);
    const auto timed = [&](const std::string& window) {
        const auto formula = formulaOf("N:VOL;" + window);
        const double start = threadTime();
        FormulaEvaluation evaluation(formula, {}, FormulaEvaluation::Mode::Once);
        evaluation.update(bars);
        return threadTime() - start;
    };
    Series changing, fixed;
    for (auto _ : state) {
        const double lengths = timed("");
        fixed.push_back(timed("X:" + function + "(CLOSE,20);") - lengths);
        changing.push_back(timed("X:" + function + "(CLOSE,N);") - lengths);
        state.SetIterationTime(changing.back() / 1e3);
    }
    state.counters["changing"] = lowQuantile(changing);
    state.counters["fixed"] = lowQuantile(fixed);
    state.counters["ratio"] = lowQuantile(changing) / lowQuantile(fixed);
}

/// Adds a bar like one of the first thousand.
void appendOne(engine::BarSeries& bars)
{
    const std::size_t source = bars.size() % 1000;
    bars.timeMs.push_back(bars.timeMs.back() + 60'000);
    for (Series* column : { &bars.open, &bars.high, &bars.low, &bars.close, &bars.volume })
        column->push_back((*column)[source]);
}

void followBars(benchmark::State& state, const std::vector<std::shared_ptr<const engine::Formula>>& formulas)
{
    engine::BarSeries bars = walk(kBars);
    std::vector<std::unique_ptr<FormulaEvaluation>> evaluations;
    for (const auto& formula : formulas) {
        evaluations.push_back(std::make_unique<FormulaEvaluation>(formula));
        evaluations.back()->update(bars);
    }
    appendOne(bars); // makes room for later ones
    for (const auto& evaluation : evaluations)
        evaluation->update(bars);
    for (auto _ : state) {
        state.PauseTiming();
        appendOne(bars);
        state.ResumeTiming();
        for (const auto& evaluation : evaluations)
            benchmark::DoNotOptimize(evaluation->update(bars));
    }
}

void appendToTen(benchmark::State& state)
{
    std::vector<std::shared_ptr<const engine::Formula>> formulas;
    for (int formula = 1; formula <= 10; ++formula) {
        const std::string period = std::to_string(5 * formula);
        formulas.push_back(formulaOf("MID:MA(CLOSE," + period + ");UPPER:MID+2*STD(CLOSE," + period
                                     + ");TREND:EMA(CLOSE," + period + ")-MID;HIGHEST:HHV(HIGH," + period
                                     + ");"));
    }
    followBars(state, formulas);
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

BENCHMARK(appendToTen)->Unit(benchmark::kMicrosecond);
BENCHMARK(readText)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    for (const Contest& contest : kContests)
        benchmark::RegisterBenchmark((std::string("besidePlain/") + contest.name).c_str(), besidePlain,
                                     contest)
            ->UseManualTime()
            ->Iterations(25)
            ->Unit(benchmark::kMillisecond);
    for (const char* function : { "HHV", "LLV", "SUM", "MA", "AVEDEV" })
        benchmark::RegisterBenchmark((std::string("changingWindow/") + function).c_str(), changingWindow,
                                     function)
            ->UseManualTime()
            ->Iterations(10)
            ->Unit(benchmark::kMillisecond);
    for (const engine::BuiltInFormula& builtIn : engine::builtInFormulas())
        benchmark::RegisterBenchmark(
            ("appendOneBar/" + builtIn.name).c_str(),
            [&builtIn](benchmark::State& state) { followBars(state, { builtIn.formula }); })
            ->Iterations(20'000)
            ->Unit(benchmark::kMicrosecond);
    // Memory goes round inside the program: the system's handing out of fresh pages would take more time than
    // the computing, on either side.
    mallopt(M_MMAP_THRESHOLD, 1 << 30);
    mallopt(M_TRIM_THRESHOLD, INT_MAX);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
