// SPDX-License-Identifier: MIT
/// @file Candles and averages with a legend that follows the mouse: BARS.csv [PICTURE.png]

#include <data/IndexBaseData.h>
#include <draw/CDrawStyle.h>
#include <draw/PaneMapping.h>
#include <engine/Formulas.h>
#include <engine/files/BarFile.h>
#include <host/TC/CStockManager.h>
#include <host/WB/SkinLookup.h>
#include <title/CIndexTitleWidget.h>

#include <QApplication>
#include <QFileInfo>
#include <QMouseEvent>
#include <QPainter>

struct PaneData : TC::IndexBaseData // the client's own results, in the library's holder
{
    PaneData(const QString& stock, const engine::BarSeries& bars)
        : IndexBaseData(nullptr)
    {
        for (const char* name : { "KLINE", "MA" }) {
            const auto records = engine::computeFormula(name, bars);
            m_formulas << QString::fromLatin1(name);
            m_data[{ stock, m_formulas.last() }] = { records->meta, records->result };
        }
    }
    TC::RPCFormulaResultCache& candles() { return m_data.first(); } // "KLINE" sorts before "MA"
    TC::RPCFormulaResultCache& averages() { return m_data.last(); }
};

class Pane : public QWidget
{
public:
    Pane(const QString& stock, const engine::BarSeries& bars)
        : m_data(stock, bars)
        , m_last(static_cast<int>(bars.size()) - 1)
    {
        TC::CDrawStyle::resetDrawStyleColor(); // before the strip is drawn for the first time
        m_strip.setStock(utils::CSingletonT<TC::CStockManager>::instance()->getInstrumentDetail(stock));
        m_strip.setSubHeight(2);
        m_strip.setCloseBtnVisible(false);
        setMouseTracking(true);
    }
    void pointAt(int bar) // -1: the legend of the last bar
    {
        m_strip.resize(width(), m_strip.height());
        m_strip.updateIndexId(bar);
        m_strip.updateView();
    }

protected:
    void mouseMoveEvent(QMouseEvent* event) override
    {
        const int bar = TC::candleSlots(rect(), m_last - kShown + 1, kShown).barAt(event->pos().x());
        pointAt(std::clamp(bar, 0, m_last));
    }
    void leaveEvent(QEvent*) override { pointAt(-1); }
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), WB::skinColor("ic_clr_graph_kline_bg"));
        painter.setFont(WB::skinFont("fnt_graph_axis_text")); // of the labels
        painter.translate(0, m_strip.height());
        QRect pane = rect().adjusted(0, 0, 0, -m_strip.height());
        TC::RPCFormulaResultCache &candles = m_data.candles(), &averages = m_data.averages();
        const int first = m_last - kShown + 1, half = pane.width() * 2 / kShown / 5;
        double max = 0.0, min = 0.0;
        TC::CDrawStyle::calcMaxMin(max, min, first, m_last, candles, pane, true, false, 1.0f);
        const QPair<double, double> range(max * 1.01, min * 0.99); // some air for the labels
        TC::CDrawStyle style;
        style.drawKLine(&painter, pane, candles, range, 0, first, m_last, kShown, half, 86400, false, 1.0f,
                        2);
        for (int output = 0; output < averages.meta.outputCount; ++output)
            style.drawSimpleLine(&painter, pane, averages, range, Qt::SolidLine, output, first, m_last,
                                 kShown - 1, half, false, false, 1.0f, false, false);
    }

private:
    static constexpr int kShown = 120; // bars
    PaneData m_data;
    int m_last;
    TC::CIndexTitleWidget m_strip {
        &m_data, TC::EIndexDisplay_Heading, TC::EIndexView_Module, TC::EIndexView_Indented, 4, 0, nullptr,
        this
    };
};

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    std::string failure;
    const auto bars = engine::readBars(argc > 1 ? argv[1] : "", failure);
    if (!bars)
        return 1;                                                            // `failure` says why
    Pane pane(QFileInfo(QString::fromLocal8Bit(argv[1])).baseName(), *bars); // "SH600030"
    pane.resize(960, 420);
    pane.show();
    pane.pointAt(static_cast<int>(bars->size()) - 40); // as if the mouse stood there
    return argc > 2 ? !pane.grab().save(QString::fromLocal8Bit(argv[2])) : application.exec();
}
