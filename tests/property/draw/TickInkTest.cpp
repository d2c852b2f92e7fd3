// SPDX-License-Identifier: MIT
#include "draw/CDrawStyle.h"
#include "draw/internal/TickInk.h"
#include "draw/internal/ink/Surface.h"
#include "host/embedded/EmbeddedHost.h"
#include "tests/support/FormulaBuilder.h"
#include "tests/support/Seeds.h"
#include "tests/support/Trace.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <functional>
#include <random>

using TC::CDrawStyle;
using test::FormulaBuilder;

namespace {

/// How the surface is set up before the trades are painted.
struct Surface
{
    const char* name;
    bool hidesBeneath;
    std::function<void(QPainter&)> prepare;
    int alpha = 255;
    qreal pixelRatio = 1.0;
};

void PrintTo(const Surface& surface, std::ostream* out)
{
    *out << surface.name;
}

/// A clip whose corners cover a pixel in part, although it rounds to a rectangle; smoothing is off
/// afterwards.
void clipSoftly(QPainter& painter, bool cutsAgain)
{
    QPainterPath path;
    path.addRoundedRect(10, 8, 100, 60, 0.4, 0.4);
    path.addEllipse(20.5, 20.5, 30, 20);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipPath(path);
    painter.setRenderHint(QPainter::Antialiasing, false);
    if (cutsAgain)
        painter.setClipRect(0, 0, 120, 30, Qt::IntersectClip);
}

const Surface kSurfaces[] = {
    { "Plain", true, [](QPainter&) {} },
    { "Moved", true, [](QPainter& p) { p.translate(7, -3); } },
    { "MovedByAFraction", false, [](QPainter& p) { p.translate(7.5, 0.3); } },
    { "ClippedToARectangle", true, [](QPainter& p) { p.setClipRect(20, 15, 90, 40); } },
    { "ClippedToARegion", true,
      [](QPainter& p) { p.setClipRegion(QRegion(30, 10, 60, 60, QRegion::Ellipse)); } },
    { "ClippedToASoftPath", false, [](QPainter& p) { clipSoftly(p, false); } },
    { "ClippedToASoftPathAndARectangle", false, [](QPainter& p) { clipSoftly(p, true); } },
    { "Scaled", false, [](QPainter& p) { p.scale(1.3, 0.7); } },
    { "Rotated", false, [](QPainter& p) { p.rotate(10.0); } },
    { "Antialiased", false, [](QPainter& p) { p.setRenderHint(QPainter::Antialiasing); } },
    { "HalfOpaque", false, [](QPainter& p) { p.setOpacity(0.5); } },
    { "Blending", false, [](QPainter& p) { p.setCompositionMode(QPainter::RasterOp_SourceXorDestination); } },
    { "TranslucentColours", true, [](QPainter&) {}, 100 },
    { "TwoPixelsAPoint", false, [](QPainter&) {}, 255, 2.0 },
};

/// A random run of trades, mostly many to a pixel column.
struct Day
{
    explicit Day(unsigned seed)
        : random(seed)
    {
        tradeCount = pick(1, 600);
        FormulaBuilder::Values prices, volumes, lower(tradeCount, 40.0), upper(tradeCount, 60.0);
        double price = 50.0;
        for (int trade = 0; trade < tradeCount; ++trade) {
            price += pick(-3, 3);
            prices.push_back(price);
            volumes.push_back(pick(0, 9) == 0 ? pick(-60, 160) : pick(0, 40));
        }
        cache = FormulaBuilder()
                    .series(lower)
                    .series(upper)
                    .series(lower)
                    .series(upper)
                    .line(prices)
                    .output("volume", 4, { volumes, volumes, prices })
                    .build();
        pane = QRect(pick(-5, 20), pick(-5, 20), pick(1, 120), pick(1, 80));
        size = pick(0, 7);
        range = pick(0, 9) == 0 ? qMakePair(50.0, 50.0) : qMakePair(100.0, 0.0);
    }

