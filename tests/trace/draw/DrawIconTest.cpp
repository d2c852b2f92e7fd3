// SPDX-License-Identifier: MIT
#include "draw/CDrawStyle.h"
#include "host/embedded/EmbeddedHost.h"
#include "tests/support/FormulaBuilder.h"
#include "tests/support/Trace.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>

using TC::CDrawStyle;
using test::FormulaBuilder;
using test::traceOf;
using Values = FormulaBuilder::Values;

namespace {

class DrawIcon : public testing::Test
{
protected:
    void SetUp() override { TC::embedded::setColor(QStringLiteral("ic_clr_draw_icon"), Qt::yellow); }

    static FormulaBuilder marks(const Values& condition, const Values& prices)
    {
        FormulaBuilder builder;
        builder.output("mark", 19, { condition, prices }).position(1);
        return builder;
    }

    /// A mark at bar 0 at price 5 with a position code.
    static TC::RPCFormulaResultCache at(int position)
    {
        return marks({ 1 }, { 5 }).position(position).build();
    }

    /// Marks on every bar with a third column.
    static TC::RPCFormulaResultCache shapes(const Values& values)
    {
        return marks(Values(4, 1), Values(4, 5)).column(values).build();
    }

    QStringList drawn(TC::RPCFormulaResultCache cache, const QString& name = {})
    {
        return traceOf([&](QPainter& painter) {
            CDrawStyle().drawIcon(&painter, pane, name, range, cache, start, end, output, xOffset, barCount);
        });
    }

    static QString mark(const char* kind, int x, int y)
    {
        return QStringLiteral("%1 %2,%3 6x6 pen=#ffff00/1/solid brush=#ffff00")
            .arg(QLatin1String(kind))
            .arg(x)
            .arg(y);
    }
    static QString ellipse(int x, int y) { return mark("ellipse", x, y); }
    static QString box(int x, int y) { return mark("rect", x, y); }

    // 4 + 1 slots of 20; bottom() is 119; 10 rows a unit: price 5 on row 69.
    QRect pane { 30, 20, 100, 100 };
    QPair<double, double> range { 10.0, 0.0 };
    int output = 0, start = 0, end = 99, xOffset = 50, barCount = 4;
};

} // namespace

TEST_F(DrawIcon, FollowsThePositionCode)
{
    EXPECT_EQ(drawn(at(0)), QStringList(ellipse(47, 66)));
    EXPECT_EQ(drawn(at(1)), QStringList(ellipse(47, 69)));
    EXPECT_EQ(drawn(at(2)), QStringList(ellipse(47, 63)));
    EXPECT_EQ(drawn(at(3)), QStringList(ellipse(47, 47))); // 100 / 2 - 3, without the pane's top
    EXPECT_EQ(drawn(at(4)), QStringList(ellipse(47, 25))); // top() + 5
    EXPECT_EQ(drawn(at(5)), QStringList(ellipse(47, 90))); // the height less 10, without the pane's top
}

TEST_F(DrawIcon, StandsOnRow0UnderUnknownCodes)
{
    EXPECT_EQ(drawn(at(6)), QStringList(ellipse(47, 0)));
    EXPECT_EQ(drawn(at(-1)), QStringList(ellipse(47, 0)));
}

TEST_F(DrawIcon, ReadsThePositionOfItsOwnOutput)
{
    auto cache = marks({ 1 }, { 5 }).position(5).output("mark", 19, { { 1 }, { 5 } }).position(1).build();
    output = 1;
    EXPECT_EQ(drawn(cache), QStringList(ellipse(47, 69)));

    cache.meta.position.resize(1); // its own is missing: nothing
    EXPECT_EQ(drawn(cache), QStringList());
}

TEST_F(DrawIcon, TakesThreePixelsOffBeforeItTruncates)
{
    barCount = 2; // 3 slots of 33.33
    xOffset = -32;
    // Bar 1: 33.33 - 32 - 3 is -1.67, truncated to -1; truncating first would give 1 - 3.
    EXPECT_EQ(drawn(marks({ 0, 1 }, { 5, 5 }).build()), QStringList(ellipse(-1, 69)));
}

