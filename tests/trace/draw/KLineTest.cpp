// SPDX-License-Identifier: MIT
#include "draw/CDrawStyle.h"
#include "tests/support/FormulaBuilder.h"
#include "tests/support/TestFont.h"
#include "tests/support/Trace.h"
#include "tests/trace/draw/PlainSkin.h"
#include "tests/trace/draw/TraceLines.h"

#include <QFontMetrics>

#include <cfloat>
#include <cmath>

namespace {

using test::FormulaBuilder;
using test::lines;

struct Bar
{
    double open, high, low, close;
};

constexpr Bar kRising { 20.0, 50.0, 10.0, 40.0 };
constexpr Bar kFalling { 40.0, 50.0, 10.0, 20.0 };

FormulaBuilder candles(const std::vector<Bar>& bars)
{
    std::vector<FormulaBuilder::Values> columns(4);
    for (const Bar& bar : bars) {
        columns[0].push_back(bar.open);
        columns[1].push_back(bar.high);
        columns[2].push_back(bar.low);
        columns[3].push_back(bar.close);
    }
    return FormulaBuilder().output("KLINE", 12, columns).color(QColor(1, 2, 3));
}

/// Six slots of 10 pixels, bodies of 6 pixels and a centre column 3; row 100 - price.
struct KLine
{
    QRect pane { 0, 0, 60, 101 };
    QPair<double, double> range { 100.0, 0.0 };
    int output = 0, start = 0, end = 9999, slotCount = 6, halfWidth = 3, period = 86400;
    bool useOutputColour = false;
    float scale = 1.0F;
    int precision = 2;

    QStringList drawFormula(TC::RPCFormulaResultCache cache)
    {
        return test::traceOf([&](QPainter& painter) {
            painter.setFont(test::font(12));
            TC::CDrawStyle().drawKLine(&painter, pane, cache, range, output, start, end, slotCount, halfWidth,
                                       period, useOutputColour, scale, precision);
        });
    }
    QStringList draw(const std::vector<Bar>& bars) { return drawFormula(candles(bars).build()); }

    /// Without the two labels, a leader and a text each, that end every trace with a candle.
    QStringList drawBodies(const std::vector<Bar>& bars)
    {
        const QStringList all = draw(bars);
        return all.mid(0, all.size() - 4);
    }
    QStringList drawLabels(const std::vector<Bar>& bars)
    {
        const QStringList all = draw(bars);
        return all.mid(all.size() - 4);
    }
};

class DrawKLine : public test::PlainSkin
{
};

int widthOf(const char* text)
{
    return QFontMetrics(test::font(12)).horizontalAdvance(QString::fromLatin1(text));
}

int textHeight()
{
    return QFontMetrics(test::font(12)).height();
}

QString textLine(int x, int y, const char* text)
{
    return QStringLiteral("text %1,%2 \"%3\" #808080 12px").arg(x).arg(y).arg(QString::fromLatin1(text));
}

} // namespace

TEST_F(DrawKLine, DrawsARisingCandleHollowBetweenTwoWicks)
{
    // open row 80, close row 60: body of 20 rows from 60
    EXPECT_EQ(KLine().drawBodies({ kRising }),
              lines({ "line 3,50 3,60 pen=#ff0000/1/solid", "line 3,80 3,90 pen=#ff0000/1/solid",
                      "rect 0,60 6x20 pen=#ff0000/1/solid brush=none" }));
}

TEST_F(DrawKLine, FillsAFallingCandleOverOneWick)
{
    EXPECT_EQ(KLine().drawBodies({ kFalling }),
              lines({ "line 3,50 3,90 pen=#00ff00/1/solid", "fill 0,60 7x21 #00ff00" }));
}

