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

struct Bar
{
    double volume, open, close;
};

constexpr Bar kRising { 5.0, 1.0, 2.0 };
constexpr Bar kFalling { 5.0, 2.0, 1.0 };

FormulaBuilder volumes(const std::vector<Bar>& bars)
{
    FormulaBuilder::Values volume, open, close;
    for (const Bar& bar : bars) {
        volume.push_back(bar.volume);
        open.push_back(bar.open);
        close.push_back(bar.close);
    }
    return FormulaBuilder().output("VOL", 27, { volume, open, close });
}

/// Six slots of 10 pixels from the left edge, bodies of 6 pixels; 10 pixels per unit above row 99.
struct VolStick
{
    QRect pane { 0, 0, 60, 100 };
    QPair<double, double> range { 10.0, 0.0 };
    int output = 0, start = 0, end = 99, halfWidth = 3;
    bool thin = false, fullWidth = true;
    int slotCount = 6;
    double previousClose = 1.0;
    bool alignByIndex = true;

    QStringList drawFormula(TC::RPCFormulaResultCache cache)
    {
        return test::traceOf([&](QPainter& painter) {
            TC::CDrawStyle().drawVolStick(&painter, pane, cache, range, output, start, end, halfWidth, thin,
                                          fullWidth, slotCount, previousClose, alignByIndex);
        });
    }
    QStringList draw(const std::vector<Bar>& bars) { return drawFormula(volumes(bars).build()); }
};

class DrawVolStick : public test::PlainSkin
{
protected:
    /// 'r' or 'f' per bar drawn.
    static std::string directions(VolStick call, TC::RPCFormulaResultCache cache)
    {
        std::string answer;
        for (const QString& line : call.drawFormula(std::move(cache)))
            answer += line.contains(QLatin1String("#ff0000")) ? 'r' : 'f';
        return answer;
    }
    static std::string directions(const VolStick& call, const std::vector<Bar>& bars)
    {
        return directions(call, volumes(bars).build());
    }
};

} // namespace

TEST_F(DrawVolStick, OutlinesRisingAndFillsFallingBars)
{
    // row 99 - 5 * 10 = 49, height 100 - 49 = 51; the filled body starts a row lower
    EXPECT_EQ(VolStick().draw({ kRising, kFalling }),
              lines({ "rect 0,49 6x51 pen=#ff0000/1/solid brush=none", "fill 10,50 6x51 #00ff00" }));
}

TEST_F(DrawVolStick, OutlinesWithTheBrushThatThePainterHas)
{
    QRect pane(0, 0, 60, 100);
    auto cache = volumes({ kRising }).build();
    const QStringList drawn = test::traceOf([&](QPainter& painter) {
        painter.setBrush(QColor(1, 2, 3));
        TC::CDrawStyle().drawVolStick(&painter, pane, cache, { 10.0, 0.0 }, 0, 0, 0, 3, false, true, 6, 0.0,
                                      true);
    });
    EXPECT_EQ(drawn, lines({ "rect 0,49 6x51 pen=#ff0000/1/solid brush=#010203" }));
}

TEST_F(DrawVolStick, LeavesTheColourOfTheLastBarAsPlainPen)
{
    QRect pane(0, 0, 60, 100);
    auto cache = volumes({ kRising, kFalling }).build();
    test::traceOf([&](QPainter& painter) {
        painter.setPen(QPen(Qt::blue, 5.0, Qt::DashLine));
        TC::CDrawStyle().drawVolStick(&painter, pane, cache, { 10.0, 0.0 }, 0, 0, 1, 3, false, true, 6, 0.0,
                                      true);
        EXPECT_EQ(test::penText(painter.pen()), QStringLiteral("#00ff00/1/solid"));
    });
}

TEST_F(DrawVolStick, UnchangedFirstBarEqualToThePreviousCloseFalls)
{
    VolStick call;
    call.previousClose = 2.0;
    EXPECT_EQ(directions(call, { { 5.0, 2.0, 2.0 } }), "f");
    call.previousClose = 2.0 - 0.9e-5; // within the tolerance
    EXPECT_EQ(directions(call, { { 5.0, 2.0, 2.0 } }), "f");
    call.previousClose = 2.0 - 1.1e-5;
    EXPECT_EQ(directions(call, { { 5.0, 2.0, 2.0 } }), "r");
}

TEST_F(DrawVolStick, UnchangedLaterBarEqualToItsPredecessorRises)
{
    EXPECT_EQ(directions(VolStick(), { kFalling, { 5.0, 1.0, 1.0 } }), "fr");
    EXPECT_EQ(directions(VolStick(), { kFalling, { 5.0, 1.0, 1.0 - 0.9e-5 } }), "fr");
    EXPECT_EQ(directions(VolStick(), { kFalling, { 5.0, 0.9, 0.9 } }), "ff");
}

TEST_F(DrawVolStick, ABarAtTheStartIndexIsTheFirstOneEvenAmongEarlierBars)
{
    VolStick call;
    call.start = 1;
    call.previousClose = 2.0; // bar 0 closes at 1, which would let bar 1 rise
    EXPECT_EQ(directions(call, { kFalling, { 5.0, 2.0, 2.0 } }), "f");
}

