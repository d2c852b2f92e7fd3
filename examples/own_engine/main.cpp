// SPDX-License-Identifier: MIT
/// @file What an engine of your own computed, painted: (not read) PICTURE.png. A beat of two waves as a line,
/// its slope as sticks, and a dot on every peak.

#include <draw/CDrawStyle.h>
#include <host/WB/SkinLookup.h>
#include <host/se/RecordCodes.h>

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <cmath>

namespace {

constexpr int kBars = 160;

/// Adds one output that is drawn from one number per bar; NaN where nothing stands. (Lines may have DBL_MAX
/// there instead, and join across it.)
void addOutput(TC::RPCFormulaResultCache& cache, const char* name, se::DrawType::Code drawType, int color,
               std::vector<double> values)
{
    const int column = static_cast<int>(cache.result.columnSeries.size());
    cache.result.columnSeries.push_back(static_cast<int>(cache.result.numberSeries.size()));
    cache.result.columnType.push_back(se::ColumnType::Number);
    cache.result.columnNeedsAxis.push_back(1);
    cache.result.numberSeries.push_back(std::move(values));
    ++cache.meta.outputCount;
    cache.meta.outputNames.emplace_back(name);
    cache.meta.outputColumns.push_back({ column });
    cache.meta.drawType.push_back(drawType);
    cache.meta.color.push_back(color); // 0x00BBGGRR
    cache.meta.colorSet.push_back(1);
    cache.meta.lineStyle.push_back(se::LineStyle::Solid);
    cache.meta.lineWidth.push_back(2);
}

TC::RPCFormulaResultCache compute()
{
    TC::RPCFormulaResultCache cache;
    std::vector<double> beat, slope { 0.0 }, peaks(kBars, NAN);
    for (int bar = 0; bar < kBars; ++bar) {
        cache.result.barTimes.push_back({ bar * 86'400'000LL, 0 });
        beat.push_back(std::sin(bar * 0.21) + 0.8 * std::sin(bar * 0.25));
    }
    for (std::size_t bar = 1; bar < beat.size(); ++bar) {
        slope.push_back(3.0 * (beat[bar] - beat[bar - 1]));
        if (bar > 1 && slope[bar - 1] > 0.0 && slope[bar] <= 0.0)
            peaks[bar - 1] = beat[bar - 1];
    }
    cache.result.barValid.assign(kBars, 1);
    addOutput(cache, "SLOPE", se::DrawType::ColorStick, 0, std::move(slope));
    addOutput(cache, "BEAT", se::DrawType::Line, 0x00F5C542, std::move(beat));
    addOutput(cache, "PEAK", se::DrawType::CircleDot, 0x0000D7FF, std::move(peaks));
    return cache;
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    TC::RPCFormulaResultCache cache = compute();
    QImage image(960, 300, QImage::Format_ARGB32_Premultiplied);
    image.fill(WB::skinColor("ic_clr_graph_kline_bg"));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QRect pane = image.rect();
    const QPair<double, double> range(2.2, -2.2); // maximum, minimum
    TC::CDrawStyle style;
    style.drawColorStick(&painter, pane, cache, range, Qt::SolidLine, 0, 0, kBars - 1, 2, false, kBars - 1,
                         false, false);
    style.drawSimpleLine(&painter, pane, cache, range, Qt::SolidLine, 1, 0, kBars - 1, kBars - 1, 2, false,
                         false, 1.0f, false, false);
    TC::CDrawStyle::drawCircleDot(&painter, pane, cache, range, 2, 0, kBars - 1, 2, false, kBars - 1, false);
    return argc > 2 && image.save(QString::fromLocal8Bit(argv[2])) ? 0 : 1;
}
