// SPDX-License-Identifier: MIT
#include "bench/peers/RangeScan.h"

#include "bench/SyntheticDay.h"
#include "bench/peers/Contender.h"
#include "bench/peers/Stopwatch.h"
#include "draw/CDrawStyle.h"

#include <QImage>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <random>

namespace bench {

namespace {

double lowOf(std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() / 5];
}

volatile std::uint64_t g_sink = 0;

/// Reads everything that the scan has to read, and does nothing else with it.
void read(const TC::RPCFormulaResultCache& cache)
{
    std::uint64_t sums[4] = {};
    const auto add = [&sums](const void* begin, std::size_t bytes) {
        const auto* place = static_cast<const unsigned char*>(begin);
        for (std::size_t i = 0; i + 32 <= bytes; i += 32) {
            std::uint64_t words[4];
            std::memcpy(words, place + i, 32);
            for (int k = 0; k < 4; ++k)
                sums[k] += words[k];
        }
    };
    add(cache.result.numberSeries[0].data(), cache.result.numberSeries[0].size() * sizeof(double));
    add(cache.result.barValid.data(), cache.result.barValid.size() * sizeof(int));
    g_sink = sums[0] + sums[1] + sums[2] + sums[3];
}

} // namespace

QJsonObject measureRangeScan()
{
    constexpr int bars = 10'000'000;
    QJsonObject cell { { QStringLiteral("work"), QStringLiteral("range scan") },
                       { QStringLiteral("bars"), bars } };
    for (const bool isDirty : { false, true }) {
        std::vector<double> values(bars);
        std::mt19937 random(5);
        for (double& value : values)
            value = isDirty && random() % 6 == 0 ? (random() % 2 ? DBL_MAX : NAN) : random() * 1e-6;
        TC::RPCFormulaResultCache cache = recordOf(0, { values });
        std::vector<double> scans, reads;
        double max = 0.0, min = 0.0;
        for (int round = 0; round < 25; ++round) {
            scans.push_back(millisecondsOf([&] {
                TC::CDrawStyle::calcMaxMin(max, min, 0, bars - 1, cache, QRect(), true, false, 1.0F);
            }));
            reads.push_back(millisecondsOf([&] { read(cache); }));
        }
        const double scan = lowOf(scans), reading = lowOf(reads);
        const double gigabytes = bars * 12.0 * 1e-9;
        std::printf(
            "\nRange scan, %d bars, %s: %.2f ms (%.1f GB/s); reading alone %.2f ms (%.1f GB/s); %.0f %% of "
            "the read bandwidth\n",
            bars, isDirty ? "one in six unusable" : "clean", scan, gigabytes / scan * 1e3, reading,
            gigabytes / reading * 1e3, reading / scan * 100.0);
        cell[isDirty ? QStringLiteral("dirty") : QStringLiteral("clean")] =
            QJsonObject { { QStringLiteral("scan"), scan }, { QStringLiteral("read"), reading } };
    }
    return cell;
}

QJsonObject measureBookSticks()
{
    constexpr int trades = 1'000'000;
    TC::RPCFormulaResultCache day = syntheticDay(trades);
    const Scene scene(Work::LineWalk, trades);
    const Contender line = plain(scene), fastLine = own(scene);
    QImage image(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
    std::vector<double> sticks, lines, fastLines;
    for (int round = 0; round < 15; ++round) {
        QPainter painter(&image);
        QRect pane(0, 0, kWidth, kHeight);
        sticks.push_back(millisecondsOf([&] {
            TC::CDrawStyle().drawTickVolStickNew(&painter, pane, day, { 1000.0, 0.0 }, 1, 0, trades - 1, 0,
                                                 false, true, trades, 0.0);
        }));
        lines.push_back(millisecondsOf([&] { line.paint(painter); }));
        fastLines.push_back(millisecondsOf([&] { fastLine.paint(painter); }));
    }
    std::printf(
        "\nBook volume sticks, %d trades: %.1f ms; a plain line over as many bars %.1f ms: %.2f times\n",
        trades, lowOf(sticks), lowOf(lines), lowOf(sticks) / lowOf(lines));
    return { { QStringLiteral("work"), QStringLiteral("book volume sticks") },
             { QStringLiteral("bars"), trades },
             { QStringLiteral("own"), lowOf(sticks) },
             { QStringLiteral("plainLine"), lowOf(lines) },
             { QStringLiteral("ownLine"), lowOf(fastLines) } };
}

} // namespace bench
