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

/// Six slots of 10 pixels; 10 pixels per unit, zero on row 99. A dot stands 2 pixels left of and above its
/// point.
struct Dots
{
    QRect pane { 0, 0, 60, 100 };
    QPair<double, double> range { 10.0, 0.0 };
    int output = 0, start = 0, end = 5, xOffset = 0;
    bool fullWidth = true;
    int slotCount = 6;
    bool alignByIndex = false;

    QStringList point(TC::RPCFormulaResultCache cache)
    {
        return test::traceOf([&](QPainter& painter) {
            TC::CDrawStyle::drawPointDot(&painter, pane, cache, range, output, start, end, xOffset, fullWidth,
                                         slotCount);
        });
    }
    QStringList point(FormulaBuilder::Values values)
    {
        return point(FormulaBuilder().line(std::move(values)).color(Qt::red).build());
    }
    QStringList circle(FormulaBuilder::Values values)
    {
        auto cache = FormulaBuilder().line(std::move(values)).color(Qt::red).build();
        return test::traceOf([&](QPainter& painter) {
            TC::CDrawStyle::drawCircleDot(&painter, pane, cache, range, output, start, end, xOffset,
                                          fullWidth, slotCount, alignByIndex);
        });
    }
};

class DrawPointDot : public test::PlainSkin
{
};
class DrawCircleDot : public test::PlainSkin
{
};

QString dotAt(const char* place)
{
    return QStringLiteral("ellipse %1 4x4 pen=#ff0000/1/solid brush=none").arg(QString::fromLatin1(place));
}

} // namespace

TEST_F(DrawPointDot, BeginsAtTheLeftEdgePlusTheOffset)
{
    Dots dots;
    dots.pane = QRect(100, 0, 60, 100);
    dots.xOffset = 5;
    dots.start = 1; // 100 + 5 + 0 - 2; rows 99 - 20 - 2, 99 - 30 - 2
    EXPECT_EQ(dots.point({ 1, 2, 3 }), (QStringList { dotAt("103,77"), dotAt("113,67") }));
}

TEST_F(DrawPointDot, TruncatesXBehindItsTwoPixelsButItsRowBeforeThem)
{
    Dots dots;
    dots.pane = QRect(-10, -50, 65, 100); // w = 10.83, bottom 49
    // bar 1: -10 + 10.83 - 2 = -1.17, column -1; row 49 - 48.5 = 0.5, row 0, less 2
    EXPECT_EQ(dots.point({ 4.85, 4.85 }), (QStringList { dotAt("-12,-2"), dotAt("-1,-2") }));
}

TEST_F(DrawPointDot, SkipsInvalidBars)
{
    EXPECT_EQ(Dots().point(FormulaBuilder().line({ 5, 5 }).valid({ 0, 1 }).color(Qt::red).build()),
              QStringList(dotAt("8,47")));
}

TEST_F(DrawPointDot, LeavesASpareSlotUnlessTheFullWidthIsUsed)
{
    Dots dots;
    dots.fullWidth = false;
    dots.slotCount = 5; // divisor 6
    EXPECT_EQ(dots.point({ 5, 5 }), (QStringList { dotAt("-2,47"), dotAt("8,47") }));
}

TEST_F(DrawPointDot, IsHeldAtTheBottomOfAPaneAtTheLimitOfInt)
{
    Dots dots;
    dots.pane = QRect(QPoint(0, INT_MIN), QPoint(59, INT_MIN)); // one row
    // the row, the bottom less 2 and the bottom less 4 all stay at the limit
    EXPECT_EQ(dots.point(FormulaBuilder::Values { 0.0 }), QStringList(dotAt("-2,-1000000000")));
}