    int pick(int lowest, int highest) { return std::uniform_int_distribution<int>(lowest, highest)(random); }

    std::mt19937 random;
    int tradeCount = 0, size = 0;
    TC::RPCFormulaResultCache cache;
    QRect pane;
    QPair<double, double> range;
};

QImage emptyImage(const Surface& surface)
{
    QImage image(QSize(140, 90) * surface.pixelRatio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(surface.pixelRatio);
    image.fill(QColor(20, 30, 40));
    return image;
}

/// What the recorded lines and points give when they are drawn one by one in their order.
QImage drawnLineByLine(const Surface& surface, const QStringList& recorded)
{
    static const QRegularExpression form(
        QStringLiteral("^(?:line|point) (\\S+),(\\S+)(?: (\\S+),(\\S+))? pen=([^/]+)/1/solid$"));
    QImage image = emptyImage(surface);
    QPainter painter(&image);
    surface.prepare(painter);
    for (const QString& line : recorded) {
        const QRegularExpressionMatch match = form.match(line);
        EXPECT_TRUE(match.hasMatch()) << line.toStdString();
        painter.setPen(QColor(match.captured(5)));
        const QPoint from(match.captured(1).toInt(), match.captured(2).toInt());
        if (line.startsWith(QLatin1String("point")))
            painter.drawPoint(from);
        else
            painter.drawLine(from, QPoint(match.captured(3).toInt(), match.captured(4).toInt()));
    }
    return image;
}

class TickInk : public testing::TestWithParam<Surface>
{
protected:
    void SetUp() override
    {
        TC::embedded::setColor(QStringLiteral("ic_clr_kline_rise"), QColor(255, 40, 30, GetParam().alpha));
        TC::embedded::setColor(QStringLiteral("ic_clr_kline_fall"), QColor(30, 220, 90, GetParam().alpha));
    }

    static void expectTheSamePixels(const char* suite, const std::function<void(QPainter&, Day&)>& paint)
    {
        const Surface& surface = GetParam();
        for (const unsigned seed : test::seedsFor(suite, 120)) {
            SCOPED_TRACE(testing::Message() << "seed " << seed);
            Day day(seed);
            QImage image = emptyImage(surface);
            {
                QPainter painter(&image);
                surface.prepare(painter);
                paint(painter, day);
            }
            const QStringList recorded = test::traceOf([&](QPainter& painter) { paint(painter, day); });
            ASSERT_EQ(image, drawnLineByLine(surface, recorded));
        }
    }
};

} // namespace

INSTANTIATE_TEST_SUITE_P(OnSurfaces, TickInk, testing::ValuesIn(kSurfaces),
                         [](const auto& surface) { return std::string(surface.param.name); });

TEST_P(TickInk, PaintsCrossesAsIfOneByOne)
{
    expectTheSamePixels("tick_ink", [](QPainter& painter, Day& day) {
        CDrawStyle().drawTick(&painter, day.pane, day.range, day.cache, 0, day.tradeCount - 1, 0, day.size,
                              0.0, 0.0, false, day.tradeCount);
    });
}

TEST_P(TickInk, PaintsThinSticksAsIfOneByOne)
{
    expectTheSamePixels("tick_ink", [](QPainter& painter, Day& day) {
        CDrawStyle().drawTickVolStick(&painter, day.pane, day.cache, day.range, 1, 0, day.tradeCount - 1,
                                      day.size / 2, day.size > 1, false, day.tradeCount, 0.0);
    });
}

TEST_P(TickInk, KnowsWhereInkHidesWhatLiesBeneath)
{
    QImage image = emptyImage(GetParam());
    QPainter painter(&image);
    GetParam().prepare(painter);

    EXPECT_EQ(TC::detail::hidesBeneath(painter), GetParam().hidesBeneath);
}

TEST_P(TickInk, KnowsWhetherTheSkinsColoursAreOpaque)
{
    EXPECT_EQ(TC::detail::DirectionPens().areOpaque(), GetParam().alpha == 255);
}
