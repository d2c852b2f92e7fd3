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

} // namespace

TEST(LineInk, PaintsTheUnbrokenLineAsItsPrimitives)
{
    test::expectPlainPixels("line_ink", 250, [](Dice& dice, const QSize& size) {
        const auto c = std::make_shared<LineCall>(dice, size);
        return [c](QPainter& painter) {
            CDrawStyle().drawSimpleLine(&painter, c->pane, c->cache, c->range, c->style, 0, c->start, c->end,
                                        c->slots, c->offset, false, true, c->scale, c->isFilled,
                                        c->isByIndex);
        };
    });
}

TEST(LineInk, PaintsTheBrokenLineAsItsPrimitives)
{
    test::expectPlainPixels("broken_line_ink", 150, [](Dice& dice, const QSize& size) {
        const auto c = std::make_shared<LineCall>(dice, size);
        return [c](QPainter& painter) {
            CDrawStyle().drawSegmentLine(&painter, c->pane, c->cache, c->range, 0, c->start, c->end, c->slots,
                                         c->offset, false);
        };
    });
}
