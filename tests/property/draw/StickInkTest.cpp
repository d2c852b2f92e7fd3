// SPDX-License-Identifier: MIT
#include "draw/CDrawStyle.h"
#include "tests/support/FormulaBuilder.h"
#include "tests/support/InkScene.h"

#include <gtest/gtest.h>

#include <memory>

using TC::CDrawStyle;
using test::Dice;
using test::FormulaBuilder;

namespace {

/// What the painters of sticks, candles and dots share; the columns are each test's own.
struct Call
{
    Call(Dice& dice, const QSize& size)
        : pane(dice.oneIn(2) ? QRect(QPoint(), size)
                             : QRect(dice.pick(-20, 20), dice.pick(-20, 20), dice.pick(1, size.width() + 40),
                                     dice.pick(1, size.height() + 40)))
        , count(test::randomBarCount(dice))
        , range(dice.oneIn(15)       ? qMakePair(50.0, 50.0)
                    : dice.oneIn(15) ? qMakePair(0.0, 100.0)
                                     : qMakePair(dice.real(60.0, 200.0), dice.real(-20.0, 40.0)))
        , flags(test::randomFlags(dice, count))
        , start(dice.oneIn(4) ? dice.pick(0, count / 2) : 0)
        , end(dice.oneIn(4) ? dice.pick(start, count - 1) : count - 1)
        , slots(dice.oneIn(6) ? dice.pick(1, count) : end - start + 1)
        , offset(dice.oneIn(3) ? dice.pick(-9, 9) : 0)
        , half(dice.oneIn(2) ? 0 : dice.pick(0, 7))
        , flag(dice.oneIn(2))
        , isByIndex(dice.oneIn(4))
    {
    }

    void shorten(int most)
    {
        count = std::min(count, most);
        flags.resize(static_cast<std::size_t>(count));
        start = std::min(start, count - 1);
        end = std::min(end, count - 1);
    }

    /// Numbers whose sizes fit the range.
    FormulaBuilder::Values series(Dice& dice) const { return test::randomSeries(dice, count); }

    /// Open, high, low and close; at times one of them lacks.
    std::vector<FormulaBuilder::Values> prices(Dice& dice) const
    {
        std::vector<FormulaBuilder::Values> columns(4, series(dice));
        const bool isStill = dice.oneIn(6);
        for (std::size_t bar = 0; bar < columns[0].size() && !isStill; ++bar) {
            if (bar > 0 && !dice.oneIn(40))
                columns[0][bar] = columns[3][bar - 1];
            columns[1][bar] = std::max(columns[0][bar], columns[3][bar]) + dice.real(0.0, 4.0);
            columns[2][bar] = std::min(columns[0][bar], columns[3][bar]) - dice.real(0.0, 4.0);
        }
        return columns;
    }

    void build(FormulaBuilder builder) { cache = builder.valid(flags).build(); }

    QRect pane;
    int count;
    QPair<double, double> range;
    std::vector<int> flags;
    int start, end, slots, offset, half;
    bool flag, isByIndex;
    TC::RPCFormulaResultCache cache;
};

using Make = std::function<void(Call&, Dice&)>;
using Paint = std::function<void(QPainter&, Call&)>;

void expectPlainPixels(const char* suite, const Make& make, const Paint& paint)
{
    test::expectPlainPixels(suite, 75, [&](Dice& dice, const QSize& size) {
        const auto call = std::make_shared<Call>(dice, size);
        make(*call, dice);
        return [call, paint](QPainter& painter) { paint(painter, *call); };
    });
}

} // namespace

TEST(StickInk, PaintsCandlesAsTheirPrimitives)
{
    expectPlainPixels(
        "candle_ink", [](Call& c, Dice& dice) { c.build(FormulaBuilder().output("K", 12, c.prices(dice))); },
        [](QPainter& painter, Call& c) {
            CDrawStyle().drawKLine(&painter, c.pane, c.cache, c.range, 0, c.start, c.end, c.slots, c.half,
                                   c.isByIndex ? 60 : 86400, true, c.flag ? 1.0F : 1.5F, 2);
        });
}

