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

/// Six slots of 10 pixels (five and a spare one); 10 pixels per unit, zero on row 99.
struct BarLine
{
    QRect pane { 0, 0, 60, 100 };
    QPair<double, double> range { 10.0, 0.0 };
    Qt::PenStyle style = Qt::SolidLine;
    int output = 0, start = 0, end = 99, xOffset = 0, slotCount = 5;

    QStringList vert(TC::RPCFormulaResultCache cache)
    {
        return test::traceOf([&](QPainter& painter) {
            TC::CDrawStyle().drawVertLine(&painter, pane, cache, range, style, output, start, end, xOffset,
                                          slotCount);
        });
    }
    QStringList boolLine(TC::RPCFormulaResultCache cache)
    {
        return test::traceOf([&](QPainter& painter) {
            TC::CDrawStyle().drawBoolLine(&painter, pane, cache, range, style, output, start, end, xOffset,
                                          slotCount);
        });
    }
    QStringList flags(FormulaBuilder::Values values)
    {
        return boolLine(FormulaBuilder().line(std::move(values)).columnType(2).color(Qt::red).build());
    }
};

TC::RPCFormulaResultCache ends(FormulaBuilder::Values condition, FormulaBuilder::Values upper,
                               FormulaBuilder::Values lower)
{
    return FormulaBuilder()
        .output("v", 34, { std::move(condition), std::move(upper), std::move(lower) })
        .color(Qt::red)
        .build();
}

class DrawVertLine : public test::PlainSkin
{
};
class DrawBoolLine : public test::PlainSkin
{
};

} // namespace

TEST_F(DrawVertLine, SpansTheWholeHeightWithTwoColumnsOrFewer)
{
    const auto one = FormulaBuilder().output("v", 34, { { 1, 0, 1 } }).color(Qt::red).build();
    EXPECT_EQ(BarLine().vert(one),
              lines({ "line 0,99 0,0 pen=#ff0000/1/solid", "line 20,99 20,0 pen=#ff0000/1/solid" }));
    const auto two = FormulaBuilder().output("v", 34, { { 1 }, { 5 } }).color(Qt::red).build();
    EXPECT_EQ(BarLine().vert(two), lines({ "line 0,99 0,0 pen=#ff0000/1/solid" }));
}

TEST_F(DrawVertLine, GoesFromTheSecondToTheThirdColumn)
{
    EXPECT_EQ(BarLine().vert(ends({ 1 }, { 7 }, { 2 })), lines({ "line 0,29 0,79 pen=#ff0000/1/solid" }));
}

TEST_F(DrawVertLine, TestsTheConditionForExactlyZero)
{
    EXPECT_EQ(BarLine().vert(ends({ 1e-9, 0.0 }, { 7, 7 }, { 2, 2 })).size(), 1);
}

TEST_F(DrawVertLine, HoldsTheUpperEndAtTheMaximumAndTheLowerEndAboveTheBottom)
{
    // upper: 99 - 10 * 10 = -1; lower: bottom - 3
    EXPECT_EQ(BarLine().vert(ends({ 1 }, { 11 }, { -1 })), lines({ "line 0,-1 0,96 pen=#ff0000/1/solid" }));
    // within 1e-5 of the limits nothing is held
    EXPECT_EQ(BarLine().vert(ends({ 1 }, { 10.000001 }, { -0.000001 })),
              lines({ "line 0,-1 0,99 pen=#ff0000/1/solid" }));
}

TEST_F(DrawVertLine, LeavesOutTheLeftEdge)
{
    BarLine line;
    line.pane = QRect(500, 0, 60, 100);
    line.xOffset = 4;
    EXPECT_EQ(line.vert(ends({ 1, 1 }, { 7, 7 }, { 2, 2 })),
              lines({ "line 4,29 4,79 pen=#ff0000/1/solid", "line 14,29 14,79 pen=#ff0000/1/solid" }));
}

TEST_F(DrawVertLine, TruncatesTowardZeroWithTheOffset)
{
    BarLine line;
    line.pane = QRect(0, 0, 65, 100); // w = 10.83
    line.xOffset = -11;
    // bar 1: 10.83 - 11 = -0.17; rows 99 - 0.5 = 98.5 and 99 - 100.5 = -1.5
    line.range = { 20.0, 0.0 }; // 5 pixels a unit
    EXPECT_EQ(line.vert(ends({ 0, 1 }, { 0, 20.1 }, { 0, 0.1 })),
              lines({ "line 0,-1 0,98 pen=#ff0000/1/solid" }));
}

