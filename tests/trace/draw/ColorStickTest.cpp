// SPDX-License-Identifier: MIT
#include "draw/CDrawStyle.h"
#include "tests/support/FormulaBuilder.h"
#include "tests/support/Trace.h"
#include "tests/trace/draw/PlainSkin.h"
#include "tests/trace/draw/TraceLines.h"

#include <cfloat>
#include <climits>
#include <cmath>

namespace {

using test::FormulaBuilder;
using test::lines;

/// Six slots of 10 pixels from the left edge; 5 pixels per unit, zero row 99 - 10 * 5 = 49.
struct ColorStick
{
    QRect pane { 0, 0, 60, 100 };
    QPair<double, double> range { 10.0, -10.0 };
    Qt::PenStyle style = Qt::SolidLine;
    int output = 0, start = 0, end = 99, xOffset = 0;
    bool fullWidth = true;
    int slotCount = 6;
    bool realtime = false, alignByIndex = true;

    QStringList drawFormula(TC::RPCFormulaResultCache cache)
    {
        return test::traceOf([&](QPainter& painter) {
            TC::CDrawStyle().drawColorStick(&painter, pane, cache, range, style, output, start, end, xOffset,
                                            fullWidth, slotCount, realtime, alignByIndex);
        });
    }
    QStringList draw(FormulaBuilder::Values values)
    {
        return drawFormula(FormulaBuilder().line(std::move(values)).build());
    }
};

class DrawColorStick : public test::PlainSkin
{
};

} // namespace

TEST_F(DrawColorStick, DrawsRiseStickTowardTheZeroRowAndFallStickAwayFromIt)
{
    // 99 - (5 + 10) * 5 = 24; 99 - (-5 + 10) * 5 = 74
    EXPECT_EQ(ColorStick().draw({ 5.0, -5.0 }),
              lines({ "line 0,24 0,49 pen=#ff0000/1/solid", "line 10,49 10,74 pen=#00ff00/1/solid" }));
}

TEST_F(DrawColorStick, LowersAFallStickThatEndsOnTheZeroRow)
{
    // 99 - (-0.1 + 10) * 5 = 49.5, on the zero row: one down
    EXPECT_EQ(ColorStick().draw({ -0.1 }), lines({ "line 0,49 0,50 pen=#00ff00/1/solid" }));
}

TEST_F(DrawColorStick, LiftsARiseStickThatEndsOnTheZeroRow)
{
    ColorStick call;
    call.range = { 10.0, -9.9 }; // 100 / 19.9 = 5.0251 a unit; zero row 99 - 9.9 * 5.0251 = 49.25
    // 99 - (0.01 + 9.9) * 5.0251 = 49.20, on the zero row: one up
    EXPECT_EQ(call.draw({ 0.01 }), lines({ "line 0,48 0,49 pen=#ff0000/1/solid" }));
}

TEST_F(DrawColorStick, LeavesAStickOnePixelLongAsItIs)
{
    // 99 - 10.1 * 5 = 48.5; 99 - 9.8 * 5 = 50
    EXPECT_EQ(ColorStick().draw({ 0.1, -0.2 }),
              lines({ "line 0,48 0,49 pen=#ff0000/1/solid", "line 10,49 10,50 pen=#00ff00/1/solid" }));
}

TEST_F(DrawColorStick, SkipsZerosWithinTheTolerance)
{
    EXPECT_EQ(ColorStick().draw({ 0.0, 1e-5, -1e-5 }), QStringList());
    EXPECT_EQ(ColorStick().draw({ 1.1e-5, -1.1e-5 }).size(), 2);
}

TEST_F(DrawColorStick, SkipsInvalidBarsAndNumbersThatAreNotFinite)
{
    const auto cache =
        FormulaBuilder().line({ 5.0, NAN, INFINITY, -INFINITY, 5.0 }).valid({ 0, 1, 1, 1, 1 }).build();
    EXPECT_EQ(ColorStick().drawFormula(cache), lines({ "line 40,24 40,49 pen=#ff0000/1/solid" }));
}