TEST_F(DrawIcon, DrawsForEveryConditionButExactlyZero)
{
    EXPECT_EQ(drawn(marks({ 1e-9, 0.0, -2.0 }, Values(3, 5)).build()),
              QStringList({ ellipse(47, 69), ellipse(87, 69) }));
    EXPECT_EQ(drawn(marks({ NAN, DBL_MAX, INFINITY }, Values(3, 5)).build()), QStringList());
}

TEST_F(DrawIcon, DrawsAnEllipseForShape1AndARectangleForAnyOther)
{
    EXPECT_EQ(drawn(shapes({ 1.0, 0.0, 1.9, -1.0 })),
              QStringList({ ellipse(47, 69), box(67, 69), ellipse(87, 69), box(107, 69) }));
    EXPECT_EQ(drawn(shapes({ 2.0, NAN, DBL_MAX, 0.999999 })),
              QStringList({ box(47, 69), box(67, 69), box(87, 69), box(107, 69) }));
}

TEST_F(DrawIcon, KeepsTheLastShapePastTheEndOfTheShapes)
{
    EXPECT_EQ(drawn(shapes({ 1.0, 0.0 })),
              QStringList({ ellipse(47, 69), box(67, 69), box(87, 69), box(107, 69) }));
}

TEST_F(DrawIcon, DrawsEllipsesWithoutShapes)
{
    const QStringList ellipses { ellipse(47, 69), ellipse(67, 69), ellipse(87, 69), ellipse(107, 69) };
    EXPECT_EQ(drawn(shapes({})), ellipses);
    EXPECT_EQ(drawn(marks(Values(4, 1), Values(4, 5)).build()), ellipses);
}

TEST_F(DrawIcon, DoesNotReadTheIconsName)
{
    EXPECT_EQ(drawn(at(1), QStringLiteral("ic_img_arrow_up")), drawn(at(1)));
}

TEST_F(DrawIcon, DoesNotReadTheOutputsColourOrWidth)
{
    EXPECT_EQ(drawn(marks({ 1 }, { 5 }).color(Qt::red).width(0).build()), QStringList(ellipse(47, 69)));
}

TEST_F(DrawIcon, LeavesOutPricesThatAreNotFinite)
{
    for (double bad : { double(NAN), double(INFINITY) }) {
        EXPECT_EQ(drawn(marks({ 1 }, { bad }).build()), QStringList());
        EXPECT_EQ(drawn(marks({ 1 }, { bad }).position(4).build()), QStringList());
    }
}

TEST_F(DrawIcon, HasNoRowOnAFlatRangeAtTheLevelButStillAPlaceInThePane)
{
    range = { 5.0, 5.0 }; // 0 times infinitely many rows
    EXPECT_EQ(drawn(at(1)), QStringList());
    EXPECT_EQ(drawn(at(4)), QStringList(ellipse(47, 25)));
    EXPECT_EQ(drawn(at(6)), QStringList(ellipse(47, 0)));
}

TEST_F(DrawIcon, StaysPaintableFarOutside)
{
    EXPECT_EQ(drawn(marks({ 1 }, { DBL_MAX }).build()), QStringList(ellipse(47, -1000000000)));
}

TEST_F(DrawIcon, LeavesOutInvalidBarsAndShortColumns)
{
    EXPECT_EQ(drawn(marks({ 1, 1 }, { 5, 5 }).valid({ 0, 1 }).build()), QStringList(ellipse(67, 69)));
    EXPECT_EQ(drawn(marks({ 1 }, { 5, 5 }).build()), QStringList(ellipse(47, 69)));
    EXPECT_EQ(drawn(FormulaBuilder().output("mark", 19, { { 1 } }).build()), QStringList());
}

TEST_F(DrawIcon, CountsSlotsFromTheStartOfTheWindow)
{
    start = 1; // fewer bars than slots do not move the start here
    EXPECT_EQ(drawn(marks({ 1, 1 }, { 5, 5 }).build()), QStringList(ellipse(47, 69)));
}

TEST_F(DrawIcon, LeavesItsPenAndBrushOnThePainter)
{
    auto cache = at(1);
    traceOf([&](QPainter& painter) {
        CDrawStyle().drawIcon(&painter, pane, {}, range, cache, 0, 0, 0, 0, 4);
        EXPECT_EQ(painter.pen(), QPen(QColor(Qt::yellow)));
        EXPECT_EQ(painter.brush(), QBrush(QColor(Qt::yellow)));
    });
}
