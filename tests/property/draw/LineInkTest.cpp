#include "draw/CDrawStyle.h"
#include "host/embedded/EmbeddedHost.h"
#include "tests/support/FormulaBuilder.h"
#include "tests/support/InkScene.h"
#include "tests/support/PlainPainting.h"
#include "tests/support/Seeds.h"

#include <gtest/gtest.h>

using TC::CDrawStyle;
using test::Dice;
using test::FormulaBuilder;
using test::RandomSurface;

namespace {

/// A line painter's arguments.
struct LineCall
{
    explicit LineCall(Dice& dice, const QSize& size)
        : pane(dice.oneIn(2) ? QRect(QPoint(), size)
                             : QRect(dice.pick(-20, 20), dice.pick(-20, 20), dice.pick(1, size.width() + 40),
                                     dice.pick(1, size.height() + 40)))
    {
        const int count = test::randomBarCount(dice);
        auto builder = FormulaBuilder();
        builder.line(test::randomSeries(dice, count)).color(QColor(250, 120, dice.pick(0, 255)));
        builder.width(dice.oneIn(3) ? dice.pick(2, 4) : 1).columnType(dice.oneIn(5) ? 1 : 0);
        cache = builder.valid(test::randomFlags(dice, count)).build();
        range = dice.oneIn(15) ? qMakePair(50.0, 50.0)
            : dice.oneIn(15)   ? qMakePair(0.0, 100.0)
                               : qMakePair(dice.real(60.0, 120.0), dice.real(-20.0, 40.0));
        start = dice.oneIn(4) ? dice.pick(0, count / 2) : 0;
        end = dice.oneIn(4) ? dice.pick(start, count - 1) : count - 1;
        slots = dice.oneIn(6) ? dice.pick(1, count) : end - start;
        offset = dice.oneIn(3) ? dice.pick(-9, 9) : 0;
        style = dice.oneIn(6) ? static_cast<Qt::PenStyle>(dice.pick(2, 5)) : Qt::SolidLine;
        scale = dice.oneIn(4) ? static_cast<float>(dice.real(-2.0, 2.0)) : 1.0F;
        isFilled = dice.oneIn(5);
        isByIndex = dice.oneIn(4);
    }

    QRect pane;
    TC::RPCFormulaResultCache cache;
    QPair<double, double> range;
    int start, end, slots, offset;
    Qt::PenStyle style;
    float scale;
    bool isFilled, isByIndex;
};

using Paint = std::function<void(QPainter&, LineCall&)>;

void expectPlainPixels(const char* suite, const Paint& paint)
{
    for (const unsigned seed : test::seedsFor(suite, 250)) {
        Dice dice(seed);
        const RandomSurface surface(dice);
        LineCall call(dice, surface.size);
        TC::embedded::setClientType(dice.oneIn(8) ? 3 : 1);

        QImage inked = surface.image(), plain = surface.image();
        {
            QPainter painter(&inked);
            surface.prepare(painter);
            paint(painter, call);
        }
        {
            QPainter painter(&plain);
            surface.prepare(painter);
            test::paintPlainly(painter, [&](QPainter& recorder) { paint(recorder, call); });
        }
        EXPECT_TRUE(inked == plain) << "seed " << seed << ":" << surface.name << "; "
                                    << call.cache.result.barTimes.size() << " bars, width "
                                    << call.cache.meta.lineWidth[0] << " style " << call.style << " filled "
                                    << call.isFilled << "; " << test::difference(inked, plain);
    }
}

} // namespace

TEST(LineInk, PaintsTheUnbrokenLineAsItsPrimitives)
{
    expectPlainPixels("line_ink", [](QPainter& painter, LineCall& c) {
        CDrawStyle().drawSimpleLine(&painter, c.pane, c.cache, c.range, c.style, 0, c.start, c.end, c.slots,
                                    c.offset, false, true, c.scale, c.isFilled, c.isByIndex);
    });
}

TEST(LineInk, PaintsTheBrokenLineAsItsPrimitives)
{
    expectPlainPixels("broken_line_ink", [](QPainter& painter, LineCall& c) {
        CDrawStyle().drawSegmentLine(&painter, c.pane, c.cache, c.range, 0, c.start, c.end, c.slots, c.offset,
                                     false);
    });
}
