// SPDX-License-Identifier: MIT
#include "draw/CDrawStyle.h"
#include "tests/support/FormulaBuilder.h"
#include "tests/support/Trace.h"
#include "tests/trace/draw/PlainSkin.h"
#include "tests/trace/draw/TraceLines.h"

#include <cfloat>
#include <cmath>

namespace {

using test::FormulaBuilder;
using test::lines;

/// Six slots of 10 pixels from the left edge, bodies of 6 pixels; 10 pixels per unit above row 99.
struct StackVolstick
{
    QRect pane { 0, 0, 60, 100 };
    QPair<double, double> range { 10.0, 0.0 };
    int output = 0, start = 0, end = 99, halfWidth = 3;
    bool fullWidth = true;
    int slotCount = 6;
    bool alignByIndex = true;

    QStringList drawFormula(TC::RPCFormulaResultCache cache)
    {
        return test::traceOf([&](QPainter& painter) {
            TC::CDrawStyle().drawStackVolstick(&painter, pane, cache, range, output, start, end, halfWidth,
                                               fullWidth, slotCount, alignByIndex);
        });
    }
    /// One bar stacked from the given parts, in red, yellow, magenta (0x00BBGGRR).
    QStringList draw(const std::vector<double>& parts) { return drawFormula(stack(parts)); }

    static TC::RPCFormulaResultCache stack(const std::vector<double>& parts)
    {
        std::vector<FormulaBuilder::Values> columns;
        for (double part : parts)
            columns.push_back({ part });
        auto cache = FormulaBuilder().output("STACK", 42, columns).build();
        cache.meta.color = { 0x0000FF, 0x00FFFF, 0xFF00FF };
        return cache;
    }
};

class DrawStackVolstick : public test::PlainSkin
{
};

} // namespace

TEST_F(DrawStackVolstick, PutsEachPartOnTheOnesBeforeIt)
{
    // 2: row 99 - 20 = 79, 20 rows; 2 + 3: row 49, 30 rows
    EXPECT_EQ(StackVolstick().draw({ 2.0, 3.0 }),
              lines({ "fill 0,80 6x20 #ff0000", "fill 0,50 6x30 #ffff00" }));
}

TEST_F(DrawStackVolstick, AZeroPartKeepsItsColour)
{
    EXPECT_EQ(StackVolstick().draw({ 2.0, 0.00001, 3.0 }),
              lines({ "fill 0,80 6x20 #ff0000", "fill 0,50 6x30 #ff00ff" }));
}

TEST_F(DrawStackVolstick, AMissingPartAddsNothing)
{
    EXPECT_EQ(StackVolstick().draw({ NAN, DBL_MAX, 3.0 }), lines({ "fill 0,70 6x30 #ff00ff" }));
}

TEST_F(DrawStackVolstick, MarksAPartOfOnePixelOnTheBottomRow)
{
    // 0.15 * 10 = 1.5, one row: at row 99 across 6 pixels, not at the stack's top
    EXPECT_EQ(StackVolstick().draw({ 2.0, 0.15, 3.0 }),
              lines({ "fill 0,80 6x20 #ff0000", "line 0,99 6,99 pen=#ffff00/1/solid",
                      "fill 0,48 6x30 #ff00ff" })); // 99 - 5.15 * 10 = 47.5
}

TEST_F(DrawStackVolstick, MarksANegativePartAndTakesItOffTheStack)
{
    EXPECT_EQ(
        StackVolstick().draw({ 5.0, -2.0, 2.0 }),
        lines({ "fill 0,50 6x50 #ff0000", "line 0,99 6,99 pen=#ffff00/1/solid", "fill 0,50 6x20 #ff00ff" }));
}

TEST_F(DrawStackVolstick, ColoursAreTheEntriesFromItsOutputOnAsNamedColours)
{
    auto cache = FormulaBuilder().line({ 1.0 }).output("STACK", 42, { { 2.0 }, { 2.0 }, { 2.0 } }).build();
    cache.meta.color = { 0x0000FF, 0x00FF00, 0xFFFF54 }; // green is Qt's darker one; the third is missing
    StackVolstick call;
    call.output = 1;
    EXPECT_EQ(call.drawFormula(cache),
              lines({ "fill 0,80 6x20 #008000", "fill 0,60 6x20 #00ffff", "fill 0,40 6x20 #ffffff" }));
}

