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

/// Six slots of 10 pixels; 10 pixels per unit, zero on row 99. Bars 0 to 5 fill the pane, and the
/// right-aligned rule puts them into the slots 1 to 6: |0 - 5 + 6| * 10 = 10 pixels to the right.
struct SimpleLine
{
    QRect pane { 0, 0, 60, 100 };
    QPair<double, double> range { 10.0, 0.0 };
    Qt::PenStyle style = Qt::SolidLine;
    int output = 0, start = 0, end = 5, slotCount = 6, xOffset = 0;
    bool fullWidth = true, useScale = false;
    float scale = 1.0f;
    bool fill = false, alignByIndex = false;

    QStringList drawFormula(TC::RPCFormulaResultCache cache)
    {
        return test::traceOf([&](QPainter& painter) {
            TC::CDrawStyle().drawSimpleLine(&painter, pane, cache, range, style, output, start, end,
                                            slotCount, xOffset, fullWidth, useScale, scale, fill,
                                            alignByIndex);
        });
    }
    QStringList draw(FormulaBuilder::Values values)
    {
        return drawFormula(FormulaBuilder().line(std::move(values)).color(Qt::red).build());
    }
};

class DrawSimpleLine : public test::PlainSkin
{
};

} // namespace

TEST_F(DrawSimpleLine, RightAlignsAFullPaneAndEndsAtTheRightEdge)
{
    // rows 99 - v * 10; x 10, 20, ..., 60, the last one held at rect.right() = 59
    EXPECT_EQ(SimpleLine().draw({ 1, 2, 3, 4, 5, 6 }),
              lines({ "path M 10,89 L 20,79 L 30,69 L 40,59 L 50,49 L 59,39 pen=#ff0000/1/solid" }));
}

TEST_F(DrawSimpleLine, LeavesTheLeftEmptyForAShortHistory)
{
    SimpleLine line;
    line.end = 1; // |0 - 1 + 6| * 10 = 50
    EXPECT_EQ(line.draw({ 1, 2 }), lines({ "path M 50,89 L 59,79 pen=#ff0000/1/solid" }));
}

TEST_F(DrawSimpleLine, MovesRightAsWellWhenThereAreMoreBarsThanSlots)
{
    SimpleLine line;
    line.slotCount = 3; // w = 20; |0 - 5 + 3| * 20 = 40, the absolute value
    EXPECT_EQ(line.draw({ 1, 2, 3, 4, 5, 6 }),
              lines({ "path M 40,89 L 59,79 L 59,69 L 59,59 L 59,49 L 59,39 pen=#ff0000/1/solid" }));
}

TEST_F(DrawSimpleLine, TruncatesTheOffsetTogetherWithTheStart)
{
    SimpleLine line;
    line.pane = QRect(0, 0, 65, 100); // w = 65 / 6 = 10.83; s = trunc(10.83 - 5) = 5
    line.xOffset = -5;
    line.end = 1;
    line.slotCount = 6;
    line.start = 0;
    // |0 - 1 + 6| * 10.83 - 5 = 49.17 -> 49; second bar 49 + 10.83 = 59.83 -> 59
    EXPECT_EQ(line.draw({ 1, 2 }), lines({ "path M 49,89 L 59,79 pen=#ff0000/1/solid" }));
}

TEST_F(DrawSimpleLine, TruncatesTheSumOfStartAndOffsetAndIsNotHeldAtTheLeftEdge)
{
    SimpleLine line;
    line.pane = QRect(0, 0, 65, 100); // w = 10.83
    line.xOffset = -15;
    // trunc(10.83 - 15) = -4, where trunc(10.83) - 15 would be -5
    EXPECT_EQ(line.draw({ 1, 2 }), lines({ "path M -4,89 L 6,79 pen=#ff0000/1/solid" }));
}

TEST_F(DrawSimpleLine, AddsTheLeftEdgeOfTheRectangle)
{
    SimpleLine line;
    line.pane = QRect(100, 0, 60, 100);
    line.alignByIndex = true;
    EXPECT_EQ(line.draw({ 1, 2 }), lines({ "path M 100,89 L 110,79 pen=#ff0000/1/solid" }));
}

TEST_F(DrawSimpleLine, StandsInItsOwnSlotWhenAlignedByIndexAndIgnoresTheOffset)
{
    SimpleLine line;
    line.alignByIndex = true;
    line.xOffset = 7;
    line.start = 2; // trunc(2 * 10)
    EXPECT_EQ(line.draw({ 1, 2, 3, 4 }), lines({ "path M 20,69 L 30,59 pen=#ff0000/1/solid" }));
}

