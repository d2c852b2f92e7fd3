// SPDX-License-Identifier: MIT
#include "page/Pane.h"

#include <draw/CDrawStyle.h>
#include <engine/Formulas.h>
#include <host/TC/CStockManager.h>
#include <host/WB/SkinLookup.h>
#include <host/se/RecordCodes.h>
#include <title/CIndexTitleWidget.h>

#include <QMouseEvent>
#include <QPainter>

namespace example {

void PaneData::add(const QString& instrument, const QString& formula, const engine::BarSeries& bars)
{
    if (const auto records = engine::computeFormula(formula.toStdString(), bars)) {
        m_formulas << formula;
        m_data[{ instrument, formula }] = { records->meta, records->result };
    }
}

Pane::Pane(const QString& instrument, const engine::BarSeries& bars, const QStringList& formulas)
    : m_last(static_cast<int>(bars.size()) - 1)
{
    m_first = m_last - kShown + 1;
    for (const QString& formula : formulas)
        m_data.add(instrument, formula, bars);
    TC::CDrawStyle::resetDrawStyleColor(); // the strip is drawn before the first painter loads the palette
    const bool main = m_data.isMainGraph(formulas.value(0));
    m_strip = new TC::CIndexTitleWidget(&m_data, main ? TC::EIndexDisplay_Heading : TC::EIndexDisplay_Legend,
                                        main ? TC::EIndexView_Module : TC::EIndexView_Indented,
                                        TC::EIndexView_Indented, 4, 0, nullptr, this);
    m_strip->setStock(utils::CSingletonT<TC::CStockManager>::instance()->getInstrumentDetail(instrument));
    m_stripHeight = main ? 32 : 16;
    m_strip->setSubHeight(m_stripHeight / m_strip->titleHeight());
    m_strip->setCloseBtnVisible(false);
    setMouseTracking(true);
}

Pane::~Pane()
{
    m_strip->setIndexData(nullptr); // the strip dies after the data
}

void Pane::pointAt(int bar)
{
    m_pointed = bar;
    m_strip->resize(width(), m_stripHeight);
    m_strip->updateIndexId(bar);
    m_strip->updateView();
    update();
}

QPair<double, double> Pane::range()
{
    double max = -1e300, min = 1e300;
    for (TC::RPCFormulaResultCache& cache : m_data.results()) {
        double high = 0.0, low = 0.0;
        if (TC::CDrawStyle::calcMaxMin(high, low, m_first, m_last, cache, QRect(), true, false, 1.0f)) {
            max = std::max(max, high);
            min = std::min(min, low);
        }
    }
    const double air = (max - min) * 0.05;
    return { max + air, min - air };
}

void Pane::paintOutput(QPainter& painter, TC::RPCFormulaResultCache& cache, int output,
                       const QPair<double, double>& range)
{
    QRect rect = plot();
    TC::CDrawStyle style;
    const int half = static_cast<int>(barSlots().width * 0.4);
    switch (cache.meta.drawType[static_cast<std::size_t>(output)]) {
    case se::DrawType::Candle:
        style.drawKLine(&painter, rect, cache, range, output, m_first, m_last, kShown, half, 86400, false,
                        1.0f, 2);
        break;
    case se::DrawType::Volume:
        style.drawVolStick(&painter, rect, cache, range, output, m_first, m_last, half, false, false,
                           kShown - 1, 0.0, false);
        break;
    case se::DrawType::ColorStick:
        style.drawColorStick(&painter, rect, cache, range, Qt::SolidLine, output, m_first, m_last, half,
                             false, kShown - 1, false, false);
        break;
    default:
        style.drawSimpleLine(&painter, rect, cache, range, Qt::SolidLine, output, m_first, m_last, kShown - 1,
                             half, false, false, 1.0f, false, false);
    }
}

void Pane::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), WB::skinColor("ic_clr_graph_kline_bg"));
    painter.setFont(WB::skinFont("fnt_graph_axis_text")); // of the labels
    painter.translate(0, m_stripHeight);
    const auto shown = range();
    for (TC::RPCFormulaResultCache& cache : m_data.results()) {
        for (int output = 0; output < cache.meta.outputCount; ++output) {
            painter.save();
            paintOutput(painter, cache, output, shown);
            painter.restore();
        }
    }
    if (m_pointed < 0)
        return;
    const int x = barSlots().x(m_pointed) + static_cast<int>(barSlots().width * 0.4);
    painter.setPen(QPen(WB::skinColor("clr_chart_crosshair", Qt::gray), 0, Qt::DotLine));
    painter.drawLine(x, 0, x, plot().bottom());
}

void Pane::mouseMoveEvent(QMouseEvent* event)
{
    pointAt(std::clamp(barSlots().barAt(event->pos().x()), m_first, m_last));
    if (onPointed)
        onPointed(m_pointed);
}

void Pane::leaveEvent(QEvent*)
{
    pointAt(-1);
    if (onPointed)
        onPointed(-1);
}

} // namespace example