TEST_F(DrawColorStick, DrawsTheMissingMarkerAsAnEndlessStick)
{
    EXPECT_EQ(ColorStick().draw({ DBL_MAX, -DBL_MAX }),
              lines({ "line 0,-2147483648 0,49 pen=#ff0000/1/solid",
                      "line 10,49 10,2147483647 pen=#00ff00/1/solid" }));
}

TEST_F(DrawColorStick, AddsTheFractionalStartOffsetBeforeItTruncates)
{
    ColorStick call;
    call.pane = QRect(0, 0, 100, 100);
    call.slotCount = 7; // 14.2857 pixels a slot
    call.start = 1;
    // bar 4: 14.2857 + 3 * 14.2857 = 57.14; with the offset truncated first it would be 14 + 42.86 = 56.86
    EXPECT_EQ(call.draw({ 0.0, 0.0, 0.0, 0.0, 5.0 }), lines({ "line 57,24 57,49 pen=#ff0000/1/solid" }));
}

TEST_F(DrawColorStick, StandsRightAlignedByDefaultWithTheOffsetAdded)
{
    ColorStick call;
    call.alignByIndex = false;
    call.end = 1;
    call.xOffset = -7;
    call.pane.moveLeft(100);
    // 100 + |0 - 1 + 6| * 10 - 7 = 143
    EXPECT_EQ(call.draw({ 5.0, -5.0 }),
              lines({ "line 143,24 143,49 pen=#ff0000/1/solid", "line 153,49 153,74 pen=#00ff00/1/solid" }));
}

TEST_F(DrawColorStick, MovesRightAsWellWhenThereAreMoreBarsThanSlots)
{
    ColorStick call;
    call.alignByIndex = false;
    call.end = 8;
    // |0 - 8 + 6| * 10 = 20
    EXPECT_EQ(call.draw({ 5.0 }), lines({ "line 20,24 20,49 pen=#ff0000/1/solid" }));
}

TEST_F(DrawColorStick, StartsAtTheOffsetForClientTypeThree)
{
    TC::embedded::setClientType(3);
    ColorStick call;
    call.alignByIndex = false;
    call.end = 1;
    call.xOffset = 4;
    EXPECT_EQ(call.draw({ 5.0 }), lines({ "line 4,24 4,49 pen=#ff0000/1/solid" }));
}

TEST_F(DrawColorStick, AlignedByIndexIgnoresTheOffsetAndTheClientType)
{
    TC::embedded::setClientType(3);
    ColorStick call;
    call.start = 2;
    call.xOffset = 4;
    EXPECT_EQ(call.draw({ 0.0, 0.0, 5.0 }), lines({ "line 20,24 20,49 pen=#ff0000/1/solid" }));
}

TEST_F(DrawColorStick, LimitsXToTheRightEdgeOnly)
{
    ColorStick call;
    call.alignByIndex = false;
    call.end = 1;
    // the last bar of a right-aligned run stands at 50 + 10 = 60, past the right edge 59
    EXPECT_EQ(call.draw({ 5.0, 5.0 }).last(), QStringLiteral("line 59,24 59,49 pen=#ff0000/1/solid"));
    call.xOffset = -60;
    EXPECT_EQ(call.draw({ 5.0, 5.0 }).first(), QStringLiteral("line -10,24 -10,49 pen=#ff0000/1/solid"));
}

TEST_F(DrawColorStick, ScalesAFlatRangeByItsMaximumAlone)
{
    ColorStick call;
    call.pane = QRect(0, 10, 60, 100);
    call.range = { 5.0, 5.0 };
    // 100 / 5 = 20 a unit; zero row 109 - (0 - 5) * 20 = 209; value 5 on row 109, 4 on row 129
    EXPECT_EQ(call.draw({ 5.0, 4.0 }),
              lines({ "line 0,109 0,209 pen=#ff0000/1/solid", "line 10,129 10,209 pen=#ff0000/1/solid" }));
}