TEST_F(DrawSimpleLine, TruncatesTheStartOfBarsAlignedByIndex)
{
    SimpleLine line;
    line.pane = QRect(0, 0, 100, 100);
    line.slotCount = 7; // 14.2857 pixels a slot
    line.alignByIndex = true;
    line.start = 1;
    // bar 4: 14 + 3 * 14.2857 = 56.86; with the start left fractional it would be 57.14
    EXPECT_EQ(line.draw({ 1, DBL_MAX, DBL_MAX, DBL_MAX, 2, 3 }),
              lines({ "path M 56,79 L 71,69 pen=#ff0000/1/solid" }));
}

TEST_F(DrawSimpleLine, LeavesASpareSlotUnlessTheFullWidthIsUsed)
{
    SimpleLine line;
    line.fullWidth = false;
    line.slotCount = 5; // divisor 6
    line.alignByIndex = true;
    EXPECT_EQ(line.draw({ 1, 2 }), lines({ "path M 0,89 L 10,79 pen=#ff0000/1/solid" }));
}

TEST_F(DrawSimpleLine, DrawsNothingForLessThanTwoSlots)
{
    SimpleLine line;
    line.slotCount = 1;
    EXPECT_EQ(line.draw({ 1, 2 }), QStringList());
    line.fullWidth = false;
    EXPECT_EQ(line.draw({ 1, 2 }).size(), 1); // the divisor is 2
    line.slotCount = 0;
    EXPECT_EQ(line.draw({ 1, 2 }), QStringList());
    line.slotCount = -5;
    EXPECT_EQ(line.draw({ 1, 2 }), QStringList());
}

TEST_F(DrawSimpleLine, LandsOneRowAboveTheRectangleAtTheMaximum)
{
    SimpleLine line;
    line.alignByIndex = true;
    EXPECT_EQ(line.draw({ 10, 0 }), lines({ "path M 0,-1 L 10,99 pen=#ff0000/1/solid" }));
}

TEST_F(DrawSimpleLine, UsesHalfTheBottomCoordinateOnAFlatRange)
{
    SimpleLine line;
    line.pane = QRect(0, 50, 60, 100); // bottom 149, not the centre row 99
    line.range = { 5.0, 5.0 };
    line.alignByIndex = true;
    EXPECT_EQ(line.draw({ 5, 900 }), lines({ "path M 0,74 L 10,74 pen=#ff0000/1/solid" }));
}

TEST_F(DrawSimpleLine, JoinsAcrossMissingValuesAndInvalidBars)
{
    SimpleLine line;
    line.alignByIndex = true;
    const auto formula = FormulaBuilder().line({ 1, DBL_MAX, NAN, INFINITY, 5, 6 }).color(Qt::red);
    EXPECT_EQ(line.drawFormula(FormulaBuilder(formula).valid({ 1, 1, 1, 1, 0, 1 }).build()),
              lines({ "path M 0,89 L 50,39 pen=#ff0000/1/solid" }));
}

TEST_F(DrawSimpleLine, TakesTheLargestIntAsMissingInIntegerColumnsAlone)
{
    SimpleLine line;
    line.alignByIndex = true;
    line.range = { 4e9, 0.0 };
    const FormulaBuilder::Values values { 0.0, 2147483647.5, 4e9 };
    EXPECT_EQ(line.drawFormula(FormulaBuilder().line(values).columnType(1).color(Qt::red).build()),
              lines({ "path M 0,99 L 20,-1 pen=#ff0000/1/solid" }));
    // 99 - 2147483647.5 * 100 / 4e9 = 45.3
    EXPECT_EQ(line.drawFormula(FormulaBuilder().line(values).columnType(0).color(Qt::red).build()),
              lines({ "path M 0,99 L 10,45 L 20,-1 pen=#ff0000/1/solid" }));
}

TEST_F(DrawSimpleLine, TakesTheLargestIntAsANumberInEveryColumnTypeButOne)
{
    SimpleLine line;
    line.alignByIndex = true;
    line.range = { 2147483647.0, 0.0 };
    for (int type : { -1, 0, 200 }) {
        const auto cache = FormulaBuilder().line({ 0, 2147483647.0 }).columnType(type).color(Qt::red).build();
        EXPECT_EQ(line.drawFormula(cache), lines({ "path M 0,99 L 10,-1 pen=#ff0000/1/solid" })) << type;
    }
}

TEST_F(DrawSimpleLine, TestsTheRawValueBeforeItScales)
{
    SimpleLine line;
    line.alignByIndex = true;
    line.useScale = true;
    line.scale = 0.5f;
    EXPECT_EQ(line.draw({ 4, DBL_MAX, 8 }), lines({ "path M 0,79 L 20,59 pen=#ff0000/1/solid" }));
}

