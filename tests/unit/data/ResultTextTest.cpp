// SPDX-License-Identifier: MIT
#include "tests/support/FormulaBuilder.h"
#include "tests/support/Pane.h"
#include "tests/support/TimeZone.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <locale>

using test::FormulaBuilder;
using Cache = TC::RPCFormulaResultCache;

namespace {

constexpr std::int64_t kMinute = 60'000, kDay = 86'400'000;

std::string exported(Cache cache, bool withTime = false)
{
    return test::Pane().getResultTxtStr(cache.result, cache.meta, withTime);
}

std::string sideBySide(const std::vector<Cache>& caches, bool withTime = false)
{
    std::vector<se::RPCFormulaResult> results;
    std::vector<se::RPCFormulaMetaResult> metas;
    for (const Cache& cache : caches) {
        results.push_back(cache.result);
        metas.push_back(cache.meta);
    }
    return test::Pane().getResultTxtStr(results, metas, withTime);
}

std::string cell(Cache cache, int output = 0, int bar = 0)
{
    return test::Pane().getDataSlide(output, bar, cache.result, cache.meta);
}

std::string numberCell(double value, int columnType)
{
    return cell(FormulaBuilder().line({ value }).columnType(columnType).build());
}

std::string padded(int value, int width)
{
    return test::Pane().getLengthStr(value, width);
}

/// Decimal comma, grouped thousands: what a user's locale may do to numbers.
struct CommaPunctuation : std::numpunct<char>
{
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

} // namespace

TEST(LengthStr, PutsZerosInFrontUpToTheWidth)
{
    EXPECT_EQ(padded(7, 2), "07");
    EXPECT_EQ(padded(0, 4), "0000");
    EXPECT_EQ(padded(34, 4), "0034");
}

TEST(LengthStr, LeavesLongTextsUnchanged)
{
    EXPECT_EQ(padded(2024, 2), "2024");
    EXPECT_EQ(padded(2024, 4), "2024");
    EXPECT_EQ(padded(12345, 4), "12345");
}

TEST(LengthStr, PutsZerosBeforeTheSignWhichCounts)
{
    EXPECT_EQ(padded(-5, 3), "0-5");
    EXPECT_EQ(padded(-5, 2), "-5");
    EXPECT_EQ(padded(-5, 1), "-5");
}

TEST(LengthStr, HoldsForEveryIntAndForWidthsBelowOne)
{
    EXPECT_EQ(padded(INT_MIN, 12), "0-2147483648");
    EXPECT_EQ(padded(INT_MAX, 0), "2147483647");
    EXPECT_EQ(padded(5, -1), "5");
    EXPECT_EQ(padded(5, INT_MIN), "5");
}

TEST(DataSlide, WritesType0WithFourFixedDecimals)
{
    EXPECT_EQ(numberCell(1.5, 0), ",1.5000");
    EXPECT_EQ(numberCell(-3.0, 0), ",-3.0000");
    EXPECT_EQ(numberCell(1234567.891, 0), ",1234567.8910");
}

TEST(DataSlide, WritesTypes1And2WithSixSignificantDigits)
{
    for (const int type : { 1, 2 }) {
        EXPECT_EQ(numberCell(1.5, type), ",1.5");
        EXPECT_EQ(numberCell(0.0, type), ",0");
        EXPECT_EQ(numberCell(3.14159265, type), ",3.14159");
        EXPECT_EQ(numberCell(1e6, type), ",1e+06");
        EXPECT_EQ(numberCell(123456.0, type), ",123456");
        EXPECT_EQ(numberCell(0.00001, type), ",1e-05");
    }
}

TEST(DataSlide, DoesNotBlankMissingNumbers)
{
    EXPECT_EQ(numberCell(DBL_MAX, 1), ",1.79769e+308");
    EXPECT_EQ(numberCell(2147483647.0, 1), ",2.14748e+09");
    EXPECT_EQ(numberCell(INFINITY, 1), ",inf");
    EXPECT_EQ(numberCell(-INFINITY, 0), ",-inf");
    EXPECT_EQ(numberCell(std::abs(NAN), 0), ",nan");
    // 309 digits, a point and four decimals behind the comma.
    EXPECT_EQ(numberCell(DBL_MAX, 0).size(), 1u + 309 + 1 + 4);
}

TEST(DataSlide, KeepsTheSignOfZero)
{
    EXPECT_EQ(numberCell(-0.0, 0), ",-0.0000");
    EXPECT_EQ(numberCell(-0.0, 1), ",-0");
    EXPECT_EQ(numberCell(-0.00001, 0), ",-0.0000");
}

TEST(DataSlide, WritesTextsAsTheyStand)
{
    const Cache cache = FormulaBuilder().output("out", 0, {}).texts({ "买,\"入\"", "", "a\nb" }).build();
    EXPECT_EQ(cell(cache, 0, 0), ",买,\"入\"");
    EXPECT_EQ(cell(cache, 0, 1), ",");
    EXPECT_EQ(cell(cache, 0, 2), ",a\nb");
}

TEST(DataSlide, ReadsTextsFromTheTextTable)
{
    Cache cache = FormulaBuilder().series({ 5.0 }).output("out", 0, {}).texts({ "text" }).build();
    EXPECT_EQ(cell(cache), ",text");
    cache.result.textSeries.clear();
    EXPECT_EQ(cell(cache), "");
}

TEST(DataSlide, WritesNothingForOtherColumnTypes)
{
    for (const int type : { INT_MIN, -1, 4, 199, 200, 201, INT_MAX })
        EXPECT_EQ(numberCell(1.5, type), "") << type;
}

TEST(DataSlide, TakesTheFirstColumnOfSeveral)
{
    EXPECT_EQ(cell(FormulaBuilder().output("out", 12, { { 1.0 }, { 2.0 } }).build()), ",1.0000");
}

TEST(DataSlide, FollowsTheColumnToItsSeriesAndType)
{
    const Cache cache =
        FormulaBuilder().series({ 9.0 }).line({ 1.0, 2.5 }).columnType(1).line({ 3.0 }).build();
    EXPECT_EQ(cell(cache, 0, 1), ",2.5");
    EXPECT_EQ(cell(cache, 1, 0), ",3.0000");
}

TEST(DataSlide, LooksAtNoValidityFlag)
{
    EXPECT_EQ(cell(FormulaBuilder().line({ 1.5 }).valid({ 0 }).build()), ",1.5000");
}

TEST(DataSlide, WritesNothingForAnIndexThatLeadsNowhere)
{
    const Cache sound = FormulaBuilder().line({ 1.5 }).build();
    for (const int wild : { INT_MIN, -1, 1, INT_MAX }) {
        EXPECT_EQ(cell(sound, wild, 0), "");
        EXPECT_EQ(cell(sound, 0, wild), "");
        Cache damaged = sound;
        damaged.meta.outputColumns[0][0] = wild;
        EXPECT_EQ(cell(damaged), "");
        damaged = sound;
        damaged.result.columnSeries[0] = wild;
        EXPECT_EQ(cell(damaged), "");
    }
}

TEST(DataSlide, WritesNothingWhereAVectorIsEmpty)
{
    const Cache sound = FormulaBuilder().line({ 1.5 }).build();
    Cache damaged = sound;
    damaged.meta.outputColumns[0].clear();
    EXPECT_EQ(cell(damaged), "");
    damaged = sound;
    damaged.result.columnType.clear();
    EXPECT_EQ(cell(damaged), "");
    damaged = sound;
    damaged.result.columnSeries.clear();
    EXPECT_EQ(cell(damaged), "");
    damaged = sound;
    damaged.result.numberSeries[0].clear();
    EXPECT_EQ(cell(damaged), "");
}

TEST(DataSlide, OneCellLeavesNoTraceInTheNext)
{
    const Cache cache = FormulaBuilder()
                            .line({ 1.5 })
                            .line({ 1234.5678 })
                            .columnType(1)
                            .line({ 2.25 })
                            .line({ 0.1234567 })
                            .columnType(2)
                            .build();
    EXPECT_EQ(exported(cache), "时间,line,line,line,line\n1970/01/01,1.5000,1234.57,2.2500,0.123457\n");
}

TEST(DataSlide, IgnoresTheGlobalLocale)
{
    const std::locale former = std::locale::global(std::locale(std::locale(), new CommaPunctuation));
    const Cache cache =
        FormulaBuilder().line({ 1234567.5 }).line({ 12345.5 }).columnType(1).times({ 0 }).build();
    const std::string text = exported(cache);
    std::locale::global(former);
    EXPECT_EQ(text, "时间,line,line\n1970/01/01,1234567.5000,12345.5\n");
}

TEST(ResultText, WritesAHeaderAndALineABar)
{
    const Cache cache = FormulaBuilder()
                            .output("MA5", 0, { { 10.0, 10.5 } })
                            .output("DIF", 0, { { 0.25, -0.5 } })
                            .columnType(1)
                            .output("信号", 0, {})
                            .texts({ "买", "卖" })
                            .times({ 1'709'602'200'000, 1'709'602'200'000 + kMinute })
                            .build();
    // 1709602200 = 2024-03-05 01:30 UTC, 09:30 in Shanghai
    EXPECT_EQ(exported(cache, true),
              "时间,MA5,DIF,信号\n"
              "2024/03/05 09:30,10.0000,0.25,买\n"
              "2024/03/05 09:31,10.5000,-0.5,卖\n");
    EXPECT_EQ(exported(cache, false),
              "时间,MA5,DIF,信号\n"
              "2024/03/05,10.0000,0.25,买\n"
              "2024/03/05,10.5000,-0.5,卖\n");
}

TEST(ResultText, HoldsOnlyTheHeaderWithoutBars)
{
    Cache cache = FormulaBuilder().line({ 1.0 }).build();
    cache.result.barTimes.clear();
    EXPECT_EQ(exported(cache), "时间,line\n");
    EXPECT_EQ(exported(Cache()), "时间\n");
}

TEST(ResultText, LeavesOutputsOfNoOrSeveralColumnsOut)
{
    const Cache cache = FormulaBuilder()
                            .output("NONE", 0, {})
                            .output("ONE", 0, { { 1.0 } })
                            .output("KLINE", 12, { { 1.0 }, { 2.0 }, { 3.0 }, { 4.0 } })
                            .output("LAST", 0, { { 2.0 } })
                            .build();
    EXPECT_EQ(exported(cache), "时间,ONE,LAST\n1970/01/01,1.0000,2.0000\n");
}

TEST(ResultText, HoldsOnlyTimesWhenEveryOutputHasTwoColumns)
{
    const Cache cache = FormulaBuilder().output("A", 0, { { 1.0, 1.0 }, { 2.0, 2.0 } }).build();
    EXPECT_EQ(exported(cache), "时间\n1970/01/01\n1970/01/02\n");
}

TEST(ResultText, ExportsWhateverTheStyleOfAnOutput)
{
    const Cache cache = FormulaBuilder().output("", 36, { { 1.0 } }).width(0).offAxis().build();
    EXPECT_EQ(exported(cache), "时间,\n1970/01/01,1.0000\n");
}

TEST(ResultText, DoesNotQuoteNames)
{
    EXPECT_EQ(exported(FormulaBuilder().output("a,\"b\"", 0, { { 1.0 } }).build()),
              "时间,a,\"b\"\n1970/01/01,1.0000\n");
}

TEST(ResultText, SkipsInvalidBars)
{
    EXPECT_EQ(exported(FormulaBuilder().line({ 1.0, 2.0, 3.0 }).valid({ 0, 1, -1 }).build()),
              "时间,line\n1970/01/02,2.0000\n1970/01/03,3.0000\n");
}

TEST(ResultText, TakesBarsWithoutAFlagForInvalid)
{
    EXPECT_EQ(exported(FormulaBuilder().line({ 1.0, 2.0 }).valid({ 1 }).build()),
              "时间,line\n1970/01/01,1.0000\n");
}

TEST(ResultText, TakesNoRoomForMoreCellsThanMemoryHolds)
{
    // 100,000 outputs by a million bars, none of them valid: the header alone
    constexpr std::size_t outputs = 100'000, bars = 1'000'000;
    Cache cache;
    cache.meta.outputCount = static_cast<int>(outputs);
    cache.meta.outputColumns.assign(outputs, { 0 });
    cache.result.barTimes.resize(bars);
    EXPECT_EQ(exported(cache), "时间" + std::string(outputs, ',') + "\n");
}

TEST(ResultText, RowsOfAnUnexportedTypeHaveFewerCellsThanTheHeader)
{
    const Cache cache = FormulaBuilder().line({ 1.0 }).line({ 2.0 }).columnType(200).line({ 3.0 }).build();
    EXPECT_EQ(exported(cache), "时间,line,line,line\n1970/01/01,1.0000,3.0000\n");
}

TEST(ResultText, StopsAtTheOutputCountAndAtTheRecords)
{
    Cache cache = FormulaBuilder().line({ 1.0 }).line({ 2.0 }).build();
    cache.meta.outputCount = 1;
    EXPECT_EQ(exported(cache), "时间,line\n1970/01/01,1.0000\n");
    cache.meta.outputCount = -1;
    EXPECT_EQ(exported(cache), "时间\n1970/01/01\n");
    cache.meta.outputCount = INT_MAX;
    EXPECT_EQ(exported(cache), "时间,line,line\n1970/01/01,1.0000,2.0000\n");
}

TEST(ResultText, WritesAnEmptyNameWhereNamesAreShort)
{
    Cache cache = FormulaBuilder().line({ 1.0 }).line({ 2.0 }).build();
    cache.meta.outputNames.resize(1);
    EXPECT_EQ(exported(cache), "时间,line,\n1970/01/01,1.0000,2.0000\n");
}

TEST(ResultText, LeavesTheCellOutWhereASeriesEnds)
{
    EXPECT_EQ(exported(FormulaBuilder().line({ 1.0 }).line({ 5.0, 6.0 }).build()),
              "时间,line,line\n1970/01/01,1.0000,5.0000\n1970/01/02,6.0000\n");
}

TEST(ResultText, NeverChangesTheRecords)
{
    Cache cache = FormulaBuilder().line({ 1.0, 2.0 }).build();
    const Cache before = cache;
    test::Pane().getResultTxtStr(cache.result, cache.meta, true);
    EXPECT_EQ(cache.meta.outputColumns, before.meta.outputColumns);
    EXPECT_EQ(cache.result.numberSeries, before.result.numberSeries);
}

TEST(SideBySideText, AlignsFormulasOnTheFirstOnesBars)
{
    const std::string text = sideBySide(
        { FormulaBuilder().output("A", 0, { { 1.0, 2.0, 3.0 } }).times({ 0, kDay, 2 * kDay }).build(),
          FormulaBuilder().output("B", 0, { { 5.0, 6.0 } }).times({ kDay, 2 * kDay }).build(),
          FormulaBuilder().output("C", 0, { { 7.0, 8.0 } }).times({ 0, 2 * kDay }).build() });
    EXPECT_EQ(text,
              "时间,A,B,C\n"
              "1970/01/01,1.0000,7.0000\n" // B has no such bar, and no placeholder stands for it
              "1970/01/02,2.0000,5.0000\n"
              "1970/01/03,3.0000,6.0000,8.0000\n");
}

TEST(SideBySideText, WritesTheTimeOfDayWhenAsked)
{
    const Cache cache = FormulaBuilder().line({ 1.0 }).times({ 90 * kMinute }).build();
    EXPECT_EQ(sideBySide({ cache, cache }, true), "时间,line,line\n1970/01/01 09:30,1.0000,1.0000\n");
}

TEST(SideBySideText, EqualsTheTextOfOneFormulaWhenAllBarsAreValid)
{
    const Cache cache = FormulaBuilder().line({ 1.0, 2.0 }).line({ 3.0, 4.0 }).columnType(2).build();
    EXPECT_EQ(sideBySide({ cache }, true), exported(cache, true));
}

TEST(SideBySideText, FirstBarsValidityDecidesForAllRows)
{
    const Cache cache = FormulaBuilder().line({ 1.0, 2.0 }).valid({ 0, 1 }).build();
    EXPECT_EQ(sideBySide({ cache, cache }), "时间,line,line\n");
}

TEST(SideBySideText, WritesLaterInvalidBarsOfTheFirst)
{
    EXPECT_EQ(sideBySide({ FormulaBuilder().line({ 1.0, 2.0 }).valid({ 1, 0 }).build() }),
              "时间,line\n1970/01/01,1.0000\n1970/01/02,2.0000\n");
    EXPECT_EQ(sideBySide({ FormulaBuilder().line({ 1.0, 2.0 }).valid({ 1 }).build() }),
              "时间,line\n1970/01/01,1.0000\n1970/01/02,2.0000\n");
}

TEST(SideBySideText, NeverTestsTheFlagsOfTheOthers)
{
    const Cache master = FormulaBuilder().output("A", 0, { { 1.0, 2.0 } }).build();
    const Cache other = FormulaBuilder().output("B", 0, { { 5.0, 6.0 } }).valid({ 0, 0 }).build();
    EXPECT_EQ(sideBySide({ master, other }),
              "时间,A,B\n1970/01/01,1.0000,5.0000\n1970/01/02,2.0000,6.0000\n");
}

TEST(SideBySideText, ABarThatTheFirstLacksHidesTheRestOfAFormula)
{
    const Cache master =
        FormulaBuilder().output("A", 0, { { 1.0, 2.0, 3.0 } }).times({ 0, kDay, 3 * kDay }).build();
    const Cache other =
        FormulaBuilder().output("B", 0, { { 5.0, 6.0, 7.0 } }).times({ 0, 2 * kDay, 3 * kDay }).build();
    EXPECT_EQ(sideBySide({ master, other }),
              "时间,A,B\n"
              "1970/01/01,1.0000,5.0000\n"
              "1970/01/02,2.0000\n"
              "1970/01/04,3.0000\n");
}

TEST(SideBySideText, AnEarlierFirstBarHidesAWholeFormula)
{
    const Cache master = FormulaBuilder().output("A", 0, { { 1.0 } }).times({ kDay }).build();
    const Cache other = FormulaBuilder().output("B", 0, { { 5.0, 6.0 } }).times({ 0, kDay }).build();
    EXPECT_EQ(sideBySide({ master, other }), "时间,A,B\n1970/01/02,1.0000\n");
}

TEST(SideBySideText, MatchesTimesToTheMillisecond)
{
    const Cache master = FormulaBuilder().output("A", 0, { { 1.0 } }).times({ kDay }).build();
    const Cache other = FormulaBuilder().output("B", 0, { { 5.0 } }).times({ kDay + 1 }).build();
    EXPECT_EQ(sideBySide({ master, other }), "时间,A,B\n1970/01/02,1.0000\n");
}

TEST(SideBySideText, EqualTimesOfTheFirstTakeBarAfterBarOfTheOther)
{
    const Cache master = FormulaBuilder().output("A", 0, { { 1.0, 2.0 } }).times({ 0, 0 }).build();
    const Cache other = FormulaBuilder().output("B", 0, { { 5.0, 6.0, 7.0 } }).times({ 0, 0, 0 }).build();
    EXPECT_EQ(sideBySide({ master, other }),
              "时间,A,B\n1970/01/01,1.0000,5.0000\n1970/01/01,2.0000,6.0000\n");
}

TEST(SideBySideText, GoesOnWhenAFormulaEndsEarly)
{
    const Cache master = FormulaBuilder().output("A", 0, { { 1.0, 2.0 } }).build();
    const Cache other = FormulaBuilder().output("B", 0, { { 5.0 } }).build();
    EXPECT_EQ(sideBySide({ master, other }), "时间,A,B\n1970/01/01,1.0000,5.0000\n1970/01/02,2.0000\n");
    EXPECT_EQ(sideBySide({ master, Cache() }), "时间,A\n1970/01/01,1.0000\n1970/01/02,2.0000\n");
}

TEST(SideBySideText, HoldsOnlyTheHeaderWhenTheFirstHasNoBars)
{
    Cache master = FormulaBuilder().output("A", 0, { { 1.0 } }).build();
    master.result.barTimes.clear();
    const Cache other = FormulaBuilder().output("B", 0, { { 5.0 } }).build();
    EXPECT_EQ(sideBySide({ master, other }), "时间,A,B\n");
    master.result.barValid.clear();
    EXPECT_EQ(sideBySide({ master, other }), "时间,A,B\n");
}

TEST(SideBySideText, HoldsOnlyTheHeaderWithoutFormulas)
{
    EXPECT_EQ(sideBySide({}), "时间\n");
}

TEST(SideBySideText, TakesTheShorterOfUnequalVectors)
{
    Cache cache = FormulaBuilder().line({ 1.0 }).build();
    std::vector<se::RPCFormulaResult> one { cache.result }, none;
    std::vector<se::RPCFormulaMetaResult> two { cache.meta, cache.meta };
    EXPECT_EQ(test::Pane().getResultTxtStr(one, two, false), "时间,line\n1970/01/01,1.0000\n");
    EXPECT_EQ(test::Pane().getResultTxtStr(none, two, false), "时间\n");
    std::vector<se::RPCFormulaResult> three(3, cache.result);
    EXPECT_EQ(test::Pane().getResultTxtStr(three, two, false), "时间,line,line\n1970/01/01,1.0000,1.0000\n");
}
