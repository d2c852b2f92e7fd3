// SPDX-License-Identifier: MIT
#include "bench/peers/Contender.h"

#include <qcustomplot.h>

namespace bench {

namespace {

/// Opens the one call that paints a plottable.
template <class Plottable>
struct Open : Plottable
{
    using Plottable::clipRect;
    using Plottable::draw;
    using Plottable::Plottable;
};

/// It paints with a painter of its own kind, on an image of its own; both begin inside the measured time,
/// which is half a microsecond.
template <class Plottable>
std::function<void(QPainter&)> painting(const std::shared_ptr<QCustomPlot>& plot, Open<Plottable>* plottable)
{
    plottable->setAntialiased(false);
    const auto image = std::make_shared<QImage>(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
    image->fill(Qt::black);
    return [plot, plottable, image](QPainter&) {
        QCPPainter painter;
        painter.begin(image.get());
        painter.setClipRect(plottable->clipRect());
        plottable->draw(&painter);
    };
}

} // namespace

Contender qCustomPlot(const Scene& scene)
{
    const auto plot = std::make_shared<QCustomPlot>();
    plot->setGeometry(0, 0, kWidth, kHeight);
    plot->setViewport(QRect(0, 0, kWidth, kHeight));
    plot->setNotAntialiasedElements(QCP::aeAll);
    plot->axisRect()->setAutoMargins(QCP::msNone);
    plot->axisRect()->setMargins(QMargins());
    for (QCPAxis* axis : { plot->xAxis, plot->yAxis })
        axis->setVisible(false);
    plot->xAxis->setRange(-0.5, scene.bars - 0.5);
    plot->yAxis->setRange(scene.lowest, scene.highest);
    QVector<double> keys(scene.bars);
    for (int i = 0; i < scene.bars; ++i)
        keys[i] = i;
    const auto column = [](const std::vector<double>& values) {
        return QVector<double>(values.begin(), values.end());
    };
    std::function<void(QPainter&)> paint;
    if (scene.isOfValues()) {
        auto* graph = new Open<QCPGraph>(plot->xAxis, plot->yAxis);
        if (scene.work == Work::Dots) {
            graph->setLineStyle(QCPGraph::lsNone);
            graph->setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssCircle, Scene::kDotSize));
            graph->setAntialiasedScatters(false);
        }
        graph->setPen(QPen(Qt::yellow, scene.lineWidth()));
        graph->setData(keys, column(scene.values), true);
        paint = painting<QCPGraph>(plot, graph);
    } else if (scene.work == Work::Candles) {
        auto* financial = new Open<QCPFinancial>(plot->xAxis, plot->yAxis);
        financial->setChartStyle(QCPFinancial::csCandlestick);
        financial->setTwoColored(true);
        financial->setWidth(0.6);
        financial->setData(keys, column(scene.walk.open), column(scene.walk.high), column(scene.walk.low),
                           column(scene.walk.close), true);
        paint = painting<QCPFinancial>(plot, financial);
    } else {
        auto* bars = new Open<QCPBars>(plot->xAxis, plot->yAxis);
        bars->setWidth(0.6);
        bars->setPen(Qt::NoPen);
        bars->setBrush(Qt::red);
        bars->setData(keys, column(scene.walk.volume), true);
        paint = painting<QCPBars>(plot, bars);
    }
    plot->toPixmap(kWidth, kHeight); // lays the axis rectangle out
    return { "QCustomPlot", paint };
}

} // namespace bench
