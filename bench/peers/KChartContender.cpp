// SPDX-License-Identifier: MIT
#include "bench/peers/Contender.h"

#include <KChartBarDiagram>
#include <KChartCartesianCoordinatePlane>
#include <KChartChart>
#include <KChartGridAttributes>
#include <KChartLineDiagram>
#include <KChartStockDiagram>

#include <QAbstractTableModel>

namespace bench {

namespace {

/// The columns of a scene, a row for each bar.
class Table : public QAbstractTableModel
{
public:
    explicit Table(std::vector<std::vector<double>> columns)
        : m_columns(std::move(columns))
    {
    }
    int rowCount(const QModelIndex& parent) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_columns.front().size());
    }
    int columnCount(const QModelIndex& parent) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
    }
    QVariant data(const QModelIndex& index, int role) const override
    {
        if (role != Qt::DisplayRole)
            return {};
        return m_columns[static_cast<std::size_t>(index.column())][static_cast<std::size_t>(index.row())];
    }

private:
    std::vector<std::vector<double>> m_columns;
};

KChart::AbstractDiagram* diagramOf(const Scene& scene)
{
    if (scene.work == Work::Candles) {
        auto* stock = new KChart::StockDiagram;
        stock->setType(KChart::StockDiagram::Candlestick);
        return stock;
    }
    if (scene.work == Work::Volume)
        return new KChart::BarDiagram;
    return new KChart::LineDiagram;
}

} // namespace

Contender kChart(const Scene& scene)
{
    // It has no diagram of markers alone; and of more bars one picture takes seconds.
    if (scene.work == Work::Dots || scene.bars > (scene.isLine() ? 20'000 : 2'000))
        return { "KChart", {} };
    const RandomWalk& walk = scene.walk;
    const auto table = std::make_shared<Table>(
        scene.isLine() ? std::vector<std::vector<double>> { scene.values }
            : scene.work == Work::Candles
            ? std::vector<std::vector<double>> { walk.open, walk.high, walk.low, walk.close }
            : std::vector<std::vector<double>> { walk.volume });
    const auto chart = std::make_shared<KChart::Chart>();
    KChart::AbstractDiagram* diagram = diagramOf(scene);
    diagram->setModel(table.get());
    diagram->setPen(QPen(Qt::yellow, scene.lineWidth()));
    diagram->setAntiAliasing(false);
    auto* plane = static_cast<KChart::CartesianCoordinatePlane*>(chart->coordinatePlane());
    KChart::GridAttributes grid = plane->globalGridAttributes();
    grid.setGridVisible(false);
    plane->setGlobalGridAttributes(grid);
    plane->replaceDiagram(diagram);
    chart->resize(kWidth, kHeight);
    return { "KChart",
             [table, chart](QPainter& painter) { chart->paint(&painter, QRect(0, 0, kWidth, kHeight)); } };
}

} // namespace bench
