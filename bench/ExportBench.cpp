/// @file Text export of one formula of 10 outputs and 1,000,000 bars.
///
/// Counters: `to_floor`, time divided by the time of writing the same numbers and times with std::to_chars
/// into one buffer; `to_stream`, time divided by the time of a plain std::ostringstream writing.

#include "bench/RandomWalk.h"
#include "data/IndexBaseData.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>

#include <charconv>
#include <chrono>
#include <ctime>
#include <functional>
#include <locale>
#include <sstream>

namespace {

constexpr std::size_t kOutputs = 10, kBars = 1'000'000;
constexpr std::int64_t kDayMs = 86'400'000;

TC::RPCFormulaResultCache tenOutputs()
{
    const bench::RandomWalk walk(kBars);
    TC::RPCFormulaResultCache cache =
        bench::recordOf(0, std::vector<std::vector<double>>(kOutputs, walk.close));
    cache.meta.outputCount = kOutputs;
    cache.meta.outputNames.assign(kOutputs, "value");
    cache.meta.outputColumns.clear();
    for (std::size_t output = 0; output < kOutputs; ++output)
        cache.meta.outputColumns.push_back({ static_cast<int>(output) });
    for (std::size_t bar = 0; bar < kBars; ++bar)
        cache.result.barTimes[bar].msecs = static_cast<std::int64_t>(bar % 20'000) * kDayMs;
    return cache;
}

double secondsOf(const std::function<void()>& call)
{
    const auto begin = std::chrono::steady_clock::now();
    call();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

std::tm localTime(std::int64_t msecs)
{
    const std::time_t seconds = static_cast<std::time_t>(msecs / 1000);
    std::tm local {};
    localtime_r(&seconds, &local);
    return local;
}

std::string throughAStream(const TC::RPCFormulaResultCache& cache)
{
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out << std::fixed;
    out.precision(4);
    for (std::size_t bar = 0; bar < kBars; ++bar) {
        const std::tm local = localTime(cache.result.barTimes[bar].msecs);
        out << local.tm_year + 1900 << '/' << local.tm_mon + 1 << '/' << local.tm_mday;
        for (const auto& series : cache.result.numberSeries)
            out << ',' << series[bar];
        out << '\n';
    }
    return out.str();
}

std::size_t intoOneBuffer(const TC::RPCFormulaResultCache& cache, std::vector<char>& buffer)
{
    char *to = buffer.data(), *const end = to + buffer.size();
    for (std::size_t bar = 0; bar < kBars; ++bar) {
        const std::tm local = localTime(cache.result.barTimes[bar].msecs);
        for (int part : { local.tm_year + 1900, local.tm_mon + 1, local.tm_mday })
            to = std::to_chars(to, end, part).ptr;
        for (const auto& series : cache.result.numberSeries) {
            *to++ = ',';
            to = std::to_chars(to, end, series[bar], std::chars_format::fixed, 4).ptr;
        }
        *to++ = '\n';
    }
    return static_cast<std::size_t>(to - buffer.data());
}

void exportText(benchmark::State& state)
{
    TC::RPCFormulaResultCache cache = tenOutputs();
    TC::IndexBaseData data(nullptr);
    std::string text;
    const auto writeText = [&] { text = data.getResultTxtStr(cache.result, cache.meta, false); };
    for (auto _ : state)
        writeText();
    std::vector<char> buffer(text.size() + 4096);
    intoOneBuffer(cache, buffer); // touches the memory
    const double own = secondsOf(writeText);
    state.counters["to_floor"] =
        own / secondsOf([&] { benchmark::DoNotOptimize(intoOneBuffer(cache, buffer)); });
    state.counters["to_stream"] = own / secondsOf([&] { benchmark::DoNotOptimize(throughAStream(cache)); });
}

BENCHMARK(exportText)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