TEST_F(DrawStackVolstick, IgnoresWhetherTheOutputChoseItsColour)
{
    auto cache = StackVolstick::stack({ 2.0 });
    cache.meta.colorSet = { 0 };
    EXPECT_EQ(StackVolstick().drawFormula(cache), lines({ "fill 0,80 6x20 #ff0000" }));
    cache.meta.colorSet.clear();
    EXPECT_EQ(StackVolstick().drawFormula(cache), lines({ "fill 0,80 6x20 #ff0000" }));
}

TEST_F(DrawStackVolstick, DoesNotReadTheOutputsWidth)
{
    auto cache = StackVolstick::stack({ 2.0 });
    cache.meta.lineWidth = { 0 };
    EXPECT_EQ(StackVolstick().drawFormula(cache), lines({ "fill 0,80 6x20 #ff0000" }));
}

TEST_F(DrawStackVolstick, CountsTheLeftEdgeTwiceWhenAlignedByIndex)
{
    StackVolstick call;
    call.pane.moveLeft(100);
    EXPECT_EQ(call.draw({ 2.0 }), lines({ "fill 200,80 6x20 #ff0000" }));
    call.alignByIndex = false;
    call.end = 0; // 100 + |0 - 0 + 6| * 10 = 160
    EXPECT_EQ(call.draw({ 2.0 }), lines({ "fill 160,80 6x20 #ff0000" }));
}

TEST_F(DrawStackVolstick, TruncatesTheStartOffsetWithTheLeftEdge)
{
    auto cache = FormulaBuilder().output("STACK", 42, { { 0.0, 0.0, 0.0, 0.0, 2.0 } }).color(Qt::red).build();
    StackVolstick call;
    call.pane = QRect(0, 0, 100, 100);
    call.slotCount = 7; // 14.2857 pixels a slot
    call.start = 1;
    call.halfWidth = 1;
    // bar 4: 14 + 3 * 14.2857 = 56.86; with the offset left fractional it would be 57.14
    EXPECT_EQ(call.drawFormula(cache), lines({ "fill 56,80 2x20 #ff0000" }));
}

TEST_F(DrawStackVolstick, StartsHalfABodyFurtherRightForClientTypeThree)
{
    TC::embedded::setClientType(3);
    StackVolstick call;
    call.alignByIndex = false;
    call.end = 0;
    EXPECT_EQ(call.draw({ 2.0 }), lines({ "fill 3,80 6x20 #ff0000" }));
    call.alignByIndex = true;
    EXPECT_EQ(call.draw({ 2.0 }), lines({ "fill 0,80 6x20 #ff0000" }));
}

TEST_F(DrawStackVolstick, HasNoStartOffsetWithoutSlots)
{
    StackVolstick call;
    call.pane.moveLeft(100);
    call.fullWidth = false;
    call.slotCount = 0;
    EXPECT_EQ(call.draw({ 2.0 }), lines({ "fill 100,80 6x20 #ff0000" }));
}

TEST_F(DrawStackVolstick, DrawsBodiesOfAtLeastOnePixel)
{
    StackVolstick call;
    call.halfWidth = 0;
    EXPECT_EQ(call.draw({ 2.0 }), lines({ "fill 0,80 1x20 #ff0000" }));
}

TEST_F(DrawStackVolstick, DoesNotReadTheMinimumOfTheRange)
{
    StackVolstick call;
    call.range = { 10.0, 5.0 };
    EXPECT_EQ(call.draw({ 2.0 }), lines({ "fill 0,80 6x20 #ff0000" }));
}

TEST_F(DrawStackVolstick, SkipsInvalidBars)
{
    auto cache =
        FormulaBuilder().output("STACK", 42, { { 2.0, 2.0 } }).color(Qt::red).valid({ 0, 1 }).build();
    EXPECT_EQ(StackVolstick().drawFormula(cache), lines({ "fill 10,80 6x20 #ff0000" }));
}

TEST_F(DrawStackVolstick, DrawsNothingWithoutColumnsOrWithAnEndlessScaleOverAnEmptySum)
{
    EXPECT_EQ(StackVolstick().draw(std::vector<double>()), QStringList());
    StackVolstick call;
    call.range = { 0.0, 0.0 };
    // the parts cancel out: 0 * infinity has no row
    EXPECT_EQ(call.draw({ 5.0, -5.0 }).size(), 1);
    call.output = -1;
    EXPECT_EQ(call.draw({ 5.0 }), QStringList());
}
