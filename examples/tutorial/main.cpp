// SPDX-License-Identifier: MIT
#include <data/IndexBaseData.h>
#include <draw/CDrawStyle.h>
#include <draw/PaneMapping.h>
#include <engine/Formulas.h>
#include <engine/files/BarFile.h>
#include <host/TC/CStockManager.h>
#include <host/WB/SkinLookup.h>
#include <host/se/RecordCodes.h>
#include <title/CIndexTitleWidget.h>

#include <QApplication>
#include <QFileInfo>
#include <QMouseEvent>
#include <QPainter>

#include <cmath>

engine::BarSeries barsOf(const char* file)
{
    std::string failure;
    const auto bars = engine::readBars(file, failure);
    if (!bars)
        qFatal("%s", failure.c_str());
    return *bars;
}

class PaneData : public TC::IndexBaseData
{
public:
    PaneData()
        : IndexBaseData(nullptr)
    {
    }
    void add(const QString& instrument, const QString& name, const engine::BarSeries& bars)
    {
        if (const auto records = engine::computeFormula(name.toStdString(), bars)) {
            m_formulas << name;
            m_data[{ instrument, name }] = { records->meta, records->result };
        }
    }
    DataMap& results() { return m_data; }
};

class Pane : public QWidget
{
public:
    Pane(const QString& instrument, const engine::BarSeries& bars)
        : m_last(static_cast<int>(bars.size()) - 1)
        , m_first(m_last - kShown + 1)
    {
        m_data.add(instrument, QStringLiteral("KLINE"), bars);
        m_data.add(instrument, QStringLiteral("BOLL"), bars);
        setMouseTracking(true);
        showLegendOf(instrument);
    }

private:
    static constexpr int kShown = 120, kAxis = 56, kLegend = 32; // bars; pixels; pixels
    QRect plot() const { return { 0, 0, width() - kAxis, height() - kLegend }; }

    QPair<double, double> visibleRange()
    {
        double highest = -HUGE_VAL, lowest = HUGE_VAL;
        for (TC::RPCFormulaResultCache& cache : m_data.results()) {
            double max = 0.0, min = 0.0;
            if (TC::CDrawStyle::calcMaxMin(max, min, m_first, m_last, cache, plot(), true, false, 1.0f)) {
                highest = std::max(highest, max);
                lowest = std::min(lowest, min);
            }
        }
        const double air = (highest - lowest) * 0.05;
        return { highest + air, lowest - air };
    }

    void paintOutput(QPainter& painter, TC::RPCFormulaResultCache& cache, int output)
    {
        QRect pane = plot();
        const QPair<double, double> range = visibleRange();
        const int half = pane.width() * 2 / kShown / 5;
        TC::CDrawStyle style;
        if (cache.meta.drawType[static_cast<std::size_t>(output)] == se::DrawType::Candle)
            style.drawKLine(&painter, pane, cache, range, output, m_first, m_last, kShown, half, 86400, false,
                            1.0f, 2);
        else
            style.drawSimpleLine(&painter, pane, cache, range, Qt::SolidLine, output, m_first, m_last,
                                 kShown - 1, half, false, false, 1.0f, false, false);
    }

    void paintAxis(QPainter& painter)
    {
        const QPair<double, double> range = visibleRange();
        const TC::ValueScale scale = TC::valueScale(plot(), range);
        for (double price = std::ceil(range.second); price < range.first; price += 1.0) {
            const int row = scale.row(price);
            painter.setPen(WB::skinColor("clr_chart_grid"));
            painter.drawLine(0, row, plot().right(), row);
            painter.setPen(WB::skinColor("clr_chart_axis_text"));
            painter.drawText(plot().right() + 8, row + 4, TC::CDrawStyle::toStringByPrec(2, price, 0.01));
        }
    }

    void paintCrosshair(QPainter& painter)
    {
        const int x = TC::candleSlots(plot(), m_first, kShown).x(m_pointed) + plot().width() * 2 / kShown / 5;
        painter.setPen(QPen(WB::skinColor("clr_chart_crosshair"), 0, Qt::DotLine));
        painter.drawLine(x, 0, x, plot().bottom());
    }

    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), WB::skinColor("ic_clr_graph_kline_bg"));
        painter.setFont(WB::skinFont("fnt_graph_axis_text"));
        painter.translate(0, kLegend);
        paintAxis(painter);
        painter.setClipRect(plot());
        for (TC::RPCFormulaResultCache& cache : m_data.results()) {
            for (int output = 0; output < cache.meta.outputCount; ++output) {
                painter.save();
                paintOutput(painter, cache, output);
                painter.restore();
            }
        }
        if (m_pointed >= 0)
            paintCrosshair(painter);
    }

    void showLegendOf(const QString& instrument)
    {
        TC::CDrawStyle::resetDrawStyleColor();
        m_strip.setStock(utils::CSingletonT<TC::CStockManager>::instance()->getInstrumentDetail(instrument));
        m_strip.setSubHeight(2);
        m_strip.setCloseBtnVisible(false);
    }

public:
    void pointAt(int bar)
    {
        m_pointed = bar;
        m_strip.resize(width(), kLegend);
        m_strip.updateIndexId(bar);
        update();
    }

private:
    void mouseMoveEvent(QMouseEvent* event) override
    {
        const int bar = TC::candleSlots(plot(), m_first, kShown).barAt(event->pos().x());
        pointAt(std::clamp(bar, m_first, m_last));
    }
    void leaveEvent(QEvent*) override { pointAt(-1); }

    PaneData m_data;
    int m_last, m_first, m_pointed = -1;
    TC::CIndexTitleWidget m_strip {
        &m_data, TC::EIndexDisplay_Heading, TC::EIndexView_Module, TC::EIndexView_Indented, 4, 0, nullptr,
        this
    };
};

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const engine::BarSeries bars = barsOf(argc > 1 ? argv[1] : "");
    Pane pane(QFileInfo(QString::fromLocal8Bit(argv[1])).baseName(), bars);
    pane.resize(960, 420);
    pane.show();
    pane.pointAt(static_cast<int>(bars.size()) - 40);
    return argc > 2 ? !pane.grab().save(QString::fromLocal8Bit(argv[2])) : application.exec();
}