TEST_F(DrawVertLine, SkipsInvalidBarsAndBarsWhoseEndsAreNotNumbers)
{
    const auto cache = FormulaBuilder()
                           .output("v", 34, { { 1, 1, 1, 1 }, { 7, NAN, 7, 7 }, { 2, 2, NAN, 2 } })
                           .valid({ 0, 1, 1, 1 })
                           .color(Qt::red)
                           .build();
    EXPECT_EQ(BarLine().vert(cache), lines({ "line 30,29 30,79 pen=#ff0000/1/solid" }));
}

TEST_F(DrawVertLine, TakesEveryConditionButZeroAndHoldsInfiniteEnds)
{
    const auto cache = ends({ NAN, DBL_MAX, -1, INFINITY }, { 7, 7, 7, INFINITY }, { 2, 2, 2, -INFINITY });
    EXPECT_EQ(BarLine().vert(cache),
              lines({ "line 0,29 0,79 pen=#ff0000/1/solid", "line 10,29 10,79 pen=#ff0000/1/solid",
                      "line 20,29 20,79 pen=#ff0000/1/solid", "line 30,-1 30,96 pen=#ff0000/1/solid" }));
}

TEST_F(DrawVertLine, DrawsNothingWhereItsColourWidthOrStyleIsMissing)
{
    for (auto member : { &se::RPCFormulaMetaResult::color, &se::RPCFormulaMetaResult::colorSet,
                         &se::RPCFormulaMetaResult::lineWidth, &se::RPCFormulaMetaResult::lineStyle }) {
        auto cache = ends({ 1 }, { 7 }, { 2 });
        (cache.meta.*member).clear();
        EXPECT_EQ(BarLine().vert(cache), QStringList());
    }
}

TEST_F(DrawVertLine, HasNoRowsOnAFlatRangeAtZero)
{
    BarLine line;
    line.range = { 0.0, 0.0 }; // 0 times infinitely many rows
    EXPECT_EQ(line.vert(ends({ 1 }, { 0 }, { 0 })), QStringList());
    // without ends the rows are those of the pane
    EXPECT_EQ(line.vert(FormulaBuilder().output("v", 34, { { 1 } }).color(Qt::red).build()),
              lines({ "line 0,99 0,0 pen=#ff0000/1/solid" }));
}

TEST_F(DrawVertLine, ScalesByTheMaximumOnAFlatRange)
{
    BarLine line;
    line.range = { 5.0, 5.0 }; // 20 pixels per unit above 5: 99 - (5 - 5) * 20
    EXPECT_EQ(line.vert(ends({ 1 }, { 5 }, { 6 })), lines({ "line 0,99 0,79 pen=#ff0000/1/solid" }));
}

TEST_F(DrawVertLine, FollowsTheLineStyleOfTheOutputAndNotTheArgument)
{
    const char* const styles[] = { "solid", "dot", "dashdot", "dashdotdot" };
    const int codes[] = { 0, 15, 16, 17 };
    for (int i = 0; i < 4; ++i) {
        BarLine line;
        line.style = Qt::DashLine;
        auto cache = ends({ 1 }, { 7 }, { 2 });
        cache.meta.lineStyle = { codes[i] };
        EXPECT_TRUE(line.vert(cache).first().endsWith(QString::fromLatin1(styles[i]))) << codes[i];
    }
}

TEST_F(DrawVertLine, TakesItsIndexAsTheStyleForUnknownCodes)
{
    auto cache =
        FormulaBuilder().line({ 1 }).line({ 1 }).output("v", 34, { { 1 } }).style(99).color(Qt::red).build();
    BarLine line;
    line.output = 2; // Qt::DashLine
    EXPECT_EQ(line.vert(cache), lines({ "line 0,99 0,0 pen=#ff0000/1/dash" }));
}

TEST_F(DrawVertLine, TakesItsIndexAsTheStyleEvenWhereThatNamesNone)
{
    for (const int index : { 7, 40 }) {
        FormulaBuilder builder;
        for (int output = 0; output < index; ++output)
            builder.line({ 1 });
        BarLine line;
        line.output = index;
        EXPECT_EQ(line.vert(builder.output("v", 34, { { 1 } }).style(-1).color(Qt::red).build()),
                  QStringList(QStringLiteral("line 0,99 0,0 pen=#ff0000/1/%1").arg(index)));
    }
}

TEST_F(DrawVertLine, DrawsNothingOfWidthZero)
{
    EXPECT_EQ(BarLine().vert(FormulaBuilder().output("v", 34, { { 1 } }).width(0).build()), QStringList());
}

