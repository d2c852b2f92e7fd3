// SPDX-License-Identifier: MIT
/// @file Our painters beside the plain primitives, the floor and other plotting libraries, in one run.
///
/// Every cell interleaves all contenders: each round gives one picture to each of them, in changing order, so
/// that what else the machine does meets all alike. Times are those of the thread, low quantiles are robust
/// against other load. Before each picture the upper halves of the AVX registers are cleared: code that
/// leaves them dirty slows the next contender down by half. Arguments: [--json FILE] [--quick] [--work NAME]
/// [--bars COUNT], the last two for the cells of one row of the table.

#include "bench/peers/Contender.h"
#include "bench/peers/RangeScan.h"
#include "bench/peers/Stopwatch.h"

#include <QApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstdio>
#include <numeric>
#include <random>

namespace {

using bench::Contender;
using bench::Scene;
using bench::Work;

const char* nameOf(Work work)
{
    switch (work) {
    case Work::LineWalk: return "line, walk";
    case Work::LineNoise: return "line, noise";
    case Work::LineWide: return "line, width 2";
    case Work::Dots: return "dots";
    case Work::Candles: return "candles";
    case Work::Volume: return "volume";
    }
    return "";
}

struct Result
{
    std::string name;
    std::vector<double> times; ///< milliseconds; empty: not measured

    double quantile(double part) const
    {
        std::vector<double> sorted = times;
        std::sort(sorted.begin(), sorted.end());
        return sorted[static_cast<std::size_t>(part * static_cast<double>(sorted.size() - 1))];
    }
    double low() const { return quantile(0.2); }
};

/// @param budget  milliseconds of a contender for one cell.
std::vector<Result> measure(const std::vector<Contender>& contenders, bool withClip, double budget)
{
    QImage image(bench::kWidth, bench::kHeight, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    std::vector<Result> results;
    results.reserve(contenders.size());
    for (const Contender& contender : contenders)
        results.push_back({ contender.name, {} });
    std::vector<double> spent(contenders.size(), 0.0);
    std::vector<std::size_t> order(contenders.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    std::mt19937 random(42);
    for (int round = 0; round < 60; ++round) {
        // In another order each time: what one leaves in the caches is not always to the next one's good.
        std::shuffle(order.begin(), order.end(), random);
        for (const std::size_t i : order) {
            // The first picture of all warms up; slow contenders give fewer, the slowest one only.
            constexpr double slow = 500.0; // milliseconds
            if (!contenders[i].paint || (round > 0 && spent[i] > slow) || (round > 2 && spent[i] > budget))
                continue;
            // As every repaint begins: and the pixels of the contender before are not nearer than any others.
            image.fill(Qt::black);
            QPainter painter(&image);
            if (withClip)
                painter.setClipRect(0, 0, bench::kWidth, bench::kHeight);
            painter.setPen(Qt::black);
            const double time = bench::millisecondsOf([&] { contenders[i].paint(painter); });
            spent[i] += time;
            if (round > 0 || time > slow)
                results[i].times.push_back(time);
        }
    }
    return results;
}

QJsonObject print(const char* work, int bars, bool withClip, const std::vector<Result>& results)
{
    QJsonObject cell { { QStringLiteral("work"), QString::fromLatin1(work) },
                       { QStringLiteral("bars"), bars },
                       { QStringLiteral("clip"), withClip } };
    const double own = results.front().low();
    std::printf("| %s | %d | %s |", work, bars, withClip ? "yes" : "no");
    double best = 0.0;
    for (const Result& result : results) {
        if (result.times.empty()) {
            std::printf(" – |");
            continue;
        }
        const double low = result.low();
        std::printf(" %.3f |", low);
        cell[QString::fromStdString(result.name)] =
            QJsonObject { { QStringLiteral("low"), low },
                          { QStringLiteral("median"), result.quantile(0.5) } };
        const bool isPeer = result.name != "own" && result.name != "plain" && result.name != "floor";
        if (isPeer && (best == 0.0 || low < best))
            best = low;
    }
    std::printf(" %.2f | %.2f | %.2f |\n", best / own, results[1].low() / own, own / results[2].low());
    std::fflush(stdout);
    cell[QStringLiteral("bestPeerOverOwn")] = best / own;
    return cell;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const bool quick = arguments.contains(QStringLiteral("--quick"));
    const auto option = [&arguments](const char* name) {
        const int place = arguments.indexOf(QLatin1String(name));
        return place >= 0 ? arguments.value(place + 1) : QString();
    };
    const QString json = option("--json"), onlyWork = option("--work"), onlyBars = option("--bars");
    QJsonArray cells;
    std::printf(
        "Milliseconds of thread time, low quantile.\n\n"
        "| work | bars | clip | own | plain | floor | QCustomPlot | Qwt | Qt Charts | KChart "
        "| best peer/own | plain/own | own/floor |\n|---|---|---|---|---|---|---|---|---|---|---|---|---|\n");
    for (const Work work :
         { Work::LineWalk, Work::LineNoise, Work::LineWide, Work::Dots, Work::Candles, Work::Volume }) {
        for (const int bars : { 250, 2'000, 20'000, 200'000, 1'000'000 }) {
            if ((!onlyWork.isEmpty() && onlyWork != QLatin1String(nameOf(work)))
                || (!onlyBars.isEmpty() && onlyBars != QString::number(bars)))
                continue;
            const Scene scene(work, bars);
            // Wide lines of tall columns and dots fill the pane; beyond 200,000 bars nothing more is learnt.
            const bool isSlow = (work == Work::LineWide || work == Work::Dots) && bars > 200'000;
            if (isSlow || (quick && bars > 20'000))
                continue;
            const std::vector<Contender> contenders = {
                bench::own(scene),         bench::plain(scene), bench::fillRectFloor(scene),
                bench::qCustomPlot(scene), bench::qwt(scene),   bench::qtCharts(scene),
                bench::kChart(scene),
            };
            for (const bool withClip : { true, false })
                cells.append(
                    print(nameOf(work), bars, withClip, measure(contenders, withClip, quick ? 30 : 100)));
        }
    }
    if (onlyWork.isEmpty() && onlyBars.isEmpty()) {
        cells.append(bench::measureRangeScan());
        cells.append(bench::measureBookSticks());
    }
    if (!json.isEmpty()) {
        QFile file(json);
        if (!file.open(QIODevice::WriteOnly) || file.write(QJsonDocument(cells).toJson()) < 0)
            return 1;
    }
    return 0;
}
