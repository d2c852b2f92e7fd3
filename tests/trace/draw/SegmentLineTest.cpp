// SPDX-License-Identifier: MIT
#include "draw/CDrawStyle.h"
#include "tests/support/FormulaBuilder.h"
#include "tests/support/Trace.h"
#include "tests/trace/draw/PlainSkin.h"
#include "tests/trace/draw/TraceLines.h"

#include <QImage>

#include <cfloat>
#include <cmath>

namespace {

using test::FormulaBuilder;
using test::lines;

/// Six slots of 10 pixels; 10 pixels per unit, zero on row 99. Bars 0 to 5 stand 10 pixels right of their
/// slots, less the line's own pixel: x 9, 19, ...
struct SegmentLine
{
    QRect pane { 0, 0, 60, 100 };
    QPair<double, double> range { 10.0, 0.0 };
    int output = 0, start = 0, end = 5, slotCount = 6, xOffset = 0;
    bool fullWidth = true;

    QStringList drawFormula(TC::RPCFormulaResultCache cache)
    {
        return test::traceOf([&](QPainter& painter) {
            TC::CDrawStyle().drawSegmentLine(&painter, pane, cache, range, output, start, end, slotCount,
                                             xOffset, fullWidth);
        });
    }
    QStringList draw(FormulaBuilder::Values values)
    {
        return drawFormula(FormulaBuilder().line(std::move(values)).color(Qt::red).build());
    }
};

class DrawSegmentLine : public test::PlainSkin
{
};

} // namespace

TEST_F(DrawSegmentLine, StandsOnePixelLeftAndIsNotHeldAtTheRightEdge)
{
    SegmentLine line;
    line.xOffset = 3; // s = trunc(10 + 3); the last bar 13 + 50 - 1 = 62, past the edge
    EXPECT_EQ(line.draw({ 1, 2, 3, 4, 5, 6 }),
              lines({ "path M 12,89 L 22,79 L 32,69 L 42,59 L 52,49 L 62,39 pen=#ff0000/1/solid" }));
}

TEST_F(DrawSegmentLine, TruncatesBehindItsOwnPixel)
{
    SegmentLine line;
    line.pane = QRect(-20, 0, 65, 100); // w = 10.83, s = 10
    // bar 1: -20 + 10 + 10.83 - 1 = -0.17, column 0; truncated before the pixel it would be -1
    EXPECT_EQ(line.draw({ 1, 2, 3 }), lines({ "path M -11,89 L 0,79 L 10,69 pen=#ff0000/1/solid" }));
}

TEST_F(DrawSegmentLine, TruncatesTheSumOfStartAndOffset)
{
    SegmentLine line;
    line.pane = QRect(0, 0, 65, 100);
    line.xOffset = -15; // trunc(10.83 - 15) = -4, where trunc(10.83) - 15 would be -5
    EXPECT_EQ(line.draw({ 1, 2 }), lines({ "path M -5,89 L 5,79 pen=#ff0000/1/solid" }));
}

TEST_F(DrawSegmentLine, LeavesNoInkForALonePoint)
{
    EXPECT_EQ(SegmentLine().draw({ 1, DBL_MAX, DBL_MAX, 4, DBL_MAX }), QStringList());
    // behind a piece as well: nothing right of column 19
    QImage image(60, 100, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    auto cache = FormulaBuilder().line({ 1, 2, DBL_MAX, 4, DBL_MAX }).width(3).color(Qt::red).build();
    QRect pane(0, 0, 60, 100);
    TC::CDrawStyle().drawSegmentLine(&painter, pane, cache, { 10, 0 }, 0, 0, 5, 6, 0, true);
    painter.end();
    EXPECT_NE(image.pixelColor(14, 84).alpha(), 0);
    for (int x = 25; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y)
            ASSERT_EQ(image.pixelColor(x, y).alpha(), 0) << x << "," << y;
    }
}

TEST_F(DrawSegmentLine, LeavesAGapWhereANumberIsMissing)
{
    for (double missing : { DBL_MAX, static_cast<double>(NAN), static_cast<double>(INFINITY) }) {
        EXPECT_EQ(SegmentLine().draw({ 1, 2, missing, 4, 5 }).size(), 1);
    }
    SegmentLine line;
    EXPECT_EQ(line.draw({ 1, 2, DBL_MAX, 4, 5, 6 }),
              lines({ "path M 9,89 L 19,79 M 39,59 L 49,49 L 59,39 pen=#ff0000/1/solid" }));
}