TEST_F(DrawBoolLine, StandsOnTheHeightOfTheRectangleNotItsBottom)
{
    // level 0: 100 - 0; level 1: 100 - 1 * 10
    EXPECT_EQ(BarLine().flags({ 0, 1, 0 }), lines({ "path M 0,100 L 10,90 L 20,100 pen=#ff0000/1/solid" }));
}

TEST_F(DrawBoolLine, TakesValuesUpToTheToleranceBelowOneAsOne)
{
    EXPECT_EQ(BarLine().flags({ 0.999995, 0.99998, 7.0, -3.0 }),
              lines({ "path M 0,90 L 10,100 L 20,90 L 30,100 pen=#ff0000/1/solid" }));
}

TEST_F(DrawBoolLine, SkipsNanAndTheMissingMarkerWithoutBreakingButNotInfinities)
{
    EXPECT_EQ(BarLine().flags({ 0, NAN, DBL_MAX, INFINITY, -INFINITY }),
              lines({ "path M 0,100 L 30,90 L 40,100 pen=#ff0000/1/solid" }));
}

TEST_F(DrawBoolLine, DoesNotBreakAtInvalidBars)
{
    const auto cache =
        FormulaBuilder().line({ 0, 1, 1, 0 }).columnType(2).valid({ 1, 0, 1, 1 }).color(Qt::red).build();
    EXPECT_EQ(BarLine().boolLine(cache), lines({ "path M 0,100 L 20,90 L 30,100 pen=#ff0000/1/solid" }));
}

TEST_F(DrawBoolLine, TruncatesTowardZeroWithTheOffset)
{
    BarLine line;
    line.pane = QRect(0, 0, 65, 100); // w = 10.83
    line.xOffset = -11;
    line.range = { 0.985, 0.0 }; // level 1: 100 - 101.52 = -1.52
    EXPECT_EQ(line.flags({ 0, 1 }), lines({ "path M -11,100 L 0,-1 pen=#ff0000/1/solid" }));
}

TEST_F(DrawBoolLine, LeavesThePaintersBrush)
{
    test::traceOf([](QPainter& painter) {
        painter.setBrush(Qt::green);
        auto cache = FormulaBuilder().line({ 0, 1 }).columnType(2).build();
        QRect pane(0, 0, 60, 100);
        TC::CDrawStyle().drawBoolLine(&painter, pane, cache, { 10, 0 }, Qt::SolidLine, 0, 0, 1, 0, 5);
        EXPECT_EQ(painter.brush().color(), QColor(Qt::green));
    });
}

TEST_F(DrawBoolLine, DrawsNothingWhereItsColourOrWidthIsMissing)
{
    for (auto member : { &se::RPCFormulaMetaResult::color, &se::RPCFormulaMetaResult::colorSet,
                         &se::RPCFormulaMetaResult::lineWidth }) {
        auto cache = FormulaBuilder().line({ 0, 1 }).columnType(2).build();
        (cache.meta.*member).clear();
        EXPECT_EQ(BarLine().boolLine(cache), QStringList());
    }
}

TEST_F(DrawBoolLine, LeavesOutALevelWithoutARow)
{
    BarLine line;
    line.range = { 0.0, 0.0 }; // level 0 is 0 times infinitely many rows down, level 1 infinitely far up
    EXPECT_EQ(line.flags({ 0, 0 }), QStringList());
    EXPECT_EQ(line.flags({ 1, 0, 1 }),
              lines({ "path M 0,-2147483648 L 20,-2147483648 pen=#ff0000/1/solid" }));
}

TEST_F(DrawBoolLine, DrawsFlagColumnsAlone)
{
    for (int type : { 0, 1, 3, 200 })
        EXPECT_EQ(BarLine().boolLine(FormulaBuilder().line({ 0, 1 }).columnType(type).build()), QStringList())
            << type;
    EXPECT_EQ(BarLine().boolLine(FormulaBuilder().line({ 0, 1 }).columnType(2).width(0).build()),
              QStringList());
}

TEST_F(DrawBoolLine, LeavesOutTheLeftEdgeAndTakesTheGivenStyle)
{
    BarLine line;
    line.pane = QRect(500, 30, 60, 100);
    line.xOffset = 2;
    line.style = Qt::DotLine;
    EXPECT_EQ(line.flags({ 0, 1 }), lines({ "path M 2,100 L 12,90 pen=#ff0000/1/dot" }));
}

TEST_F(DrawBoolLine, ScalesByTheMaximumOnAFlatRange)
{
    BarLine line;
    line.range = { 1.0, 1.0 }; // 100 pixels per unit: level 0 on 100 - (0 - 1) * 100
    EXPECT_EQ(line.flags({ 0, 1 }), lines({ "path M 0,200 L 10,100 pen=#ff0000/1/solid" }));
}
