// SPDX-License-Identifier: MIT
#include "draw/CDrawStyle.h"
#include "host/embedded/EmbeddedHost.h"
#include "tests/support/FormulaBuilder.h"
#include "tests/support/Trace.h"
#include "tests/trace/draw/TraceLines.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>

namespace {

using test::FormulaBuilder;
using test::lines;

struct Stick
{
    double condition, price1, price2, width, empty;
};

/// A filled stick between 8 and 2 as wide as half a slot.
constexpr Stick kFilled { 1.0, 8.0, 2.0, 5.0, 0.0 };

FormulaBuilder sticks(const std::vector<Stick>& bars)
{
    std::vector<FormulaBuilder::Values> columns(5);
    for (const Stick& bar : bars) {
        columns[0].push_back(bar.condition);
        columns[1].push_back(bar.price1);
        columns[2].push_back(bar.price2);
        columns[3].push_back(bar.width);
        columns[4].push_back(bar.empty);
    }
    return FormulaBuilder().output("STICKLINE", 28, columns).color(Qt::red);
}

/// Five slots of 20 pixels; 10 pixels per unit above row 99: price 8 on row 19, price 2 on row 79.
struct StickKline
{
    QRect pane { 0, 0, 100, 100 };
    QPair<double, double> range { 10.0, 0.0 };
    int start = 0, end = 99, output = 0, xOffset = 0;
    bool fullWidth = true;
    int slotCount = 5;

    QStringList drawFormula(TC::RPCFormulaResultCache cache)
    {
        return test::traceOf([&](QPainter& painter) {
            TC::CDrawStyle().drawStickKline(&painter, pane, range, cache, start, end, output, xOffset,
                                            fullWidth, slotCount);
        });
    }
    QStringList draw(const std::vector<Stick>& bars) { return drawFormula(sticks(bars).build()); }
};

} // namespace

TEST(DrawStickKline, WidthFiveOnSlotsOfTwentyPixelsIsTenPixelsWide)
{
    // 5 * 20 / 10 = 10, from x - 5
    EXPECT_EQ(StickKline().draw({ kFilled, kFilled }),
              lines({ "fill -5,19 10x60 #ff0000", "fill 15,19 10x60 #ff0000" }));
}

TEST(DrawStickKline, WidthSixteenOrMoreIsAOnePixelLineWhateverTheSlot)
{
    EXPECT_EQ(StickKline().draw({ { 1.0, 8.0, 2.0, 16.0, 0.0 }, { 1.0, 8.0, 2.0, DBL_MAX, 1.0 } }),
              lines({ "line 0,19 0,79 pen=#ff0000/1/solid", "line 20,19 20,79 pen=#ff0000/1/solid" }));
    // just below: 15.9 * 20 / 10 = 31.8
    EXPECT_EQ(StickKline().draw({ { 1.0, 8.0, 2.0, 15.9, 0.0 } }), lines({ "fill -15,19 31x60 #ff0000" }));
}

TEST(DrawStickKline, AStickOfLessThanTwoPixelsIsALine)
{
    // 0.9 * 20 / 10 = 1.8
    EXPECT_EQ(StickKline().draw({ { 1.0, 8.0, 2.0, 0.9, 0.0 }, { 1.0, 8.0, 2.0, -3.0, 1.0 } }),
              lines({ "line 0,19 0,79 pen=#ff0000/1/solid", "line 20,19 20,79 pen=#ff0000/1/solid" }));
}

TEST(DrawStickKline, OutlinesOnlyWhenTheEmptyFlagIsExactlyOne)
{
    EXPECT_EQ(StickKline().draw({ { 1.0, 8.0, 2.0, 5.0, 1.0 } }),
              lines({ "rect -5,19 10x60 pen=#ff0000/1/solid brush=none" }));
    for (double flag : { 0.999999, 1.000001, 2.0, -1.0, static_cast<double>(NAN) })
        EXPECT_EQ(StickKline().draw({ { 1.0, 8.0, 2.0, 5.0, flag } }), lines({ "fill -5,19 10x60 #ff0000" }))
            << flag;
}

TEST(DrawStickKline, PassesANegativeHeightAsItIs)
{
    // price 1 below price 2: from row 79 up to row 19
    EXPECT_EQ(StickKline().draw({ { 1.0, 2.0, 8.0, 5.0, 0.0 } }), lines({ "fill -5,79 10x-60 #ff0000" }));
    EXPECT_EQ(StickKline().draw({ { 1.0, 2.0, 8.0, 5.0, 1.0 } }),
              lines({ "rect -5,79 10x-60 pen=#ff0000/1/solid brush=none" }));
}

TEST(DrawStickKline, AConditionOfExactlyZeroDrawsNothing)
{
    EXPECT_EQ(StickKline().draw({ { 0.0, 8.0, 2.0, 5.0, 0.0 }, { -0.0, 8.0, 2.0, 5.0, 0.0 } }),
              QStringList());
    // far within the tolerance of zero, yet not zero
    EXPECT_EQ(StickKline().draw({ { 1e-9, 8.0, 2.0, 5.0, 0.0 } }).size(), 1);
}

