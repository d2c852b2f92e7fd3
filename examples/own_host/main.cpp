// SPDX-License-Identifier: MIT
/// @file The library over a platform of your own: (not read) PICTURE.png. Nothing of the default host is in
/// this program; this platform knows one colour.

#include <draw/CDrawStyle.h>
#include <host/WB/SkinLookup.h>

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <cmath>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    constexpr int bars = 96;
    TC::RPCFormulaResultCache cache; // one output, one column of numbers
    cache.meta.outputCount = 1;
    cache.meta.outputNames = { "WAVE" };
    cache.meta.outputColumns = { { 0 } };
    cache.meta.drawType = cache.meta.color = cache.meta.colorSet = { 0 };
    cache.meta.lineWidth = { 2 };
    cache.result.barTimes.resize(bars);
    cache.result.barValid.assign(bars, 1);
    cache.result.columnSeries = cache.result.columnType = { 0 };
    cache.result.columnNeedsAxis = { 1 };
    cache.result.numberSeries.emplace_back();
    for (int bar = 0; bar < bars; ++bar)
        cache.result.numberSeries[0].push_back(std::sin(bar * 0.2) * bar);

    QImage image(960, 200, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QRect pane = image.rect();
    double max = 0.0, min = 0.0;
    TC::CDrawStyle::calcMaxMin(max, min, 0, bars - 1, cache, pane, true, false, 1.0f);
    TC::CDrawStyle().drawSimpleLine(&painter, pane, cache, { max, min }, Qt::SolidLine, 0, 0, bars - 1, bars,
                                    0, true, false, 1.0f, false, false);
    const bool isOwn = WB::skinColor("any key") == QColor(255, 0, 255); // the default host knows no such key
    return argc > 2 && isOwn && image.save(QString::fromLocal8Bit(argv[2])) ? 0 : 1;
}
