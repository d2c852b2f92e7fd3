// SPDX-License-Identifier: MIT
/// @file A formula of 10 outputs written as text, against a plain stream and against the floor.
///
/// Each round writes the same records three ways: the export, an ostringstream that spells out the layout,
/// and std::to_chars of the numbers alone into one buffer that is large enough. The counters are ratios
/// within one run. Before anything is timed, the export is compared with the stream's text.

#include "data/IndexBaseData.h"

#include <benchmark/benchmark.h>

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <iomanip>
#include <iostream>
#include <locale>
#include <random>
#include <sstream>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kOutputCount = 10;

struct Records
{
    se::RPCFormulaResult result;
    se::RPCFormulaMetaResult meta;
};

/// Minute bars from 2024 on; five outputs of prices with four fixed decimals, five of general numbers
/// (oscillators, volumes), as formulas give them: sums and means, not round numbers.
Records formulaOf(int barCount)
{
    std::mt19937 random(20240105);
    std::normal_distribution<double> step(0.0, 1.0);
    const auto count = static_cast<std::size_t>(barCount);
    Records records;
    records.result.barTimes.resize(count);
    records.result.barValid.assign(count, 1);
    for (std::size_t bar = 0; bar < count; ++bar)
        records.result.barTimes[bar].msecs = 1'704'418'200'000 + static_cast<std::int64_t>(bar) * 60'000;
    for (int output = 0; output < kOutputCount; ++output) {
        std::vector<double> values(count);
        double level = output % 2 == 0 ? 3000.0 : std::pow(10.0, output);
        for (double& value : values)
            value = level += step(random) * level * 1e-4;
        records.result.numberSeries.push_back(std::move(values));
        records.result.columnSeries.push_back(output);
        records.result.columnType.push_back(output % 2);
        records.result.columnNeedsAxis.push_back(1);
        records.meta.outputNames.push_back("MA" + std::to_string(output));
        records.meta.outputColumns.push_back({ output });
    }
    records.meta.outputCount = kOutputCount;
    return records;
}

void streamTime(std::ostream& out, std::int64_t msecs)
{
    const std::time_t seconds = static_cast<std::time_t>(msecs / 1000);
    std::tm local {};
    localtime_r(&seconds, &local);
    out << std::setfill('0') << std::setw(4) << local.tm_year + 1900 << '/' << std::setw(2)
        << local.tm_mon + 1 << '/' << std::setw(2) << local.tm_mday << ' ' << std::setw(2) << local.tm_hour
        << ':' << std::setw(2) << local.tm_min;
}

std::string throughStream(const Records& records)
{
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out << "时间";
    for (const std::string& name : records.meta.outputNames)
        out << ',' << name;
    out << '\n';
    for (std::size_t bar = 0; bar < records.result.barTimes.size(); ++bar) {
        streamTime(out, records.result.barTimes[bar].msecs);
        for (std::size_t column = 0; column < kOutputCount; ++column) {
            out << ',';
            if (records.result.columnType[column] == 0)
                out << std::fixed << std::setprecision(4);
            else
                out << std::defaultfloat << std::setprecision(6);
            out << records.result.numberSeries[column][bar];
        }
        out << '\n';
    }
    return out.str();
}

/// The numbers and their commas only: no header, no times.
std::size_t throughToChars(const Records& records, std::vector<char>& buffer)
{
    char* const end = buffer.data() + buffer.size();
    char* next = buffer.data();
    for (std::size_t bar = 0; bar < records.result.barTimes.size(); ++bar) {
        for (std::size_t column = 0; column < kOutputCount; ++column) {
            *next++ = ',';
            const double value = records.result.numberSeries[column][bar];
            next = records.result.columnType[column] == 0
                ? std::to_chars(next, end, value, std::chars_format::fixed, 4).ptr
                : std::to_chars(next, end, value, std::chars_format::general, 6).ptr;
        }
        *next++ = '\n';
    }
    return static_cast<std::size_t>(next - buffer.data());
}

template <class Work>
double secondsOf(const Work& work)
{
    const auto start = Clock::now();
    work();
    return std::chrono::duration<double>(Clock::now() - start).count();
}

void exportText(benchmark::State& state)
{
    const int barCount = static_cast<int>(state.range(0));
    Records records = formulaOf(barCount);
    TC::IndexBaseData data(nullptr);
    std::vector<char> buffer(static_cast<std::size_t>(barCount) * kOutputCount * 24 + 400);
    if (data.getResultTxtStr(records.result, records.meta, true) != throughStream(records)) {
        state.SkipWithError("the export differs from the stream's text");
        return;
    }
    double exporting = 0.0, streaming = 0.0, flooring = 0.0;
    for (auto _ : state) {
        const double taken = secondsOf(
            [&] { benchmark::DoNotOptimize(data.getResultTxtStr(records.result, records.meta, true)); });
        streaming += secondsOf([&] { benchmark::DoNotOptimize(throughStream(records)); });
        flooring += secondsOf([&] { benchmark::DoNotOptimize(throughToChars(records, buffer)); });
        exporting += taken;
        state.SetIterationTime(taken);
    }
    state.counters["export/stream"] = exporting / streaming;
    state.counters["export/to_chars"] = exporting / flooring;
}

} // namespace

BENCHMARK(exportText)->Arg(1'000'000)->UseManualTime()->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
