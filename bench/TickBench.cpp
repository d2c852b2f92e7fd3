// SPDX-License-Identifier: MIT
/// @file A million trades painted, against the plain walk over the same trades without painting.
///
/// Each round times both, so that the counter "paint/walk" is a ratio within one run.

#include "bench/SyntheticDay.h"
#include "draw/CDrawStyle.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <random>

namespace {

using bench::kBookSeries;
using bench::syntheticDay;
using Values = std::vector<double>;
using Clock = std::chrono::steady_clock;
/// What any painter of trades has to do: read each trade's price and volume once and place them.
double plainWalk(const se::RPCFormulaResult& result, const QRect& pane)
{
    const Values& prices = result.numberSeries[kBookSeries];
    const Values& volumes = result.numberSeries[kBookSeries + 1];
    const double width = pane.width() / static_cast<double>(prices.size());
    long long sum = 0;
    double lastPrice = 0.0;
    for (std::size_t trade = 0; trade < prices.size(); ++trade) {
        const bool rise = prices[trade] - lastPrice > 1e-5;
        lastPrice = prices[trade];
        sum += static_cast<int>(static_cast<double>(trade) * width);
        sum += static_cast<int>(pane.bottom() - prices[trade] * 5.0);
        sum += static_cast<int>(pane.bottom() - volumes[trade] * 0.3) + (rise ? 1 : 0);
    }
    return static_cast<double>(sum);
}

using Paint = void (*)(QPainter&, QRect&, TC::RPCFormulaResultCache&, int tradeCount);

void crosses(QPainter& painter, QRect& pane, TC::RPCFormulaResultCache& day, int tradeCount)
{
    TC::CDrawStyle().drawTick(&painter, pane, { 60.0, 40.0 }, day, 0, tradeCount - 1, 0, 4, 0.0, 0.0, true,
                              tradeCount);
}

void sticks(QPainter& painter, QRect& pane, TC::RPCFormulaResultCache& day, int tradeCount)
{
    TC::CDrawStyle().drawTickVolStick(&painter, pane, day, { 1000.0, 0.0 }, 1, 0, tradeCount - 1, 0, false,
                                      true, tradeCount, 0.0);
}

void sticksWithBook(QPainter& painter, QRect& pane, TC::RPCFormulaResultCache& day, int tradeCount)
{
    TC::CDrawStyle().drawTickVolStickNew(&painter, pane, day, { 1000.0, 0.0 }, 1, 0, tradeCount - 1, 0, false,
                                         true, tradeCount, 0.0);
}

void paintTrades(benchmark::State& state, Paint paint)
{
    const int tradeCount = static_cast<int>(state.range(0));
    TC::RPCFormulaResultCache day = syntheticDay(tradeCount);
    QRect pane(0, 0, 1600, 300);
    QImage image(pane.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    std::chrono::duration<double> painting {}, walking {};
    for (auto _ : state) {
        const auto start = Clock::now();
        {
            QPainter painter(&image);
            paint(painter, pane, day, tradeCount);
        }
        const auto painted = Clock::now();
        benchmark::DoNotOptimize(plainWalk(day.result, pane));
        walking += Clock::now() - painted;
        painting += painted - start;
        state.SetIterationTime(std::chrono::duration<double>(painted - start).count());
    }
    state.counters["paint/walk"] = painting / walking;
}

} // namespace

BENCHMARK_CAPTURE(paintTrades, crosses, crosses)
    ->Arg(1'000'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(paintTrades, sticks, sticks)
    ->Arg(1'000'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(paintTrades, sticks_with_book, sticksWithBook)
    ->Arg(1'000'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return EXIT_FAILURE;
    benchmark::RunSpecifiedBenchmarks();
    return EXIT_SUCCESS;
}