TEST_F(DrawSimpleLine, DrawsPlainNumbersOfTypes0And1And200AndBelow)
{
    SimpleLine line;
    line.alignByIndex = true;
    for (int type : { 0, 1, 200, -3 })
        EXPECT_EQ(line.drawFormula(FormulaBuilder().line({ 1, 2 }).columnType(type).build()).size(), 1)
            << type;
    for (int type : { 2, 3, 4, 199, 201 })
        EXPECT_EQ(line.drawFormula(FormulaBuilder().line({ 1, 2 }).columnType(type).build()), QStringList())
            << type;
}

TEST_F(DrawSimpleLine, DrawsNothingOfWidthZeroOrOfAnOutputThatDoesNotExist)
{
    SimpleLine line;
    EXPECT_EQ(line.drawFormula(FormulaBuilder().line({ 1, 2 }).width(0).build()), QStringList());
    line.output = 1;
    EXPECT_EQ(line.draw({ 1, 2 }), QStringList());
    line.output = -1;
    EXPECT_EQ(line.draw({ 1, 2 }), QStringList());
}

TEST_F(DrawSimpleLine, DrawsNothingWhereWhatItReadsIsMissing)
{
    const auto sound = FormulaBuilder().line({ 1, 2 }).build();
    ASSERT_EQ(SimpleLine().drawFormula(sound).size(), 1);
    for (auto member : { &se::RPCFormulaMetaResult::color, &se::RPCFormulaMetaResult::colorSet,
                         &se::RPCFormulaMetaResult::lineWidth }) {
        auto cache = sound;
        (cache.meta.*member).clear();
        EXPECT_EQ(SimpleLine().drawFormula(cache), QStringList());
    }
    for (auto member : { &se::RPCFormulaResult::columnSeries, &se::RPCFormulaResult::columnType,
                         &se::RPCFormulaResult::barValid }) {
        auto cache = sound;
        (cache.result.*member).clear();
        EXPECT_EQ(SimpleLine().drawFormula(cache), QStringList());
    }
    auto cache = sound;
    cache.result.numberSeries.clear();
    EXPECT_EQ(SimpleLine().drawFormula(cache), QStringList());
    cache = sound;
    cache.meta.outputColumns[0].clear();
    EXPECT_EQ(SimpleLine().drawFormula(cache), QStringList());
}

TEST_F(DrawSimpleLine, DoesNotAskForWhatItDoesNotRead)
{
    auto cache = FormulaBuilder().line({ 1, 2 }).build();
    cache.meta.outputNames.clear();
    cache.meta.drawType.clear();
    cache.meta.lineStyle.clear();
    cache.meta.position.clear();
    cache.meta.valueKind.clear();
    cache.result.columnNeedsAxis.clear();
    EXPECT_EQ(SimpleLine().drawFormula(cache).size(), 1);
}

TEST_F(DrawSimpleLine, TakesBarsWithoutAFlagForInvalid)
{
    SimpleLine line;
    line.alignByIndex = true;
    auto cache = FormulaBuilder().line({ 1, 2, 3 }).color(Qt::red).build();
    cache.result.barValid.resize(2);
    EXPECT_EQ(line.drawFormula(cache), lines({ "path M 0,89 L 10,79 pen=#ff0000/1/solid" }));
}

TEST_F(DrawSimpleLine, TakesTheStyleFromTheCallerAndTheWidthFromTheOutput)
{
    SimpleLine line;
    line.alignByIndex = true;
    line.style = Qt::DashLine;
    EXPECT_EQ(line.drawFormula(FormulaBuilder().line({ 1, 2 }).width(3).style(15).color(Qt::red).build()),
              lines({ "path M 0,89 L 10,79 pen=#ff0000/3/dash" }));
}

TEST_F(DrawSimpleLine, TakesThePaletteColourWhenTheFormulaSetsNone)
{
    TC::embedded::setColor(QStringLiteral("ic_clr_index_output_var1"), QColor(1, 2, 3));
    SimpleLine line;
    line.alignByIndex = true;
    EXPECT_EQ(line.drawFormula(FormulaBuilder().line({ 1, 2 }).paletteColor().build()),
              lines({ "path M 0,89 L 10,79 pen=#010203/1/solid" }));
}

TEST_F(DrawSimpleLine, LeavesNoInkForALonePoint)
{
    EXPECT_EQ(SimpleLine().draw({ 1 }), QStringList());
}

TEST_F(DrawSimpleLine, LeavesTheBrushOff)
{
    const auto traced = test::traceOf([](QPainter& painter) {
        painter.setBrush(Qt::green);
        auto cache = FormulaBuilder().line({ 1, 2 }).build();
        QRect pane(0, 0, 60, 100);
        TC::CDrawStyle().drawSimpleLine(&painter, pane, cache, { 10, 0 }, Qt::SolidLine, 0, 0, 1, 6, 0, true,
                                        false, 1.0f, false, true);
        EXPECT_EQ(painter.brush().style(), Qt::NoBrush);
    });
    EXPECT_EQ(traced.size(), 1);
}

