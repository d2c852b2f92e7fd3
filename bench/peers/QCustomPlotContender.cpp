#include "bench/peers/Contender.h"

#include <qcustomplot.h>

namespace bench {

namespace {

/// Opens the one call that paints a plottable.
template <class Plottable>
struct Open : Plottable
{
    using Plottable::draw;
    using Plottable::Plottable;
};

/// A painter of its kind begins inside the measured time: half a microsecond.
template <class Plottable>
std::function<void(QPainter&)> painting(const std::shared_ptr<QCustomPlot>& plot, Open<Plottable>* plottable)
{
    plottable->setAntialiased(false);
    return [plot, plottable](QPainter& target) {
        QCPPainter painter;
        painter.begin(&dynamic_cast<QImage&>(*target.device()));
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
    if (scene.isLine()) {
        auto* graph = new Open<QCPGraph>(plot->xAxis, plot->yAxis);
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
