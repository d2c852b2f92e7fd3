// SPDX-License-Identifier: MIT
#include "bench/peers/Contender.h"

#include <qwt_plot_curve.h>
#include <qwt_plot_tradingcurve.h>
#include <qwt_scale_map.h>
#include <qwt_symbol.h>

namespace bench {

namespace {

QwtScaleMap mapTo(double from, double to, double first, double last)
{
    QwtScaleMap map;
    map.setScaleInterval(from, to);
    map.setPaintInterval(first, last);
    return map;
}

} // namespace

Contender qwt(const Scene& scene)
{
    const QwtScaleMap x = mapTo(0, scene.bars, 0, kWidth);
    const QwtScaleMap y = mapTo(scene.lowest, scene.highest, kHeight - 1, 0);
    const QRectF canvas(0, 0, kWidth, kHeight);
    const int last = scene.bars - 1;
    if (scene.work == Work::Candles) {
        const auto curve = std::make_shared<QwtPlotTradingCurve>();
        QVector<QwtOHLCSample> samples;
        samples.reserve(scene.bars);
        for (int i = 0; i < scene.bars; ++i) {
            const auto bar = static_cast<std::size_t>(i);
            samples.append(QwtOHLCSample(i, scene.walk.open[bar], scene.walk.high[bar], scene.walk.low[bar],
                                         scene.walk.close[bar]));
        }
        curve->setSamples(samples);
        curve->setSymbolStyle(QwtPlotTradingCurve::CandleStick);
        curve->setSymbolExtent(0.6);
        curve->setSymbolBrush(QwtPlotTradingCurve::Increasing, Qt::NoBrush);
        curve->setSymbolBrush(QwtPlotTradingCurve::Decreasing, Qt::green);
        return { "Qwt", [=](QPainter& painter) { curve->drawSeries(&painter, x, y, canvas, 0, last); } };
    }
    const auto curve = std::make_shared<QwtPlotCurve>();
    QVector<QPointF> samples;
    samples.reserve(scene.bars);
    for (int i = 0; i < scene.bars; ++i) {
        const auto bar = static_cast<std::size_t>(i);
        samples.append(QPointF(i, scene.isOfValues() ? scene.values[bar] : scene.walk.volume[bar]));
    }
    curve->setSamples(samples);
    curve->setPen(QPen(Qt::yellow, scene.lineWidth()));
    curve->setStyle(scene.isLine() ? QwtPlotCurve::Lines : QwtPlotCurve::Sticks);
    if (scene.work == Work::Dots) {
        constexpr int size = Scene::kDotSize;
        curve->setStyle(QwtPlotCurve::NoCurve);
        curve->setSymbol(new QwtSymbol(QwtSymbol::Ellipse, Qt::NoBrush, QPen(Qt::yellow), QSize(size, size)));
    }
    return { "Qwt", [=](QPainter& painter) { curve->drawSeries(&painter, x, y, canvas, 0, last); } };
}

} // namespace bench