TEST_F(DrawKLine, OutlinesWithTheBrushThatThePainterHas)
{
    QRect pane(0, 0, 60, 101);
    auto cache = candles({ kRising }).build();
    const QStringList drawn = test::traceOf([&](QPainter& painter) {
        painter.setBrush(QColor(9, 9, 9));
        TC::CDrawStyle().drawKLine(&painter, pane, cache, { 100.0, 0.0 }, 0, 0, 0, 6, 3, 0, true, 1.0F, 2);
    });
    EXPECT_EQ(drawn.last(), QStringLiteral("rect 0,60 6x20 pen=#010203/1/solid brush=#090909"));
}

TEST_F(DrawKLine, GivesAFlatBodyOneRow)
{
    // body row 70, one row: the lower wick starts at 71
    EXPECT_EQ(KLine().drawBodies({ { 30.0, 50.0, 10.0, 30.0 } }),
              lines({ "line 3,50 3,70 pen=#ff0000/1/solid", "line 3,71 3,90 pen=#ff0000/1/solid",
                      "rect 0,70 6x1 pen=#ff0000/1/solid brush=none" }));
    EXPECT_EQ(KLine().drawBodies({ { 30.0, 50.0, 10.0, 29.99 } }).last(),
              QStringLiteral("fill 0,70 7x2 #00ff00"));
}

TEST_F(DrawKLine, DrawsAShortLineWhereHighEqualsLow)
{
    const Bar still { 30.0, 30.0, 30.0, 30.0 };
    EXPECT_EQ(KLine().drawBodies({ still }), lines({ "line 0,70 7,70 pen=#ff0000/1/solid" }));
    KLine call;
    call.halfWidth = 0;
    EXPECT_EQ(call.drawBodies({ still }), lines({ "line 0,70 0,71 pen=#ff0000/1/solid" }));
    // a high below the low is drawn the same way
    EXPECT_EQ(KLine().drawBodies({ { 30.0, 20.0, 40.0, 30.0 } }),
              lines({ "line 0,80 7,80 pen=#ff0000/1/solid" }));
}

TEST_F(DrawKLine, AnUnchangedFirstCandleRises)
{
    EXPECT_TRUE(KLine().drawBodies({ { 30.0, 50.0, 10.0, 30.0 } })[0].contains(QLatin1String("#ff0000")));
}

TEST_F(DrawKLine, AnUnchangedLaterCandleRisesUnlessItClosesBelowTheOneBefore)
{
    const auto second = [](double price) {
        const QStringList bodies = KLine().drawBodies({ kFalling, { price, 50.0, 10.0, price } });
        return bodies[2].contains(QLatin1String("#ff0000")) ? "rises" : "falls";
    };
    EXPECT_STREQ(second(20.0), "rises"); // the candle before closed at 20
    EXPECT_STREQ(second(20.0 - 0.9e-5), "rises");
    EXPECT_STREQ(second(19.9), "falls");
}

TEST_F(DrawKLine, ComparesAnUnchangedCandleWithTheCandleBeforeNotWithAnInvalidBar)
{
    // the invalid bar between closes at 90
    const auto cache = candles({ kFalling, { 90.0, 90.0, 90.0, 90.0 }, { 30.0, 50.0, 10.0, 30.0 } })
                           .valid({ 1, 0, 1 })
                           .build();
    EXPECT_EQ(KLine().drawFormula(cache)[2], QStringLiteral("line 23,50 23,70 pen=#ff0000/1/solid"));
}

TEST_F(DrawKLine, DividesTheWidthBySlotsAloneAndStartsAtTheLeftEdge)
{
    KLine call;
    call.pane.moveLeft(100);
    call.start = 1;
    call.end = 2; // neither right-aligned nor aligned by index
    EXPECT_EQ(call.drawBodies({ kRising, kFalling, kFalling }),
              lines({ "line 103,50 103,90 pen=#00ff00/1/solid", "fill 100,60 7x21 #00ff00",
                      "line 113,50 113,90 pen=#00ff00/1/solid", "fill 110,60 7x21 #00ff00" }));
}

