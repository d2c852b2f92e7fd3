// SPDX-License-Identifier: MIT
/// @file One pane of line, candles or volume, from 250 to 1,000,000 bars.
///
/// Counters: `to_floor`, time of the painter divided by the time of one fillRect per pixel column of the same
/// pane; `per_bar_ns`, only for a look; `to_250`, time divided by the time of the same painter at 250 bars.

#include "bench/RandomWalk.h"
#include "draw/CDrawStyle.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

#include <chrono>
#include <functional>
#include <map>
#include <string>

namespace {

constexpr int kWidth = 1920, kHeight = 800;

using Paint =
    std::function<void(QPainter&, QRect&, TC::RPCFormulaResultCache&, QPair<double, double>, int bars)>;

struct Painter
{
    const char* name;
    int drawType;
    Paint paint;
};

const std::vector<Painter>& painters()
{
    static TC::CDrawStyle style;
    static const std::vector<Painter> all = {
        { "line", 0,
          [](QPainter& p, QRect& rect, TC::RPCFormulaResultCache& cache, QPair<double, double> range,
             int bars) {
              style.drawSimpleLine(&p, rect, cache, range, Qt::SolidLine, 0, 0, bars - 1, bars - 1, 0, false,
                                   false, 1.0f, false, false);
          } },
        { "candle", 12,
          [](QPainter& p, QRect& rect, TC::RPCFormulaResultCache& cache, QPair<double, double> range,
             int bars) {
              style.drawKLine(&p, rect, cache, range, 0, 0, bars - 1, bars, std::max(0, kWidth / bars / 3),
                              86400, false, 1.0f, 2);
          } },
        { "volume", 27,
          [](QPainter& p, QRect& rect, TC::RPCFormulaResultCache& cache, QPair<double, double> range,
             int bars) {
              style.drawVolStick(&p, rect, cache, range, 0, 0, bars - 1, std::max(0, kWidth / bars / 3),
                                 false, false, bars - 1, 0.0, false);
          } },
    };
    return all;
}

TC::RPCFormulaResultCache recordFor(const Painter& painter, int bars)
{
    const bench::RandomWalk walk(static_cast<std::size_t>(bars));
    if (painter.drawType == 12)
        return bench::recordOf(12, { walk.open, walk.high, walk.low, walk.close });
    if (painter.drawType == 27)
        return bench::recordOf(27, { walk.volume, walk.open, walk.close });
    return bench::recordOf(0, { walk.close });
}

/// Seconds that one call takes, the fastest of a few.
double secondsOf(const std::function<void()>& call)
{
    double best = 1e9;
    for (int i = 0; i < 5; ++i) {
        const auto begin = std::chrono::steady_clock::now();
        call();
        best =
            std::min(best, std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
    }
    return best;
}

/// What any painter must spend at least: one filled run per pixel column.
void paintFloor(QPainter& painter, int bars)
{
    const int columns = std::min(bars, kWidth);
    for (int column = 0; column < columns; ++column)
        painter.fillRect(column * kWidth / columns, column % 300, 1, 200, Qt::yellow);
}

void paintPane(benchmark::State& state, const Painter& painter)
{
    static std::map<std::string, double> at250;
    const int bars = static_cast<int>(state.range(0));
    TC::RPCFormulaResultCache cache = recordFor(painter, bars);
    QRect rect(0, 0, kWidth, kHeight);
    double max = 0.0, min = 0.0;
    TC::CDrawStyle::calcMaxMin(max, min, 0, bars - 1, cache, rect, true, false, 1.0f);

    QImage image(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    QPainter target(&image);
    const auto paintOnce = [&] { painter.paint(target, rect, cache, { max, min }, bars); };
    for (auto _ : state)
        paintOnce();

    const double seconds = secondsOf(paintOnce);
    if (bars == 250)
        at250[painter.name] = seconds;
    state.counters["to_floor"] = seconds / secondsOf([&] { paintFloor(target, bars); });
    state.counters["per_bar_ns"] = seconds * 1e9 / bars;
    if (at250.count(painter.name))
        state.counters["to_250"] = seconds / at250[painter.name];
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    for (const Painter& painter : painters()) {
        benchmark::RegisterBenchmark((std::string("pane/") + painter.name).c_str(),
                                     [&painter](benchmark::State& state) { paintPane(state, painter); })
            ->Arg(250)
            ->Arg(2'000)
            ->Arg(20'000)
            ->Arg(200'000)
            ->Arg(1'000'000)
            ->Unit(benchmark::kMillisecond);
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