TEST(StickInk, PaintsCandlesAsTheirPrimitivesWhereHighAndLowLieInsideTheBody)
{
    expectPlainPixels(
        "inside_out_candle_ink",
        [](Call& c, Dice& dice) {
            c.shorten(400);
            c.half = dice.oneIn(4) ? 1 : 0;
            auto columns = c.prices(dice);
            for (std::size_t bar = 0; bar < columns[0].size(); ++bar) {
                columns[3][bar] = columns[0][bar] + dice.real(0.0, 30.0);
                columns[1][bar] = columns[0][bar] + dice.real(-10.0, 40.0);
                columns[2][bar] = columns[1][bar] - dice.real(0.0, 20.0);
            }
            c.build(FormulaBuilder().output("K", 12, columns));
        },
        [](QPainter& painter, Call& c) {
            CDrawStyle().drawKLine(&painter, c.pane, c.cache, c.range, 0, c.start, c.end, c.slots, c.half,
                                   86400, true, 1.0F, 2);
        });
}

TEST(StickInk, PaintsVolumeAsItsPrimitives)
{
    expectPlainPixels(
        "volume_ink",
        [](Call& c, Dice& dice) {
            c.build(FormulaBuilder().output("V", 27, { c.series(dice), c.series(dice), c.series(dice) }));
        },
        [](QPainter& painter, Call& c) {
            CDrawStyle().drawVolStick(&painter, c.pane, c.cache, c.range, 0, c.start, c.end, c.half, c.flag,
                                      false, c.slots, 50.0, c.isByIndex);
        });
}

TEST(StickInk, PaintsVolumeAsItsPrimitivesWhereHighSticksAreNotValid)
{
    expectPlainPixels(
        "invalid_volume_ink",
        [](Call& c, Dice& dice) {
            c.count = dice.pick(4'000, 9'000); // a dozen bars a pixel column
            c.start = 0;
            c.end = c.slots = c.count - 1;
            c.half = 0;
            c.flags.assign(static_cast<std::size_t>(c.count), 1);
            auto volumes = c.series(dice);
            for (std::size_t bar = 0; bar < volumes.size(); ++bar) {
                if (!dice.oneIn(5))
                    continue;
                c.flags[bar] = 0;
                volumes[bar] = dice.real(20.0, 150.0);
            }
            c.build(FormulaBuilder().output("V", 27, { volumes, c.series(dice), c.series(dice) }));
        },
        [](QPainter& painter, Call& c) {
            CDrawStyle().drawVolStick(&painter, c.pane, c.cache, c.range, 0, c.start, c.end, c.half, c.flag,
                                      false, c.slots, 50.0, c.isByIndex);
        });
}

TEST(StickInk, PaintsStackedVolumeAsItsPrimitives)
{
    expectPlainPixels(
        "stack_ink",
        [](Call& c, Dice& dice) {
            auto builder = FormulaBuilder();
            builder.output("S", 42, { c.series(dice), c.series(dice) }).color(QColor(200, 30, 90));
            c.build(builder.line(c.series(dice)).color(QColor(20, 130, 90)));
        },
        [](QPainter& painter, Call& c) {
            CDrawStyle().drawStackVolstick(&painter, c.pane, c.cache, c.range, 0, c.start, c.end, c.half,
                                           false, c.slots, c.isByIndex);
        });
}

TEST(StickInk, PaintsColourSticksAsTheirPrimitives)
{
    expectPlainPixels(
        "colour_stick_ink",
        [](Call& c, Dice& dice) {
            auto values = c.series(dice);
            for (double& value : values)
                value -= 50.0;
            c.build(FormulaBuilder().line(values));
        },
        [](QPainter& painter, Call& c) {
            const Qt::PenStyle style = c.half == 1 ? Qt::DashLine : Qt::SolidLine;
            CDrawStyle().drawColorStick(&painter, c.pane, c.cache, { 60.0, -60.0 }, style, 0, c.start, c.end,
                                        c.offset, false, c.slots, c.flag, c.isByIndex);
        });
}