TEST_F(DrawVolStick, TheFirstBarDrawnIsALaterOneWhenTheStartBarIsInvalid)
{
    VolStick call;
    call.previousClose = 99.0; // would make the bar fall
    EXPECT_EQ(directions(call, volumes({ kFalling, { 5.0, 1.0, 1.0 } }).valid({ 0, 1 }).build()), "r");
}

TEST_F(DrawVolStick, UnchangedBarComparesWithTheBarBeforeEvenWhenThatIsInvalid)
{
    // the invalid bar 1 closes at 9; the last valid one before, bar 0, closes at 1
    const auto cache = volumes({ kFalling, { 5.0, 1.0, 9.0 }, { 5.0, 5.0, 5.0 } }).valid({ 1, 0, 1 }).build();
    EXPECT_EQ(directions(VolStick(), cache), "ff");
}

TEST_F(DrawVolStick, UnchangedBarWithoutAPredecessorFalls)
{
    VolStick call;
    call.start = -1; // bar 0 is then not the first bar of the view
    call.previousClose = 0.0;
    EXPECT_EQ(directions(call, { { 5.0, 2.0, 2.0 } }), "f");
}

TEST_F(DrawVolStick, SkipsZeroMissingAndInvalidBars)
{
    const std::vector<Bar> bars { { 0.0, 1.0, 2.0 }, { 1e-5, 1.0, 2.0 },     { NAN, 1.0, 2.0 },
                                  kRising,           { INFINITY, 1.0, 2.0 }, { DBL_MAX, 1.0, 2.0 } };
    EXPECT_EQ(VolStick().draw(bars), lines({ "rect 30,49 6x51 pen=#ff0000/1/solid brush=none" }));
    EXPECT_EQ(VolStick().drawFormula(volumes({ kRising, kRising }).valid({ 0, 1 }).build()).size(), 1);
}

TEST_F(DrawVolStick, DoesNotReadTheMinimumOfTheRange)
{
    VolStick call;
    call.range = { 10.0, 8.0 };
    EXPECT_EQ(call.draw({ kRising }), lines({ "rect 0,49 6x51 pen=#ff0000/1/solid brush=none" }));
}

TEST_F(DrawVolStick, MeasuresHeightsFromRowZeroInAPaneThatStandsLower)
{
    VolStick call;
    call.pane = QRect(0, 40, 60, 100);
    // bottom 139: row 139 - 50 = 89, height 100 - 89 = 11, so that the bar ends at row 100
    EXPECT_EQ(call.draw({ kRising, kFalling }),
              lines({ "rect 0,89 6x11 pen=#ff0000/1/solid brush=none", "fill 10,90 6x11 #00ff00" }));
    // volume 3: row 109, past the height 100: a mark two rows above the bottom
    EXPECT_EQ(call.draw({ { 3.0, 1.0, 2.0 } }), lines({ "line 0,137 6,137 pen=#ff0000/1/solid" }));
}

TEST_F(DrawVolStick, MarksALowBarTwoRowsAboveTheBottom)
{
    // 99 - 0.001 * 10 = 98.99: height 2, a body still; a volume of -1 lands on row 109: height 1
    EXPECT_EQ(VolStick().draw({ { 0.001, 1.0, 2.0 } }),
              lines({ "rect 0,98 6x2 pen=#ff0000/1/solid brush=none" }));
    EXPECT_EQ(VolStick().draw({ { -1.0, 1.0, 2.0 } }), lines({ "line 0,97 6,97 pen=#ff0000/1/solid" }));
}

TEST_F(DrawVolStick, DrawsBodiesOfOnePixelAsLinesAndTheirMarksAsPoints)
{
    VolStick call;
    call.halfWidth = 0;
    EXPECT_EQ(call.draw({ kRising, kFalling, { -1.0, 2.0, 1.0 } }),
              lines({ "line 0,49 0,99 pen=#ff0000/1/solid", "line 10,49 10,99 pen=#00ff00/1/solid",
                      "point 20,97 pen=#00ff00/1/solid" }));
}

TEST_F(DrawVolStick, DrawsBodiesOfTwoPixelsAsBodies)
{
    VolStick call;
    call.halfWidth = 1;
    EXPECT_EQ(call.draw({ kRising, kFalling }),
              lines({ "rect 0,49 2x51 pen=#ff0000/1/solid brush=none", "fill 10,50 2x51 #00ff00" }));
}

TEST_F(DrawVolStick, SpansTheWholeHeightWithTheMaximum)
{
    // row 99 - 100: one above the pane
    EXPECT_EQ(VolStick().draw({ { 10.0, 1.0, 2.0 } }),
              lines({ "rect 0,-1 6x101 pen=#ff0000/1/solid brush=none" }));
}

