// SPDX-License-Identifier: MIT
#include "bench/peers/Contender.h"
#include "draw/CDrawStyle.h"
#include "tests/support/PlainPainting.h"

#include <algorithm>
#include <random>

namespace bench {

namespace {

std::vector<double> lineOf(Work work, const RandomWalk& walk)
{
    if (work != Work::LineNoise)
        return walk.close;
    std::vector<double> values(walk.close.size());
    std::mt19937 random(7);
    for (double& value : values)
        value = std::uniform_real_distribution<double>(0.0, 1000.0)(random);
    return values;
}

TC::RPCFormulaResultCache recordOf(const Scene& scene)
{
    TC::RPCFormulaResultCache cache = scene.isOfValues() ? bench::recordOf(0, { scene.values })
        : scene.work == Work::Candles
        ? bench::recordOf(12, { scene.walk.open, scene.walk.high, scene.walk.low, scene.walk.close })
        : bench::recordOf(27, { scene.walk.volume, scene.walk.open, scene.walk.close });
    cache.meta.lineWidth = { scene.lineWidth() };
    return cache;
}

std::function<void(QPainter&)> painterOf(const Scene& scene)
{
    const auto cache = std::make_shared<TC::RPCFormulaResultCache>(recordOf(scene));
    const QPair<double, double> range(scene.highest, scene.lowest);
    const int last = scene.bars - 1, half = scene.halfWidth();
    const Work work = scene.work;
    return [=](QPainter& painter) {
        QRect pane(0, 0, kWidth, kHeight);
        TC::CDrawStyle style;
        if (work == Work::Candles)
            style.drawKLine(&painter, pane, *cache, range, 0, 0, last, last + 1, half, 86400, true, 1.0F, 2);
        else if (work == Work::Volume)
            style.drawVolStick(&painter, pane, *cache, range, 0, 0, last, half, false, false, last, 0.0,
                               false);
        else if (work == Work::Dots)
            style.drawPointDot(&painter, pane, *cache, range, 0, 0, last, 0, false, last + 1);
        else
            style.drawSimpleLine(&painter, pane, *cache, range, Qt::SolidLine, 0, 0, last, last, 0, false,
                                 false, 1.0F, false, false);
    };
}

} // namespace

Scene::Scene(Work kind, int barCount)
    : work(kind)
    , bars(barCount)
    , walk(static_cast<std::size_t>(barCount))
    , values(lineOf(kind, walk))
{
    const std::vector<double>& high = isOfValues() ? values : work == Work::Candles ? walk.high : walk.volume;
    const std::vector<double>& low = isOfValues() ? values : work == Work::Candles ? walk.low : walk.volume;
    highest = *std::max_element(high.begin(), high.end());
    lowest = work == Work::Volume ? 0.0 : *std::min_element(low.begin(), low.end());
}

Contender own(const Scene& scene)
{
    return { "own", painterOf(scene) };
}

Contender plain(const Scene& scene)
{
    return { "plain", [paint = painterOf(scene)](QPainter& painter) { test::paintPlainly(painter, paint); } };
}

Contender fillRectFloor(const Scene& scene)
{
    QImage image(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        painterOf(scene)(painter);
    }
    struct Run
    {
        QRect rect;
        QColor color;
    };
    std::vector<Run> runs;
    for (int x = 0; x < kWidth; ++x) {
        for (int y = 0; y < kHeight;) {
            const QRgb color = image.pixel(x, y);
            const int top = y;
            while (y < kHeight && image.pixel(x, y) == color)
                ++y;
            if (qAlpha(color) != 0)
                runs.push_back({ QRect(x, top, 1, y - top), QColor::fromRgba(color) });
        }
    }
    return { "floor", [runs](QPainter& painter) {
                for (const Run& run : runs)
                    painter.fillRect(run.rect, run.color);
            } };
}

} // namespace bench
