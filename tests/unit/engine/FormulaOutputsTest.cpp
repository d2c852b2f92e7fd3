// SPDX-License-Identifier: MIT
/// @file How the outputs of a text reach the painters and the legend.

#include "engine/evaluation/FormulaEvaluation.h"
#include "tests/support/EngineBars.h"

#include <algorithm>

namespace {

engine::FormulaRecords recordsOf(const std::string& text, const engine::BarSeries& bars)
{
    const engine::FormulaReading reading = engine::readFormula(text);
    EXPECT_TRUE(reading.formula) << text;
    auto records = engine::computeFormula(reading.formula, bars);
    return std::move(records).value_or(engine::FormulaRecords());
}

engine::FormulaRecords recordsOf(const std::string& text)
{
    return recordsOf(text, test::barsOf({ 1, 2, 3 }));
}

int drawTypeOf(const std::string& statement)
{
    return recordsOf(statement).meta.drawType.at(0);
}

TEST(FormulaOutputs, HaveTheDrawingTheyAskFor)
{
    EXPECT_EQ(drawTypeOf("X:C;"), 0);
    EXPECT_EQ(drawTypeOf("X:C,SEGMENT;"), 1);
    EXPECT_EQ(drawTypeOf("X:C,COLORSTICK;"), 2);
    EXPECT_EQ(drawTypeOf("X:C,POINTDOT;"), 10);
    EXPECT_EQ(drawTypeOf("X:C,CIRCLEDOT;"), 11);
    EXPECT_EQ(drawTypeOf("DRAWKLINE(H,O,L,C);"), 12);
    EXPECT_EQ(drawTypeOf("DRAWTEXT(C>1,H,'x');"), 13);
    EXPECT_EQ(drawTypeOf("DRAWICON(C>1,H,1);"), 19);
    EXPECT_EQ(drawTypeOf("DRAWNUMBER(C>1,H,C,2);"), 26);
    EXPECT_EQ(drawTypeOf("X:V,VOLSTICK;"), 27);
    EXPECT_EQ(drawTypeOf("STICKLINE(C>1,H,L,8,0);"), 28);
    EXPECT_EQ(drawTypeOf("DRAWTEXTEX(1,1,500,500,'x');"), 31);
    EXPECT_EQ(drawTypeOf("VERTLINE(C>1);"), 34);
    EXPECT_EQ(drawTypeOf("X:C>1,BOOLLINE;"), 37);
    EXPECT_EQ(drawTypeOf("STACKVOL(V,C);"), 42);
}

TEST(FormulaOutputs, HaveColourWidthAndStyle)
{
    const auto meta =
        recordsOf("A:C,COLORRED,LINETHICK3,DOTLINE; B:C,COLORAB3412,DASHDOT; D:C,DASHDOTDOT;").meta;
    EXPECT_EQ(meta.color, (std::vector<int> { 0x0000FF, 0xAB3412, 0 }));
    EXPECT_EQ(meta.colorSet, (std::vector<int> { 1, 1, 0 }));
    EXPECT_EQ(meta.lineWidth, (std::vector<int> { 3, 1, 1 }));
    EXPECT_EQ(meta.lineStyle, (std::vector<int> { 15, 16, 17 }));
}

TEST(FormulaOutputs, TakeColoursInEveryWayTheyAreWritten)
{
    const auto meta =
        recordsOf("A:C,#1234AB; B:C,RGB(18,52,171); D:C,COLORLIRED; E:C,COLORAB3412,LINETHICK;").meta;
    EXPECT_EQ(meta.color, (std::vector<int> { 0xAB3412, 0xAB3412, 0x8080FF, 0xAB3412 }));
    EXPECT_EQ(meta.lineWidth, (std::vector<int> { 1, 1, 1, 1 }));
}

TEST(FormulaOutputs, OfCandlesTakeThePricesInTheOrderThatTradersWrite)
{
    auto bars = test::barsOf({ 4 });
    bars.open = { 2 };
    bars.high = { 5 };
    bars.low = { 1 };
    const auto records = recordsOf("K:DRAWKLINE(HIGH,OPEN,LOW,CLOSE);", bars);
    for (std::size_t column = 0; column < 4; ++column)
        EXPECT_EQ(test::seriesOf(records, "K", column).at(0), (std::vector<double> { 2, 5, 1, 4 })[column]);
}

TEST(FormulaOutputs, OfLinesBetweenConditionsAreLinesOfValues)
{
    const auto poly = recordsOf("P:POLYLINE(C=1 OR C=3,C*2);", test::barsOf({ 0, 1, 2, 2, 2, 3, 0 }));
    EXPECT_EQ(poly.meta.drawType.at(0), 1);
    EXPECT_EQ(test::seriesOf(poly, "P"), (std::vector<double> { DBL_MAX, 2, 3, 4, 5, 6, DBL_MAX }));
    const std::string line = "L:DRAWLINE(C=1,C,C=3,C,";
    const auto bars = test::barsOf({ 1, 2, 3, 9, 1, 2, 3 });
    EXPECT_EQ(test::seriesOf(recordsOf(line + "0);", bars), "L"),
              (std::vector<double> { 1, 2, 3, DBL_MAX, 1, 2, 3 }));
    EXPECT_EQ(test::seriesOf(recordsOf(line + "1);", bars), "L"),
              (std::vector<double> { 1, 2, 3, 4, 1, 2, 3 }));
    EXPECT_EQ(test::seriesOf(recordsOf("L:PARTLINE(C>2,H);", test::barsOf({ 1, 3, 5 })), "L"),
              (std::vector<double> { DBL_MAX, 3, 5 }));
}

TEST(FormulaOutputs, OfBandsAndRegionsAreSticksInTheirColours)
{
    const auto band = recordsOf("DRAWBAND(C,RGB(255,0,0),2,COLORGREEN);").meta;
    EXPECT_EQ(band.drawType, (std::vector<int> { 28, 28 }));
    EXPECT_EQ(band.color, (std::vector<int> { 0x0000FF, 0x00FF00 }));
    const auto region = recordsOf("FILLRGN(C,0,C>1,COLORBLUE); FILLRGN(C,1);");
    EXPECT_EQ(region.meta.drawType, (std::vector<int> { 28, 28 }));
    EXPECT_EQ(region.result.numberSeries.at(0), (std::vector<double> { 0, 1, 1 }));
    EXPECT_FALSE(engine::readFormula("DRAWBAND(C,C,2,COLORGREEN);").formula) << "a colour must be written";
    EXPECT_FALSE(engine::readFormula("FILLRGN(C,2,C>1);").formula) << "a condition has a colour";
}

TEST(FormulaOutputs, OfSticksAndLinesHaveBoth)
{
    const auto records = recordsOf("A:C,STICK,COLORRED; B:C,LINESTICK; D:C,CROSSDOT;");
    EXPECT_EQ(records.meta.drawType, (std::vector<int> { 0, 28, 0, 28, 10 }));
    EXPECT_EQ(records.meta.lineWidth, (std::vector<int> { 0, 1, 1, 1, 1 }));
    EXPECT_EQ(records.meta.color, (std::vector<int> { 255, 255, 0, 0, 0 }));
}

TEST(FormulaOutputs, OfNumbersAndFixedTextsTakeTheShorterForms)
{
    EXPECT_EQ(recordsOf("DRAWNUMBER(1,H,C);").result.numberSeries.at(3), (std::vector<double> { 2, 2, 2 }));
    const auto fixed = recordsOf("DRAWTEXT_FIX(1,0.5,0.25,0,'x');");
    EXPECT_EQ(fixed.meta.drawType.at(0), 31);
    EXPECT_EQ(test::seriesOf(fixed, "__noname1", 2).back(), 500);
    EXPECT_EQ(test::seriesOf(fixed, "__noname1", 3).back(), 250);
}

TEST(FormulaOutputs, WithMoreTextThanThereIsRoomForAreNotComputed)
{
    const auto reading = engine::readFormula("DRAWTEXT(1,H,'" + std::string(1'000'000, 'x') + "');");
    ASSERT_TRUE(reading.formula);
    EXPECT_FALSE(engine::computeFormula(reading.formula, test::randomBars(1, 5639)));
}

TEST(FormulaOutputs, StoreATextOfThePaneBehindTheLastBarAlone)
{
    const auto reading =
        engine::readFormula("DRAWTEXT_FIX(1,0.5,0.25,0,'" + std::string(1'000'000, 'x') + "');");
    ASSERT_TRUE(reading.formula);
    engine::FormulaEvaluation evaluation(reading.formula);
    for (const std::size_t count : { 5639, 5640, 5640 }) {
        ASSERT_TRUE(evaluation.update(test::randomBars(1, count)));
        const std::vector<std::string>& texts = evaluation.records().result.textSeries.at(0);
        ASSERT_EQ(texts.size(), count);
        EXPECT_EQ(texts.back().size(), 1'000'000);
        EXPECT_TRUE(
            std::all_of(texts.begin(), texts.end() - 1, [](const auto& text) { return text.empty(); }));
    }
}

TEST(FormulaOutputs, CountTextsWhereTheyAreDrawn)
{
    const std::string million(1'000'000, 'x');
    const auto rare = engine::readFormula("DRAWTEXT(MOD(BARPOS,100)=0,H,'" + million + "');").formula;
    ASSERT_TRUE(rare);
    EXPECT_TRUE(engine::computeFormula(rare, test::randomBars(1, 5639))); // 56 MB
    const auto often = engine::readFormula("DRAWTEXT(MOD(BARPOS,20)=0,H,'" + million + "');").formula;
    ASSERT_TRUE(often);
    EXPECT_FALSE(engine::computeFormula(often, test::randomBars(1, 5639))); // 282 MB
    engine::FormulaEvaluation evaluation(often);
    EXPECT_TRUE(evaluation.update(test::randomBars(1, 5360))); // 268 MB
    EXPECT_TRUE(evaluation.update(test::randomBars(1, 5360))); // what is stored anew is counted once
    EXPECT_FALSE(evaluation.update(test::randomBars(1, 5380)));
}

TEST(FormulaOutputs, WithoutANameShowTheirValueAlone)
{
    EXPECT_EQ(recordsOf("C; A:O; H,NOTEXT;").meta.outputNames,
              (std::vector<std::string> { "__noname1", "A", "output3__noshow" }));
}

TEST(FormulaOutputs, ThatAreNotDrawnStandInTheLegendAndOffTheAxis)
{
    const auto records = recordsOf("A:C,NODRAW;");
    EXPECT_EQ(records.meta.lineWidth, (std::vector<int> { 0 }));
    EXPECT_EQ(records.result.columnNeedsAxis, (std::vector<int> { 0 }));
}

TEST(FormulaOutputs, TellTheLegendTheKindOfTheirValue)
{
    const auto meta = recordsOf("A:C; B:C,PRECIS0; D:C>1; E:C>1,PRECIS2; F:C,NODRAW,PRECIS3;").meta;
    EXPECT_EQ(meta.valueKind, (std::vector<int> { 0, 1, 2, 0, 3 }));
}

TEST(FormulaOutputs, OfTheLegendAloneHaveTheirDecimalsAsText)
{
    const auto records = recordsOf("F:REF(C,1)/3,NODRAW,PRECIS3;");
    EXPECT_EQ(records.result.textSeries.at(0), (std::vector<std::string> { "非法值", "0.333", "0.667" }));
}

TEST(FormulaOutputs, OfAStepLineHaveAColumnOfFlags)
{
    EXPECT_EQ(recordsOf("X:C>1,BOOLLINE;").result.columnType, (std::vector<int> { 2 }));
}

TEST(FormulaOutputs, DrawNoLineWhereThereIsNoValueAndNoStickEither)
{
    const auto records = recordsOf("A:REF(C,1); B:REF(C,1),COLORSTICK; REF(C,1)>1,BOOLLINE;");
    EXPECT_EQ(records.result.numberSeries.at(0).at(0), DBL_MAX); // the client's marker
    EXPECT_TRUE(std::isnan(records.result.numberSeries.at(1).at(0)));
    EXPECT_TRUE(std::isnan(records.result.numberSeries.at(2).at(0)));
}

TEST(FormulaOutputs, HoldAMissingConditionForNotTrueAndHideThePlacesOfBarsWithoutIt)
{
    const auto records = recordsOf("DRAWICON(REF(C,1)>1,H,1);");
    EXPECT_EQ(records.result.numberSeries.at(0), (std::vector<double> { 0, 0, 1 }));
    EXPECT_TRUE(std::isnan(records.result.numberSeries.at(1).at(1)));
    EXPECT_EQ(records.result.numberSeries.at(1).at(2), 3.0);
    EXPECT_EQ(records.result.columnNeedsAxis, (std::vector<int> { 0, 1, 0 }));
}

TEST(FormulaOutputs, PlaceTextsByTheFirstOutputsEntry)
{
    const auto meta = recordsOf("A:C; DRAWTEXT(C>1,H,'x'),ALIGN2; DRAWICON(C>1,L,0),ALIGN1;").meta;
    EXPECT_EQ(meta.position, (std::vector<int> { 2, 2, 1 }));
}

TEST(FormulaOutputs, OfStackedColumnsCarryOneColourEachBehindOneAnother)
{
    const auto meta = recordsOf("A:C; STACKVOL(V,C),COLORBLUE,COLORBROWN;").meta;
    EXPECT_EQ(meta.outputNames.at(1), "V,C");
    EXPECT_EQ(meta.color, (std::vector<int> { 0, 0xFF0000, 0x004080 }));
}

TEST(FormulaOutputs, OfTurnoverAndOpenInterestAreAbsentWhereTheBarsHaveNone)
{
    auto bars = test::barsOf({ 1, 2 });
    EXPECT_EQ(recordsOf("A:AMOUNT; B:OPENINT; D:C;", bars).meta.outputNames,
              (std::vector<std::string> { "D" }));
    bars.amount = { 5, 6 };
    EXPECT_EQ(recordsOf("A:AMOUNT; B:OPENINT; D:C;", bars).meta.outputNames,
              (std::vector<std::string> { "A", "D" }));
}

TEST(FormulaOutputs, ShareTheColumnOfEqualExpressions)
{
    EXPECT_EQ(recordsOf("A:MA(C,2); B:MA(CLOSE,1+1);").result.numberSeries.size(), 1U);
}

} // namespace