TEST_F(DrawVolStick, ThinLinesStandAtTheLeftEdgeOfTheBodyAndReachTheBottom)
{
    VolStick call;
    call.thin = true;
    EXPECT_EQ(call.draw({ kRising, kFalling }),
              lines({ "line 0,49 0,99 pen=#ff0000/1/solid", "line 10,49 10,99 pen=#00ff00/1/solid" }));
}

TEST_F(DrawVolStick, ThinLineOnTheBottomRowIsAPointOneRowAboveIt)
{
    VolStick call;
    call.thin = true;
    call.range = { 1e9, 0.0 };
    call.pane = QRect(0, 0, 60, 100);
    // 99 - 5e-7 = 98.9999995 is row 98: one line of two pixels. Only a negative volume of less than a pixel
    // truncates onto the bottom row 99.
    EXPECT_EQ(call.draw({ kRising, { -5.0, 1.0, 2.0 } }),
              lines({ "line 0,98 0,99 pen=#ff0000/1/solid", "point 10,98 pen=#ff0000/1/solid" }));
}

TEST_F(DrawVolStick, TruncatesTheStartOffsetFirst)
{
    VolStick call;
    call.pane = QRect(0, 0, 100, 100);
    call.slotCount = 7; // 14.2857 pixels a slot
    call.start = 1;
    call.halfWidth = 0;
    // bar 4: 14 + 3 * 14.2857 = 56.86; with the offset left fractional it would be 57.14
    EXPECT_EQ(call.draw({ {}, {}, {}, {}, kRising }), lines({ "line 56,49 56,99 pen=#ff0000/1/solid" }));
}

TEST_F(DrawVolStick, StandsRightAlignedByTheAbsoluteDifference)
{
    VolStick call;
    call.alignByIndex = false;
    call.pane.moveLeft(100);
    call.end = 1; // 100 + |0 - 1 + 6| * 10 = 150
    EXPECT_EQ(call.draw({ kRising }), lines({ "rect 150,49 6x51 pen=#ff0000/1/solid brush=none" }));
    call.end = 8; // |0 - 8 + 6| = 2
    EXPECT_EQ(call.draw({ kRising }), lines({ "rect 120,49 6x51 pen=#ff0000/1/solid brush=none" }));
}

TEST_F(DrawVolStick, StartsAtTheLeftEdgeForClientTypeThreeUnlessAlignedByIndex)
{
    TC::embedded::setClientType(3);
    VolStick call;
    call.alignByIndex = false;
    call.end = 1;
    EXPECT_EQ(call.draw({ kRising }), lines({ "rect 0,49 6x51 pen=#ff0000/1/solid brush=none" }));
    call.alignByIndex = true;
    call.start = 1;
    EXPECT_EQ(call.draw({ {}, kRising }), lines({ "rect 10,49 6x51 pen=#ff0000/1/solid brush=none" }));
}

TEST_F(DrawVolStick, HasNoStartOffsetWithoutSlots)
{
    VolStick call;
    call.fullWidth = false;
    call.slotCount = 0; // divisor 1: 60 pixels a slot
    call.start = 1;
    EXPECT_EQ(call.draw({ {}, kRising, kRising }),
              lines({ "rect 0,49 6x51 pen=#ff0000/1/solid brush=none",
                      "rect 60,49 6x51 pen=#ff0000/1/solid brush=none" }));
}

TEST_F(DrawVolStick, DrawsNothingWhereSlotsOrScaleAreNotNumbers)
{
    VolStick call;
    call.slotCount = 0; // the first bar: 0 * infinity
    EXPECT_EQ(call.draw({ kRising }), QStringList());
    call = VolStick();
    call.pane = QRect(0, 0, 60, 0);
    call.range = { 0.0, 0.0 }; // 0 / 0
    EXPECT_EQ(call.draw({ kRising }), QStringList());
}

TEST_F(DrawVolStick, SaturatesWhereTheScaleIsEndless)
{
    VolStick call;
    call.range = { 0.0, 0.0 };
    call.thin = true;
    EXPECT_EQ(call.draw({ kRising }), lines({ "line 0,-2147483648 0,99 pen=#ff0000/1/solid" }));
}

TEST_F(DrawVolStick, NeedsVolumeOpenAndClose)
{
    EXPECT_EQ(VolStick().drawFormula(FormulaBuilder().output("VOL", 27, { { 5.0 }, { 1.0 } }).build()),
              QStringList());
    VolStick call;
    call.output = 1;
    EXPECT_EQ(call.draw({ kRising }), QStringList());
}

TEST_F(DrawVolStick, DoesNotReadTheOutputsWidth)
{
    EXPECT_EQ(VolStick().drawFormula(volumes({ kRising }).width(0).build()), VolStick().draw({ kRising }));
}

TEST_F(DrawVolStick, SkipsBarsPastAShortColumn)
{
    const auto cache = FormulaBuilder().output("VOL", 27, { { 5.0, 5.0 }, { 1.0, 1.0 }, { 2.0 } }).build();
    EXPECT_EQ(VolStick().drawFormula(cache), lines({ "rect 0,49 6x51 pen=#ff0000/1/solid brush=none" }));
}