TEST_F(DrawKLine, MapsRowsFromTopToBottomOfThePane)
{
    KLine call;
    call.pane.moveTop(40); // 40 to 140; the other painters would put 100 on row 39
    EXPECT_EQ(call.drawBodies({ { 0.0, 100.0, 0.0, 100.0 } }),
              lines({ "point 3,40 pen=#ff0000/1/solid", "point 3,140 pen=#ff0000/1/solid",
                      "rect 0,40 6x100 pen=#ff0000/1/solid brush=none" }));
}

TEST_F(DrawKLine, FollowsTheFlatRangeRule)
{
    KLine call;
    call.range = { 30.0, 30.0 };
    // above the level row 0, below it row 100, on it (0 + 1 + 100) / 2 = 50
    EXPECT_EQ(call.drawBodies({ { 30.0, 40.0, 20.0, 30.0 } }),
              lines({ "line 3,0 3,50 pen=#ff0000/1/solid", "line 3,51 3,100 pen=#ff0000/1/solid",
                      "rect 0,50 6x1 pen=#ff0000/1/solid brush=none" }));
}

TEST_F(DrawKLine, ScalesPricesOnly)
{
    KLine call;
    call.scale = 0.5F;
    EXPECT_EQ(call.drawBodies({ { 40.0, 100.0, 20.0, 80.0 } }), KLine().drawBodies({ kRising }));
    EXPECT_TRUE(call.drawLabels({ { 40.0, 100.0, 20.0, 80.0 } })[1].contains(QLatin1String("\"50.00\"")));
}

TEST_F(DrawKLine, MergesBarsOfOnePixelColumn)
{
    KLine call;
    call.slotCount = 120; // half a pixel a bar
    call.halfWidth = 0;
    // bars 0 and 1: open of the first, close of the last, highest high, lowest low
    EXPECT_EQ(call.drawBodies({ { 20.0, 30.0, 15.0, 25.0 }, { 25.0, 50.0, 10.0, 40.0 } }),
              lines({ "line 0,50 0,60 pen=#ff0000/1/solid", "line 0,80 0,90 pen=#ff0000/1/solid",
                      "rect 0,60 0x20 pen=#ff0000/1/solid brush=none" }));
}

TEST_F(DrawKLine, FiveHundredBarsInAHundredPixelsGiveAHundredCandles)
{
    KLine call;
    call.pane = QRect(0, 0, 100, 101);
    call.slotCount = 500;
    call.halfWidth = 0;
    std::vector<Bar> bars;
    for (int bar = 0; bar < 500; ++bar)
        bars.push_back({ 50.0 - bar % 5, 60.0, 10.0, 49.0 - bar % 5 });
    // every candle opens at 50 and closes at 45: one wick and one body
    const QStringList drawn = call.drawBodies(bars);
    ASSERT_EQ(drawn.size(), 200);
    for (int x = 0; x < 100; ++x) {
        EXPECT_EQ(drawn[2 * x], QStringLiteral("line %1,40 %1,90 pen=#00ff00/1/solid").arg(x));
        EXPECT_EQ(drawn[2 * x + 1], QStringLiteral("fill %1,50 1x6 #00ff00").arg(x));
    }
}

TEST_F(DrawKLine, SplitsMergedBarsAtAFallOfMoreThanASixth)
{
    KLine call;
    call.slotCount = 120;
    call.halfWidth = 0;
    const Bar before { 60.0, 70.0, 50.0, 60.0 }, after { 45.0, 50.0, 40.0, 49.9 };
    EXPECT_EQ(call.drawBodies({ before, after }),
              lines({ "line 0,30 0,40 pen=#ff0000/1/solid", "line 0,41 0,50 pen=#ff0000/1/solid",
                      "rect 0,40 0x1 pen=#ff0000/1/solid brush=none", //
                      "line 1,50 1,51 pen=#ff0000/1/solid", "line 1,55 1,60 pen=#ff0000/1/solid",
                      "rect 1,51 0x4 pen=#ff0000/1/solid brush=none" }));
}

