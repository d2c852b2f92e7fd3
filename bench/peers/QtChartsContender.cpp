// SPDX-License-Identifier: MIT
#include "bench/peers/Contender.h"

#include <QBarSeries>
#include <QBarSet>
#include <QCandlestickSeries>
#include <QCandlestickSet>
#include <QChart>
#include <QGraphicsScene>
#include <QLineSeries>
#include <QScatterSeries>
#include <QValueAxis>

using namespace QtCharts;

namespace bench {

namespace {

QAbstractSeries* seriesOf(const Scene& scene)
{
    if (scene.work == Work::Candles) {
        auto* series = new QCandlestickSeries;
        for (int i = 0; i < scene.bars; ++i) {
            const auto bar = static_cast<std::size_t>(i);
            series->append(new QCandlestickSet(scene.walk.open[bar], scene.walk.high[bar],
                                               scene.walk.low[bar], scene.walk.close[bar], i));
        }
        return series;
    }
    if (scene.work == Work::Volume) {
        auto* set = new QBarSet(QString());
        for (double value : scene.walk.volume)
            set->append(value);
        auto* series = new QBarSeries;
        series->append(set);
        return series;
    }
    QXYSeries* series = nullptr;
    if (scene.work == Work::Dots) {
        auto* dots = new QScatterSeries;
        dots->setMarkerSize(Scene::kDotSize);
        dots->setBrush(Qt::NoBrush);
        series = dots;
    } else {
        series = new QLineSeries;
    }
    QVector<QPointF> points;
    for (int i = 0; i < scene.bars; ++i)
        points.append(QPointF(i, scene.values[static_cast<std::size_t>(i)]));
    series->replace(points);
    series->setPen(QPen(Qt::yellow, scene.lineWidth()));
    return series;
}

} // namespace

Contender qtCharts(const Scene& scene)
{
    // Beyond, its items alone take minutes to make.
    const int largest = scene.isLine() ? 1'000'000 : 2'000;
    if (scene.bars > largest || (scene.work == Work::LineNoise && scene.bars > 20'000))
        return { "Qt Charts", {} };
    const auto stage = std::make_shared<QGraphicsScene>();
    auto* chart = new QChart;
    stage->addItem(chart);
    chart->setBackgroundVisible(false);
    chart->legend()->hide();
    chart->setMargins(QMargins());
    chart->setPlotArea(QRectF(0, 0, kWidth, kHeight));
    chart->resize(kWidth, kHeight);
    QAbstractSeries* series = seriesOf(scene);
    chart->addSeries(series);
    auto* x = new QValueAxis;
    auto* y = new QValueAxis;
    x->setRange(0, scene.bars);
    y->setRange(scene.lowest, scene.highest);
    for (QValueAxis* axis : { x, y }) {
        axis->setVisible(false);
        chart->addAxis(axis, axis == x ? Qt::AlignBottom : Qt::AlignLeft);
        series->attachAxis(axis);
    }
    return { "Qt Charts", [stage](QPainter& painter) {
                stage->render(&painter, QRectF(0, 0, kWidth, kHeight), QRectF(0, 0, kWidth, kHeight));
            } };
}

} // namespace bench
