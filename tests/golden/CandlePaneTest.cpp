// SPDX-License-Identifier: MIT
#include "draw/CDrawStyle.h"
#include "host/WB/CUiResource.h"
#include "host/embedded/EmbeddedHost.h"
#include "host/utils/CSingletonT.h"
#include "tests/support/FormulaBuilder.h"
#include "tests/support/Golden.h"
#include "tests/support/TestFont.h"

#include <QPainter>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>

namespace {

using test::FormulaBuilder;

struct Bars
{
    FormulaBuilder::Values open, high, low, close, volume;
};

/// `count` real daily bars from `first` on; the samples have the columns date, open, high, low, close,
/// volume.
Bars realBars(const char* instrument, int first, int count)
{
    std::ifstream file(std::string(SAMPLES_DIR "/bars/") + instrument + ".csv");
    std::string line;
    for (int skipped = 0; skipped <= first; ++skipped) // the header, too
        std::getline(file, line);
    Bars bars;
    FormulaBuilder::Values* const columns[] = { &bars.open, &bars.high, &bars.low, &bars.close,
                                                &bars.volume };
    for (int bar = 0; bar < count && std::getline(file, line); ++bar) {
        std::istringstream fields(line);
        std::string field;
        std::getline(fields, field, ','); // the date
        for (FormulaBuilder::Values* column : columns) {
            std::getline(fields, field, ',');
            column->push_back(std::stod(field));
        }
    }
    EXPECT_EQ(bars.close.size(), static_cast<std::size_t>(count));
    return bars;
}

QColor skinColor(const char* key)
{
    return *utils::CSingletonT<WB::CUiResource>::instance()->getColor(QString::fromLatin1(key));
}

/// The range of everything that a pane shows, as a client finds it.
QPair<double, double> rangeOf(TC::RPCFormulaResultCache& cache, int bars, const QRect& pane)
{
    double max = 0.0, min = 0.0;
    TC::CDrawStyle::calcMaxMin(max, min, 0, bars - 1, cache, pane, false, false, 1.0F);
    return { max, min };
}

/// A pane of its own, rows from 0 on, with candles.
/// @param room  share of the range left free above and below.
QImage candlePane(const Bars& bars, int halfWidth, const QSize& size, double room)
{
    QImage image = test::goldenCanvas(size.width(), size.height(), skinColor("ic_clr_graph_kline_bg"));
    QPainter painter(&image);
    painter.setFont(test::font(12));
    const int count = static_cast<int>(bars.close.size());
    QRect pane(10, 0, size.width() - 20, size.height());
    auto cache = FormulaBuilder().output("KLINE", 12, { bars.open, bars.high, bars.low, bars.close }).build();
    QPair<double, double> range = rangeOf(cache, count, pane);
    const double margin = (range.first - range.second) * room;
    range = { range.first + margin, range.second - margin };
    TC::CDrawStyle().drawKLine(&painter, pane, cache, range, 0, 0, count - 1, count, halfWidth, 86400, false,
                               1.0F, 2);
    return image;
}

/// A pane of its own with the volume of the same bars.
QImage volumePane(const Bars& bars, int halfWidth, const QSize& size)
{
    QImage image = test::goldenCanvas(size.width(), size.height(), skinColor("ic_clr_graph_kline_bg"));
    QPainter painter(&image);
    const int count = static_cast<int>(bars.close.size());
    QRect pane(10, 0, size.width() - 20, size.height());
    auto cache = FormulaBuilder().output("VOL", 27, { bars.volume, bars.open, bars.close }).build();
    const double highest = *std::max_element(bars.volume.begin(), bars.volume.end());
    TC::CDrawStyle().drawVolStick(&painter, pane, cache, { highest * 1.05, 0.0 }, 0, 0, count - 1, halfWidth,
                                  halfWidth == 0, true, count, bars.open.front(), true);
    return image;
}

/// Candles above their volume.
QImage paintPanes(const Bars& bars, int halfWidth, double room)
{
    QImage image = test::goldenCanvas(640, 420, skinColor("ic_clr_graph_kline_bg"));
    QPainter painter(&image);
    painter.drawImage(0, 10, candlePane(bars, halfWidth, QSize(640, 260), room));
    painter.drawImage(0, 280, volumePane(bars, halfWidth, QSize(640, 130)));
    return image;
}

} // namespace

TEST(CandlePane, ShowsRealCandlesWithVolumeBelow)
{
    const auto bars = realBars("SH600030", 3000, 60);
    EXPECT_TRUE(test::matchesGolden(QStringLiteral("candles_dark"), paintPanes(bars, 4, 0.05)));
}

TEST(CandlePane, HoldsLabelsInsideAPaneWithoutRoomInTheLightSkin)
{
    ASSERT_EQ(TC::embedded::loadSkin(QStringLiteral("light")), QString());
    const auto bars = realBars("SFCU00", 4000, 40);
    EXPECT_TRUE(test::matchesGolden(QStringLiteral("candles_light"), paintPanes(bars, 6, 0.0)));
}

TEST(CandlePane, MergesThousandsOfBarsToThePixel)
{
    const auto bars = realBars("SH600030", 0, 5000);
    EXPECT_TRUE(test::matchesGolden(QStringLiteral("candles_dense"), paintPanes(bars, 0, 0.05)));
}

TEST(StickPane, ShowsSticksAroundZeroWithStacksAndStickLinesBelow)
{
    const auto bars = realBars("SH000001", 6000, 60);
    QImage image = test::goldenCanvas(640, 420, skinColor("ic_clr_graph_kline_bg"));
    ASSERT_EQ(bars.close.size(), 60u);
    QPainter painter(&image);

    FormulaBuilder::Values change, half, rest, one(60, 1.0), width(60, 6.0), empty;
    for (std::size_t bar = 0; bar < 60; ++bar) {
        change.push_back(bars.close[bar] - bars.open[bar]);
        half.push_back(bars.volume[bar] * 0.25);
        rest.push_back(bars.volume[bar] * 0.75);
        empty.push_back(bars.close[bar] > bars.open[bar] ? 1.0 : 0.0);
    }
    QRect upper(10, 10, 620, 130);
    auto sticks = FormulaBuilder().line(change).build();
    TC::CDrawStyle().drawColorStick(&painter, upper, sticks, rangeOf(sticks, 60, upper), Qt::SolidLine, 0, 0,
                                    59, 0, true, 60, false, true);

    // aligned by the client type's rule, so that the left edge counts once
    TC::embedded::setClientType(3);
    QRect middle(10, 150, 620, 130);
    auto stack = FormulaBuilder().output("STACK", 42, { half, rest }).build();
    stack.meta.color = { 0x00FFFF, 0xFF0000 };
    const double highest = *std::max_element(bars.volume.begin(), bars.volume.end());
    TC::CDrawStyle().drawStackVolstick(&painter, middle, stack, { highest, 0.0 }, 0, 0, 59, 4, true, 60,
                                       false);

    QRect lower(10, 290, 620, 120);
    auto lines = FormulaBuilder()
                     .output("STICKLINE", 28, { one, bars.high, bars.low, width, empty })
                     .color(QColor(255, 170, 0))
                     .build();
    const QPair<double, double> range { *std::max_element(bars.high.begin(), bars.high.end()),
                                        *std::min_element(bars.low.begin(), bars.low.end()) };
    TC::CDrawStyle().drawStickKline(&painter, lower, range, lines, 0, 59, 0, 5, true, 60);
    painter.end();
    EXPECT_TRUE(test::matchesGolden(QStringLiteral("sticks_dark"), image));
}