TEST_F(DrawPointDot, DrawsNothingWhereItsColourWidthOrColumnIsMissing)
{
    for (auto member : { &se::RPCFormulaMetaResult::color, &se::RPCFormulaMetaResult::colorSet,
                         &se::RPCFormulaMetaResult::lineWidth }) {
        auto cache = FormulaBuilder().line({ 5 }).build();
        (cache.meta.*member).clear();
        EXPECT_EQ(Dots().point(cache), QStringList());
    }
    auto cache = FormulaBuilder().line({ 5 }).build();
    cache.result.columnSeries = { -1 };
    EXPECT_EQ(Dots().point(cache), QStringList());
}

TEST_F(DrawPointDot, GoesToRowZeroWhenItsValueIsAboveTheRange)
{
    Dots dots;
    dots.pane =
        QRect(0, 40, 60, 100); // bottom 139; a value of 10 stands on row 39, the dot on 37, above the top
    EXPECT_EQ(dots.point(FormulaBuilder::Values { 10.0 }), QStringList(dotAt("-2,0")));
    EXPECT_EQ(dots.point(FormulaBuilder::Values { DBL_MAX }), QStringList(dotAt("-2,0")));
    EXPECT_EQ(dots.point(FormulaBuilder::Values { 9.6 }),
              QStringList(dotAt("-2,41"))); // 139 - 96 - 2, below the top
    EXPECT_EQ(dots.point(FormulaBuilder::Values { 9.7 }),
              QStringList(dotAt("-2,0"))); // row 40, on the top: not below it
}

TEST_F(DrawPointDot, StandsFourPixelsAboveTheBottomAtTheEdgeAndBelow)
{
    // value 0: 99 - 2 = 97, not above bottom - 2
    EXPECT_EQ(Dots().point({ 0.0, -50.0 }), (QStringList { dotAt("-2,95"), dotAt("8,95") }));
    // value 0.1: row 98, dot 96, above
    EXPECT_EQ(Dots().point(FormulaBuilder::Values { 0.1 }), QStringList(dotAt("-2,96")));
}

TEST_F(DrawPointDot, SkipsWhatIsNotFiniteButDrawsTheMissingMarker)
{
    EXPECT_EQ(Dots().point({ NAN, INFINITY, -INFINITY, DBL_MAX }), QStringList(dotAt("28,0")));
}

TEST_F(DrawPointDot, MakesNoExceptionForAFlatRange)
{
    Dots dots;
    dots.range = { 5.0, 5.0 }; // infinite scale: above goes up, below goes down, the level itself has no row
    EXPECT_EQ(dots.point({ 6.0, 5.0, 4.0 }), (QStringList { dotAt("-2,0"), dotAt("18,95") }));
}

TEST_F(DrawPointDot, TakesThePaintersBrush)
{
    auto cache = FormulaBuilder().line({ 5 }).color(Qt::red).build();
    QRect pane(0, 0, 60, 100);
    const QStringList traced = test::traceOf([&](QPainter& painter) {
        painter.setBrush(Qt::blue);
        TC::CDrawStyle::drawPointDot(&painter, pane, cache, { 10, 0 }, 0, 0, 5, 0, true, 6);
    });
    EXPECT_EQ(traced, lines({ "ellipse -2,47 4x4 pen=#ff0000/1/solid brush=#0000ff" }));
}

TEST_F(DrawPointDot, LeavesAPenOfTheOutputsWidthSquareAndBevelled)
{
    test::traceOf([](QPainter& painter) {
        auto cache = FormulaBuilder().line({ 5 }).width(3).style(15).color(Qt::red).build();
        QRect pane(0, 0, 60, 100);
        TC::CDrawStyle::drawPointDot(&painter, pane, cache, { 10, 0 }, 0, 0, 5, 0, true, 6);
        EXPECT_EQ(test::penText(painter.pen()), QStringLiteral("#ff0000/3/solid")); // whatever the line style
        EXPECT_EQ(painter.pen().capStyle(), Qt::SquareCap);
        EXPECT_EQ(painter.pen().joinStyle(), Qt::BevelJoin);
    });
}

TEST_F(DrawPointDot, DrawsNothingOfWidthZero)
{
    EXPECT_EQ(Dots().point(FormulaBuilder().line({ 5 }).width(0).build()), QStringList());
}