TEST_F(DrawKLine, OutputColourPaintsEveryCandleAndDropsTheLabels)
{
    KLine call;
    call.useOutputColour = true;
    EXPECT_EQ(call.draw({ kRising, kFalling }),
              lines({ "line 3,50 3,60 pen=#010203/1/solid", "line 3,80 3,90 pen=#010203/1/solid",
                      "rect 0,60 6x20 pen=#010203/1/solid brush=none", //
                      "line 13,50 13,90 pen=#010203/1/solid", "fill 10,60 7x21 #010203" }));
}

TEST_F(DrawKLine, OutputColourIsTheFirstOutputsEntryAsItStands)
{
    KLine call;
    call.useOutputColour = true;
    call.output = 1;
    auto cache = FormulaBuilder()
                     .line({ 1.0 })
                     .color(QColor(7, 8, 9))
                     .paletteColor() // a colour that the formula did not choose counts as well
                     .output("KLINE", 12, { { 40.0 }, { 50.0 }, { 10.0 }, { 20.0 } })
                     .build();
    EXPECT_EQ(call.drawFormula(cache).last(), QStringLiteral("fill 0,60 7x21 #070809"));
    cache.meta.color.clear();
    EXPECT_EQ(call.drawFormula(cache), QStringList());
}

TEST_F(DrawKLine, DoesNotReadTheOutputsWidth)
{
    EXPECT_EQ(KLine().drawFormula(candles({ kRising }).width(0).build()), KLine().draw({ kRising }));
}

TEST_F(DrawKLine, NeedsExactlyFourColumnsAndASlot)
{
    EXPECT_EQ(KLine().drawFormula(candles({ kRising }).column({ 1.0 }).build()), QStringList());
    auto three = candles({ kRising }).build();
    three.meta.outputColumns[0].pop_back();
    EXPECT_EQ(KLine().drawFormula(three), QStringList());
    KLine call;
    call.slotCount = 0;
    EXPECT_EQ(call.draw({ kRising }), QStringList());
}

TEST_F(DrawKLine, DrawsNoLabelWithoutACandle)
{
    EXPECT_EQ(KLine().drawFormula(candles({ kRising }).valid({ 0 }).build()), QStringList());
    EXPECT_EQ(KLine().draw({}), QStringList());
}

TEST_F(DrawKLine, SkipsABarWithAPriceThatIsNotANumber)
{
    EXPECT_EQ(KLine().drawBodies({ { NAN, 50.0, 10.0, 40.0 }, kFalling }),
              lines({ "line 13,50 13,90 pen=#00ff00/1/solid", "fill 10,60 7x21 #00ff00" }));
}

TEST_F(DrawKLine, SkipsABarThatLacksOneOfItsPricesInCandlesAndLabels)
{
    const QStringList expected = KLine().draw({ kRising });
    for (const double missing : { DBL_MAX, static_cast<double>(INFINITY), -static_cast<double>(INFINITY) }) {
        EXPECT_EQ(KLine().draw({ kRising, { missing, 60.0, 5.0, 40.0 } }), expected);
        EXPECT_EQ(KLine().draw({ kRising, { 20.0, missing, 5.0, 40.0 } }), expected);
        EXPECT_EQ(KLine().draw({ kRising, { 20.0, 60.0, missing, 40.0 } }), expected);
        EXPECT_EQ(KLine().draw({ kRising, { 20.0, 60.0, 5.0, missing } }), expected);
    }
}

TEST_F(DrawKLine, LooksForMissingPricesBeforeItScalesThem)
{
    KLine call;
    call.scale = 0.5F; // half the missing marker would be an ordinary number
    EXPECT_EQ(call.draw({ { 20.0, DBL_MAX, 10.0, 40.0 } }), QStringList());
    call.scale = 1e38F; // an infinity after the factor is a price far outside the pane
    // row 100 - 2147483647
    EXPECT_EQ(call.draw({ { 0.0, 1e300, 0.0, 0.0 } }).first(),
              QStringLiteral("line 3,-2147483547 3,100 pen=#ff0000/1/solid"));
}