TEST(StickInk, PaintsStickLinesAsTheirPrimitives)
{
    expectPlainPixels(
        "stick_line_ink",
        [](Call& c, Dice& dice) {
            const FormulaBuilder::Values width(static_cast<std::size_t>(c.count), dice.pick(0, 16));
            const FormulaBuilder::Values empty(static_cast<std::size_t>(c.count), dice.pick(0, 1));
            auto builder = FormulaBuilder();
            builder.output("L", 28, { c.series(dice), c.series(dice), c.series(dice), width, empty });
            c.build(builder.width(dice.oneIn(3) ? dice.pick(2, 4) : 1).color(QColor(20, 130, 90)));
        },
        [](QPainter& painter, Call& c) {
            CDrawStyle().drawStickKline(&painter, c.pane, c.range, c.cache, c.start, c.end, 0, c.offset,
                                        false, c.slots);
        });
}

TEST(StickInk, PaintsVerticalLinesAsTheirPrimitives)
{
    expectPlainPixels(
        "vertical_line_ink",
        [](Call& c, Dice& dice) {
            static const int styles[] = { 0, 0, 15, 16, 17, 3 };
            auto builder = FormulaBuilder();
            builder.output("L", 34, { c.series(dice), c.series(dice), c.series(dice) });
            builder.width(dice.oneIn(3) ? dice.pick(2, 4) : 1).style(styles[dice.pick(0, 5)]);
            c.build(builder.color(QColor(20, 130, 90)));
        },
        [](QPainter& painter, Call& c) {
            CDrawStyle().drawVertLine(&painter, c.pane, c.cache, c.range, Qt::SolidLine, 0, c.start, c.end,
                                      c.offset, c.slots);
        });
}

TEST(StickInk, PaintsStepLinesAsTheirPrimitives)
{
    expectPlainPixels(
        "step_line_ink",
        [](Call& c, Dice& dice) {
            auto values = c.series(dice);
            for (double& value : values)
                value = value > 50.0 ? 1.0 : 0.0;
            auto builder = FormulaBuilder();
            c.build(builder.line(values).columnType(2).width(dice.pick(1, 3)).color(QColor(20, 130, 90)));
        },
        [](QPainter& painter, Call& c) {
            CDrawStyle().drawBoolLine(&painter, c.pane, c.cache, { 1.2, -0.2 },
                                      c.flag ? Qt::SolidLine : Qt::DotLine, 0, c.start, c.end, c.offset,
                                      c.slots);
        });
}

TEST(StickInk, PaintsDotsAsTheirPrimitives)
{
    expectPlainPixels(
        "dot_ink",
        [](Call& c, Dice& dice) {
            c.shorten(500); // a circle under a rotated painter takes its time
            auto builder = FormulaBuilder();
            c.build(builder.line(c.series(dice)).width(dice.oneIn(3) ? 2 : 1).color(QColor(20, 130, 90)));
        },
        [](QPainter& painter, Call& c) {
            if (c.flag)
                CDrawStyle::drawPointDot(&painter, c.pane, c.cache, c.range, 0, c.start, c.end, c.offset,
                                         false, c.slots);
            else
                CDrawStyle::drawCircleDot(&painter, c.pane, c.cache, c.range, 0, c.start, c.end, c.offset,
                                          false, c.slots, c.isByIndex);
        });
}

TEST(StickInk, PaintsTradesAsTheirPrimitives)
{
    expectPlainPixels(
        "trade_ink",
        [](Call& c, Dice& dice) {
            auto builder = FormulaBuilder();
            const FormulaBuilder::Values lower(static_cast<std::size_t>(c.count), 40.0),
                upper(static_cast<std::size_t>(c.count), 60.0);
            builder.series(lower).series(upper).series(lower).series(upper).line(c.series(dice));
            c.build(builder.output("V", 4, { c.series(dice), lower, c.series(dice) }));
        },
        [](QPainter& painter, Call& c) {
            if (c.isByIndex)
                CDrawStyle().drawTick(&painter, c.pane, c.range, c.cache, c.start, c.end, 0, c.half, 0.0, 0.0,
                                      false, c.slots);
            else
                CDrawStyle().drawTickVolStick(&painter, c.pane, c.cache, c.range, 1, c.start, c.end, c.half,
                                              c.flag, false, c.slots, 0.0);
        });
}