TEST_F(DrawCircleDot, IsRightAlignedAndAddsTheOffsetBehindTheTruncatedStart)
{
    Dots dots;
    dots.pane = QRect(0, 0, 65, 100); // w = 10.83; s = trunc(10.83) = 10
    dots.xOffset = 3;
    EXPECT_EQ(dots.circle({ 5, 5, 5, 5, 5, 5 }).first(), dotAt("11,47")); // 3 + 10 - 2
    // bar 1: 3 + 10 + 10.83 - 2 = 21.83; with the start left fractional it would be 22.67
    EXPECT_EQ(dots.circle({ 5, 5, 5, 5, 5, 5 })[1], dotAt("21,47"));
    dots.xOffset = -15; // 10 - 15 - 2, where trunc(10.83 - 15) - 2 would be -6
    EXPECT_EQ(dots.circle({ 5, 5, 5, 5, 5, 5 }).first(), dotAt("-7,47"));
}

TEST_F(DrawCircleDot, MovesRightAsWellWhenThereAreMoreBarsThanSlots)
{
    Dots dots;
    dots.slotCount = 3; // w = 20; |0 - 5 + 3| * 20 = 40
    EXPECT_EQ(dots.circle({ 5 }), QStringList(dotAt("38,47")));
}

TEST_F(DrawCircleDot, AddsTheLeftEdgeOfTheRectangle)
{
    Dots dots;
    dots.pane = QRect(100, 0, 60, 100);
    EXPECT_EQ(dots.circle({ 5 }), QStringList(dotAt("108,47"))); // 100 + 10 - 2
}

TEST_F(DrawCircleDot, AddsTheOffsetToBarsAlignedByIndex)
{
    Dots dots;
    dots.alignByIndex = true;
    dots.xOffset = 3;
    dots.start = 2; // 3 + 20 - 2
    EXPECT_EQ(dots.circle({ 5, 5, 5 }), QStringList(dotAt("21,47")));
}

TEST_F(DrawCircleDot, TruncatesTheStartOfBarsAlignedByIndex)
{
    Dots dots;
    dots.pane = QRect(0, 0, 100, 100);
    dots.slotCount = 7; // 14.2857 pixels a slot
    dots.alignByIndex = true;
    dots.start = 1;
    // bar 4: 14 + 3 * 14.2857 - 2 = 54.86; with the start left fractional it would be 55.14
    EXPECT_EQ(dots.circle({ NAN, NAN, NAN, NAN, 5 }), QStringList(dotAt("54,47")));
}

TEST_F(DrawCircleDot, CountsTheOffsetTwiceForClientType3)
{
    TC::embedded::setClientType(3);
    Dots dots;
    dots.xOffset = 5; // 5 + 5 - 2
    EXPECT_EQ(dots.circle({ 5 }), QStringList(dotAt("8,47")));
}

TEST_F(DrawCircleDot, IsAlignedByIndexForClientType3Too)
{
    TC::embedded::setClientType(3);
    Dots dots;
    dots.alignByIndex = true;
    dots.xOffset = 3;
    dots.start = 2; // 3 + 20 - 2
    EXPECT_EQ(dots.circle({ 5, 5, 5 }), QStringList(dotAt("21,47")));
}

TEST_F(DrawCircleDot, CountsTheOffsetOnceForClientType3WithoutSlots)
{
    TC::embedded::setClientType(3);
    Dots dots;
    dots.slotCount = 0;
    dots.fullWidth = false;
    dots.xOffset = 5; // 5 - 2
    EXPECT_EQ(dots.circle({ 5 }), QStringList(dotAt("3,47")));
}

TEST_F(DrawCircleDot, StartsAtTheEdgeWithoutSlots)
{
    Dots dots;
    dots.slotCount = 0;
    dots.fullWidth = false; // one slot of 60 pixels and no start offset
    EXPECT_EQ(dots.circle({ 5, 5 }), (QStringList { dotAt("-2,47"), dotAt("58,47") }));
}