TEST_F(DrawKLine, LabelsTheHighestPriceAtTheRightAndTheLowestAtTheLeft)
{
    KLine call;
    call.pane = QRect(0, 0, 600, 101);
    call.slotCount = 6; // 100 pixels a slot
    const Bar first { 20.0, 50.0, 15.0, 40.0 }, second { 40.0, 45.0, 10.0, 20.0 };
    // high 50.00: column 3, row 50; low 10.00: column 103, row 90
    EXPECT_EQ(call.drawLabels({ first, second }),
              QStringList({ QStringLiteral("line 3,50 11,48 pen=#808080/1/solid"), textLine(12, 48, "50.00"),
                            QStringLiteral("line 93,90 103,90 pen=#808080/1/solid"),
                            textLine(93 - widthOf("10.00"), 93, "10.00") }));
}

TEST_F(DrawKLine, LabelsTheEarlierOfTwoEqualHighsAndLows)
{
    KLine call;
    call.pane = QRect(0, 0, 600, 101);
    call.slotCount = 6;
    // within the tolerance of the earlier one, though higher and lower
    const Bar higher { 20.0, 50.0 + 0.9e-5, 10.0 - 0.9e-5, 40.0 };
    const QStringList labels = call.drawLabels({ kRising, higher });
    EXPECT_EQ(labels[0], QStringLiteral("line 3,50 11,48 pen=#808080/1/solid"));
    // the low stands on the first candle too, where there is no room at its left
    EXPECT_EQ(labels[2], QStringLiteral("line 3,90 12,90 pen=#808080/1/solid"));
}

TEST_F(DrawKLine, LabelsTheHighsAndLowsOfMergedCandles)
{
    KLine call;
    call.pane = QRect(0, 0, 600, 101);
    call.slotCount = 1200; // half a pixel a bar
    call.halfWidth = 0;
    // bars 2 and 3 are the candle of column 1
    const QStringList labels =
        call.drawLabels({ kRising, kRising, { 40.0, 60.0, 30.0, 40.0 }, { 40.0, 55.0, 5.0, 40.0 } });
    EXPECT_EQ(labels[0], QStringLiteral("line 1,40 9,38 pen=#808080/1/solid"));
    EXPECT_EQ(labels[1], textLine(10, 38, "60.00"));
    EXPECT_EQ(labels[3], textLine(11, 98, "5.00"));
}

TEST_F(DrawKLine, LabelsFollowTheRoomInThePane)
{
    // 60 pixels leave no room at the right of column 53, and the pane's rows none above row 5
    KLine call;
    const Bar high { 90.0, 95.0, 80.0, 85.0 };
    const QStringList labels = call.drawLabels({ kRising, kRising, kRising, kRising, kRising, high });
    EXPECT_EQ(labels[0], QStringLiteral("line 45,5 53,5 pen=#808080/1/solid"));
    EXPECT_EQ(labels[1], textLine(53 - 9 - widthOf("95.00"), textHeight(), "95.00"));
}

TEST_F(DrawKLine, LabelsHaveTheDecimalsAskedFor)
{
    KLine call;
    call.precision = 0;
    EXPECT_TRUE(call.drawLabels({ kRising })[1].contains(QLatin1String("\"50\"")));
}

TEST_F(DrawKLine, MeasuresAndWritesLabelsInThePaintersFont)
{
    QRect pane(0, 0, 60, 101);
    auto cache = candles({ kRising }).build();
    const QStringList drawn = test::traceOf([&](QPainter& painter) {
        painter.setFont(test::font(20));
        TC::CDrawStyle().drawKLine(&painter, pane, cache, { 100.0, 0.0 }, 0, 0, 0, 6, 3, 0, false, 1.0F, 2);
    });
    EXPECT_TRUE(drawn[4].endsWith(QLatin1String("20px")));
    // 3 + 9 + text at 20 pixels is past the right edge 59: the text ends 9 pixels left of column 3
    const int width = QFontMetrics(test::font(20)).horizontalAdvance(QStringLiteral("50.00"));
    EXPECT_TRUE(drawn[4].startsWith(QStringLiteral("text %1,48 ").arg(3 - 9 - width)));
}