TEST_F(DrawSimpleLine, FillsBeneathBeforeItStrokes)
{
    TC::embedded::removeSkinKey(QStringLiteral("ic_clr_index_gradient2")); // one colour is no pair
    SimpleLine line;
    line.pane = QRect(10, 20, 60, 100); // bottom 119: the area reaches row 121
    line.alignByIndex = true;
    line.fill = true;
    EXPECT_EQ(line.draw({ 1, 2 }),
              lines({ "path M 10,109 L 20,99 L 20,121 L 10,121 L 10,109 pen=none "
                      "brush=linear(0,0 10,119 0:#c86082d8 1:#00000000)",
                      "path M 10,109 L 20,99 pen=#ff0000/1/solid" }));
}

TEST_F(DrawSimpleLine, FillsWithTheSkinsPairOfColours)
{
    TC::embedded::setColor(QStringLiteral("ic_clr_index_gradient1"), QColor(1, 2, 3, 100));
    TC::embedded::setColor(QStringLiteral("ic_clr_index_gradient2"), QColor(4, 5, 6, 50));
    SimpleLine line;
    line.alignByIndex = true;
    line.fill = true;
    EXPECT_TRUE(line.draw({ 1, 2 }).first().contains(QStringLiteral("0:#64010203 1:#32040506")));
}

TEST_F(DrawSimpleLine, FillsInTheDefaultColoursWithAGradientOfThreeColours)
{
    QRect pane(0, 0, 60, 100);
    auto cache = FormulaBuilder().line({ 1, 2 }).build();
    TC::CDrawStyle style; // loads the skin's pair
    TC::CDrawStyle::initColorListGradient({ Qt::red, Qt::green, Qt::blue });
    const QStringList drawn = test::traceOf([&](QPainter& painter) {
        style.drawSimpleLine(&painter, pane, cache, { 10, 0 }, Qt::SolidLine, 0, 0, 1, 6, 0, true, false,
                             1.0f, true, true);
    });
    EXPECT_TRUE(drawn.first().contains(QStringLiteral("0:#c86082d8 1:#00000000")));
}

TEST_F(DrawSimpleLine, BeginsAtTheOffsetForClientType3)
{
    TC::embedded::setClientType(3);
    SimpleLine line;
    line.xOffset = 4;
    EXPECT_EQ(line.draw({ 1, 2 }), lines({ "path M 4,89 L 14,79 pen=#ff0000/1/solid" }));
    line.alignByIndex = true; // wins over the client type
    line.start = 1;
    EXPECT_EQ(line.draw({ 1, 2, 3 }), lines({ "path M 10,79 L 20,69 pen=#ff0000/1/solid" }));
}

TEST_F(DrawSimpleLine, TurnsPureWhiteIntoBlueForClientType3Alone)
{
    SimpleLine line;
    line.alignByIndex = true;
    const auto white = FormulaBuilder().line({ 1, 2 }).color(Qt::white).build();
    EXPECT_TRUE(line.drawFormula(white).first().contains(QStringLiteral("#ffffff")));
    TC::embedded::setClientType(3);
    EXPECT_TRUE(line.drawFormula(white).first().contains(QStringLiteral("#48a6f2")));
    const auto nearly = FormulaBuilder().line({ 1, 2 }).color(QColor(255, 255, 254)).build();
    EXPECT_TRUE(line.drawFormula(nearly).first().contains(QStringLiteral("#fffffe")));
}

TEST_F(DrawSimpleLine, FillsInItsOwnColoursForClientType3)
{
    TC::embedded::setClientType(3);
    SimpleLine line;
    line.alignByIndex = true;
    line.fill = true;
    EXPECT_TRUE(line.draw({ 1, 2 }).first().contains(QStringLiteral("0:#6648a6f2 1:#001f2126")));
}

TEST_F(DrawSimpleLine, StopsAtTheLastBarAndSkipsBarsBeforeTheFirst)
{
    SimpleLine line;
    line.alignByIndex = true;
    line.start = -2; // trunc(-2 * 10) = -20; bar 0 stands 20 further right
    line.end = INT_MAX;
    EXPECT_EQ(line.draw({ 1, 2 }), lines({ "path M 0,89 L 10,79 pen=#ff0000/1/solid" }));
}

TEST_F(DrawSimpleLine, SaturatesRowsThatNoIntHolds)
{
    SimpleLine line;
    line.alignByIndex = true;
    EXPECT_EQ(line.draw({ 1, 1e300 }), lines({ "path M 0,89 L 10,-2147483648 pen=#ff0000/1/solid" }));
}
