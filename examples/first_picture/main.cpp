// SPDX-License-Identifier: MIT
#include <draw/CDrawStyle.h>
#include <engine/Formulas.h>
#include <engine/files/BarFile.h>
#include <host/WB/SkinLookup.h>

#include <QApplication>
#include <QImage>
#include <QPainter>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    std::string failure;
    const auto bars = engine::readBars(argc == 3 ? argv[1] : "", failure);
    if (!bars)
        return 1; // `failure` says why
    const auto candles = engine::computeFormula("KLINE", *bars), lines = engine::computeFormula("MA", *bars);
    TC::RPCFormulaResultCache kline { candles->meta, candles->result },
        averages { lines->meta, lines->result };

    QImage image(960, 420, QImage::Format_ARGB32_Premultiplied);
    image.fill(WB::skinColor("ic_clr_graph_kline_bg"));
    QPainter painter(&image);
    painter.setFont(WB::skinFont("fnt_graph_axis_text")); // of the labels
    QRect pane = image.rect();
    const int shown = 120, last = static_cast<int>(bars->size()) - 1, first = last - shown + 1;
    double max = 0.0, min = 0.0; // of the bars that show
    TC::CDrawStyle::calcMaxMin(max, min, first, last, kline, pane, true, false, 1.0f);
    const QPair<double, double> range(max * 1.01, min * 0.99); // some air for the labels
    TC::CDrawStyle style;
    style.drawKLine(&painter, pane, kline, range, 0, first, last, shown, 3, 86400, false, 1.0f, 2);
    for (int output = 0; output < averages.meta.outputCount; ++output)
        style.drawSimpleLine(&painter, pane, averages, range, Qt::SolidLine, output, first, last, shown - 1,
                             3, false, false, 1.0f, false, false);
    return image.save(QString::fromLocal8Bit(argv[2])) ? 0 : 1;
}