TEST_F(DrawColorStick, DrawsNothingWhereTheZeroRowIsNotANumber)
{
    ColorStick call;
    call.range = { 0.0, 0.0 };
    EXPECT_EQ(call.draw({ 5.0, -5.0 }), QStringList());
}

TEST_F(DrawColorStick, LeavesASpareSlotUnlessTheFullWidthIsUsed)
{
    ColorStick call;
    call.fullWidth = false;
    call.slotCount = 5;
    EXPECT_EQ(call.draw({ 0.0, 5.0 }), lines({ "line 10,24 10,49 pen=#ff0000/1/solid" }));
}

TEST_F(DrawColorStick, NeedsAtLeastOneSlotInTheDivisor)
{
    ColorStick call;
    call.slotCount = 0;
    EXPECT_EQ(call.draw({ 5.0 }), QStringList());
    call.fullWidth = false; // divisor 1: the whole width is one slot
    EXPECT_EQ(call.draw({ 5.0 }), lines({ "line 0,24 0,49 pen=#ff0000/1/solid" }));
    call.slotCount = -1;
    EXPECT_EQ(call.draw({ 5.0 }), QStringList());
}

TEST_F(DrawColorStick, TakesTheSingleColourForBothDirectionsInRealtime)
{
    ColorStick call;
    call.realtime = true;
    EXPECT_EQ(call.draw({ 5.0, -5.0 }),
              lines({ "line 0,24 0,49 pen=#0000ff/1/solid", "line 10,49 10,74 pen=#0000ff/1/solid" }));
}

TEST_F(DrawColorStick, TakesTheCallersPenStyleAndNotTheOutputsWidth)
{
    ColorStick call;
    call.style = Qt::DotLine;
    EXPECT_EQ(call.drawFormula(FormulaBuilder().line({ 5.0 }).width(0).style(17).build()),
              lines({ "line 0,24 0,49 pen=#ff0000/1/dot" }));
}

TEST_F(DrawColorStick, IsBlackWhereTheSkinHasNoColour)
{
    TC::embedded::removeSkinKey(QStringLiteral("ic_clr_kline_rise"));
    EXPECT_EQ(ColorStick().draw({ 5.0 }), lines({ "line 0,24 0,49 pen=#000000/1/solid" }));
}

TEST_F(DrawColorStick, ReadsTheFirstColumnOfItsOwnOutput)
{
    ColorStick call;
    call.output = 1;
    EXPECT_EQ(call.drawFormula(FormulaBuilder().line({ 1.0 }).output("B", 2, { { 5.0 }, { 9.0 } }).build()),
              lines({ "line 0,24 0,49 pen=#ff0000/1/solid" }));
}

TEST_F(DrawColorStick, DrawsNothingWithoutSeriesOrOutput)
{
    auto cache = FormulaBuilder().line({ 5.0 }).build();
    ColorStick call;
    call.output = 1;
    EXPECT_EQ(call.drawFormula(cache), QStringList());
    call.output = -1;
    EXPECT_EQ(call.drawFormula(cache), QStringList());
    cache.result.numberSeries.clear();
    EXPECT_EQ(ColorStick().drawFormula(cache), QStringList());
}

TEST_F(DrawColorStick, StartsAtBarZeroWhenTheStartIsNegative)
{
    ColorStick call;
    call.start = -2;
    // 10 pixels a slot: bar 0 at -20 + 2 * 10 = 0
    EXPECT_EQ(call.draw({ 5.0 }), lines({ "line 0,24 0,49 pen=#ff0000/1/solid" }));
    call.end = -1;
    EXPECT_EQ(call.draw({ 5.0 }), QStringList());
}