TEST(DrawStickKline, SkipsMissingPrices)
{
    for (double missing : { static_cast<double>(NAN), static_cast<double>(INFINITY), DBL_MAX }) {
        EXPECT_EQ(StickKline().draw({ { 1.0, missing, 2.0, 5.0, 0.0 } }), QStringList()) << missing;
        EXPECT_EQ(StickKline().draw({ { 1.0, 8.0, missing, 5.0, 0.0 } }), QStringList()) << missing;
    }
}

TEST(DrawStickKline, TakesTheLargestIntOfAnIntegerColumnAsAPrice)
{
    auto cache = sticks({ { 1.0, 2147483647.0, 2.0, 16.0, 0.0 } }).build();
    cache.result.columnType[1] = 1;
    EXPECT_EQ(StickKline().drawFormula(cache), lines({ "line 0,-2147483648 0,79 pen=#ff0000/1/solid" }));
}

TEST(DrawStickKline, SkipsAStickWhoseWidthIsNotANumber)
{
    EXPECT_EQ(StickKline().draw({ { 1.0, 8.0, 2.0, NAN, 0.0 } }), QStringList());
}

TEST(DrawStickKline, SkipsInvalidBarsAndBarsPastAShortColumn)
{
    EXPECT_EQ(StickKline().drawFormula(sticks({ kFilled, kFilled }).valid({ 0, 1 }).build()),
              lines({ "fill 15,19 10x60 #ff0000" }));
    auto cache = sticks({ kFilled, kFilled }).build();
    cache.result.numberSeries[4].resize(1);
    EXPECT_EQ(StickKline().drawFormula(cache), lines({ "fill -5,19 10x60 #ff0000" }));
}

TEST(DrawStickKline, StandsAtTheLeftEdgePlusTheOffset)
{
    StickKline call;
    call.pane = QRect(50, 10, 100, 100);
    call.xOffset = 7;
    call.start = 1;
    // 50 + (1 - 1) * 20 + 7 - 5 = 52; price 8 on row 109 - 80 = 29
    EXPECT_EQ(call.draw({ kFilled, kFilled }), lines({ "fill 52,29 10x60 #ff0000" }));
}

TEST(DrawStickKline, TruncatesNegativePlacesTowardZero)
{
    StickKline call;
    call.pane = QRect(0, 0, 50, 100);
    call.slotCount = 4; // 12.5 pixels a slot
    call.xOffset = -13;
    // bar 1: 12.5 - 13 = -0.5, column 0
    EXPECT_EQ(call.draw({ {}, { 1.0, 8.0, 2.0, 16.0, 0.0 } }),
              lines({ "line 0,19 0,79 pen=#ff0000/1/solid" }));
}

TEST(DrawStickKline, LeavesASpareSlotUnlessTheFullWidthIsUsed)
{
    StickKline call;
    call.fullWidth = false;
    call.slotCount = 4;
    EXPECT_EQ(call.draw({ {}, kFilled }), lines({ "fill 15,19 10x60 #ff0000" }));
}

TEST(DrawStickKline, TakesColourAndWidthOfTheOutputAndDrawsSolid)
{
    EXPECT_EQ(StickKline().drawFormula(sticks({ { 1.0, 8.0, 2.0, 16.0, 0.0 } }).width(3).style(15).build()),
              lines({ "line 0,19 0,79 pen=#ff0000/3/solid" }));
    TC::embedded::setColor(QStringLiteral("ic_clr_index_output_var1"), QColor(1, 2, 3));
    EXPECT_EQ(StickKline().drawFormula(sticks({ kFilled }).paletteColor().build()),
              lines({ "fill -5,19 10x60 #010203" }));
}

TEST(DrawStickKline, DrawsNothingAtLineWidthZeroOrWithoutColour)
{
    EXPECT_EQ(StickKline().drawFormula(sticks({ kFilled }).width(0).build()), QStringList());
    auto cache = sticks({ kFilled }).build();
    cache.meta.color.clear();
    EXPECT_EQ(StickKline().drawFormula(cache), QStringList());
}

TEST(DrawStickKline, NeedsFiveColumns)
{
    auto cache = sticks({ kFilled }).build();
    cache.meta.outputColumns[0].pop_back();
    EXPECT_EQ(StickKline().drawFormula(cache), QStringList());
    cache = sticks({ kFilled }).column({ 1.0 }).build(); // a sixth is not read
    EXPECT_EQ(StickKline().drawFormula(cache), lines({ "fill -5,19 10x60 #ff0000" }));
}

TEST(DrawStickKline, MakesNoTestForAFlatRange)
{
    StickKline call;
    call.range = { 5.0, 5.0 };
    // 8 is endlessly far above, 2 endlessly far below; 5 itself has no row
    EXPECT_EQ(call.draw({ { 1.0, 8.0, 2.0, 16.0, 0.0 }, { 1.0, 5.0, 2.0, 16.0, 0.0 } }),
              lines({ "line 0,-2147483648 0,2147483647 pen=#ff0000/1/solid" }));
}

TEST(DrawStickKline, LimitsARectangleToWhatQtCanAdd)
{
    StickKline call;
    call.range = { 5.0, 5.0 };
    EXPECT_EQ(call.draw({ { 1.0, 8.0, 2.0, 5.0, 0.0 } }),
              lines({ "fill -5,-1000000000 10x1000000000 #ff0000" }));
}