TEST_F(DrawSegmentLine, LeavesAGapAtTheLargestIntOfAnIntegerColumn)
{
    EXPECT_EQ(
        SegmentLine().drawFormula(
            FormulaBuilder().line({ 1, 2, 2147483647.0, 4, 5, 6 }).columnType(1).color(Qt::red).build()),
        lines({ "path M 9,89 L 19,79 M 39,59 L 49,49 L 59,39 pen=#ff0000/1/solid" }));
}

TEST_F(DrawSegmentLine, DoesNotBreakAtAnInvalidBarEvenIfItsValueIsMissing)
{
    EXPECT_EQ(SegmentLine().drawFormula(FormulaBuilder()
                                            .line({ 1, 2, DBL_MAX, 4, 5, 6 })
                                            .valid({ 1, 1, 0, 1, 1, 1 })
                                            .color(Qt::red)
                                            .build()),
              lines({ "path M 9,89 L 19,79 L 39,59 L 49,49 L 59,39 pen=#ff0000/1/solid" }));
}

TEST_F(DrawSegmentLine, UsesHalfTheBottomCoordinateOnAFlatRange)
{
    SegmentLine line;
    line.pane = QRect(0, 50, 60, 100);
    line.range = { 5.0, 5.000001 };
    EXPECT_EQ(line.draw({ 5, 6 }).first().left(18), QStringLiteral("path M 9,74 L 19,7"));
}

TEST_F(DrawSegmentLine, IsAlwaysSolidAndDrawsWithASingleSlot)
{
    SegmentLine line;
    line.slotCount = 1; // w = 60; |0 - 1 + 1| = 0
    line.end = 1;
    EXPECT_EQ(line.drawFormula(FormulaBuilder().line({ 1, 2 }).style(15).width(2).color(Qt::red).build()),
              lines({ "path M -1,89 L 59,79 pen=#ff0000/2/solid" }));
}

TEST_F(DrawSegmentLine, DrawsNothingOfWidthZeroOrOfOtherColumnTypes)
{
    EXPECT_EQ(SegmentLine().drawFormula(FormulaBuilder().line({ 1, 2 }).width(0).build()), QStringList());
    EXPECT_EQ(SegmentLine().drawFormula(FormulaBuilder().line({ 1, 2 }).columnType(2).build()),
              QStringList());
}

TEST_F(DrawSegmentLine, DrawsNothingWhereItsColourWidthOrColumnIsMissing)
{
    const auto sound = FormulaBuilder().line({ 1, 2 }).build();
    for (auto member : { &se::RPCFormulaMetaResult::color, &se::RPCFormulaMetaResult::colorSet,
                         &se::RPCFormulaMetaResult::lineWidth }) {
        auto cache = sound;
        (cache.meta.*member).clear();
        EXPECT_EQ(SegmentLine().drawFormula(cache), QStringList());
    }
    auto cache = sound;
    cache.result.columnSeries = { 7 };
    EXPECT_EQ(SegmentLine().drawFormula(cache), QStringList());
    SegmentLine line;
    line.output = 1;
    EXPECT_EQ(line.drawFormula(sound), QStringList());
}

TEST_F(DrawSegmentLine, KeepsWhiteAndBeginsAtTheOffsetForClientType3)
{
    TC::embedded::setClientType(3);
    SegmentLine line;
    line.xOffset = 5;
    EXPECT_EQ(line.drawFormula(FormulaBuilder().line({ 1, 2 }).color(Qt::white).build()),
              lines({ "path M 4,89 L 14,79 pen=#ffffff/1/solid" }));
}

TEST_F(DrawSegmentLine, LeavesThePaintersBrush)
{
    test::traceOf([](QPainter& painter) {
        painter.setBrush(Qt::green);
        auto cache = FormulaBuilder().line({ 1, 2 }).build();
        QRect pane(0, 0, 60, 100);
        TC::CDrawStyle().drawSegmentLine(&painter, pane, cache, { 10, 0 }, 0, 0, 1, 6, 0, true);
        EXPECT_EQ(painter.brush().color(), QColor(Qt::green));
    });
}
