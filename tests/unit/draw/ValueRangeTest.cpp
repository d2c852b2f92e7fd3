// SPDX-License-Identifier: MIT
#include "draw/CDrawStyle.h"
#include "tests/support/FormulaBuilder.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <optional>
#include <utility>

namespace {

using test::FormulaBuilder;
using Range = std::pair<double, double>; // maximum, minimum

/// What both overloads answer over all bars; the caller's values are 77 and -77 before.
struct Found
{
    bool counted;
    Range range;
};

struct Scan
{
    int start = 0, end = INT_MAX;
    bool countZero = true, useScale = false;
    float scale = 1.0f;
    Range before { 77.0, -77.0 };

    Found all(TC::RPCFormulaResultCache cache) const
    {
        Range range = before;
        const bool counted = TC::CDrawStyle::calcMaxMin(range.first, range.second, start, end, cache, QRect(),
                                                        countZero, useScale, scale);
        return { counted, range };
    }
    Found one(const TC::RPCFormulaResultCache& cache, int output) const
    {
        Range range = before;
        const bool counted =
            TC::CDrawStyle::calcMaxMin(range.first, range.second, start, end, cache, output, QRect());
        return { counted, range };
    }
};

void expectFound(const Found& found, double max, double min)
{
    EXPECT_TRUE(found.counted);
    EXPECT_EQ(found.range, Range(max, min));
}

void expectUntouched(const Found& found)
{
    EXPECT_FALSE(found.counted);
    EXPECT_EQ(found.range, Range(77.0, -77.0));
}

} // namespace

TEST(CalcMaxMinOfAll, FindsTheExtremesOfAllOutputsBetweenTheBars)
{
    Scan scan;
    scan.start = 1;
    scan.end = 2;
    expectFound(scan.all(FormulaBuilder().line({ 99, 3, 5, 99 }).line({ 0, -2, 4, 0 }).build()), 5, -2);
}

TEST(CalcMaxMinOfAll, SetsBothToZeroWithoutBarsColumnsOrFlags)
{
    for (int missing = 0; missing < 3; ++missing) {
        auto cache = FormulaBuilder().line({ 1 }).build();
        if (missing == 0)
            cache.result.barTimes.clear();
        else if (missing == 1)
            cache.result.columnType.clear();
        else
            cache.result.barValid.clear();
        const Found found = Scan().all(cache);
        EXPECT_FALSE(found.counted);
        EXPECT_EQ(found.range, Range(0.0, 0.0));
    }
}

TEST(CalcMaxMinOfAll, LeavesBothAloneWithoutOutputs)
{
    auto cache = FormulaBuilder().line({ 1 }).build();
    cache.meta.outputCount = 0;
    expectUntouched(Scan().all(cache));
    cache.meta.outputCount = -1;
    expectUntouched(Scan().all(cache));
}

TEST(CalcMaxMinOfAll, LeavesOutWidthZeroAndFixedTexts)
{
    expectUntouched(Scan().all(FormulaBuilder().line({ 5 }).width(0).build()));
    expectUntouched(Scan().all(FormulaBuilder().output("t", 31, { { 5 } }).build()));
}

TEST(CalcMaxMinOfAll, LeavesOutTextColumnsAndColumnsOffTheAxis)
{
    expectUntouched(Scan().all(FormulaBuilder().line({ 5 }).columnType(3).build()));
    expectUntouched(Scan().all(FormulaBuilder().line({ 5 }).offAxis().build()));
}

TEST(CalcMaxMinOfAll, CountsColumnsOfTypes0And1And200AndBelowAlone)
{
    for (int type : { 0, 1, 200, -1 })
        expectFound(Scan().all(FormulaBuilder().line({ 5 }).columnType(type).build()), 5, 5);
    for (int type : { 2, 4, 199 })
        expectUntouched(Scan().all(FormulaBuilder().line({ 5 }).columnType(type).build()));
}

TEST(CalcMaxMinOfAll, SkipsInvalidBarsAndMissingNumbers)
{
    expectFound(Scan().all(FormulaBuilder()
                               .line({ 1, 900, 2, NAN, INFINITY, -INFINITY, DBL_MAX })
                               .valid({ 1, 0, 1, 1, 1, 1, 1 })
                               .build()),
                2, 1);
}

TEST(CalcMaxMinOfAll, DoesNotTakeTheLargestIntAsAMarker)
{
    expectFound(Scan().all(FormulaBuilder().line({ 1, 2147483647.0 }).columnType(1).build()), 2147483647.0,
                1);
}

TEST(CalcMaxMinOfAll, LeavesOutZerosUnlessToldToCountThem)
{
    Scan scan;
    scan.countZero = false;
    expectUntouched(scan.all(FormulaBuilder().line({ 0.0, 1e-5 }).build()));
    expectFound(scan.all(FormulaBuilder().line({ 0.0, 3.0 }).build()), 3, 3);
    scan.countZero = true;
    expectFound(scan.all(FormulaBuilder().line({ 0.0, 3.0 }).build()), 3, 0);
}

TEST(CalcMaxMinOfAll, TestsValuesBehindTheScale)
{
    Scan scan;
    scan.useScale = true;
    scan.scale = 0.5f;
    expectFound(scan.all(FormulaBuilder().line({ 4, DBL_MAX }).build()), DBL_MAX / 2, 2);
    scan.countZero = false;
    scan.scale = 0.0f;
    expectUntouched(scan.all(FormulaBuilder().line({ 4 }).build()));
    scan.useScale = false; // the scale is not read
    expectFound(scan.all(FormulaBuilder().line({ 4 }).build()), 4, 4);
}

TEST(CalcMaxMinOfAll, StopsAtTheEndOfTheSeriesAndOfTheBars)
{
    auto cache = FormulaBuilder().line({ 1, 2, 3 }).line({ 10 }).build();
    expectFound(Scan().all(cache), 10, 1);
    cache.result.barTimes.resize(2);
    expectFound(Scan().all(cache), 10, 1);
    Scan scan;
    scan.start = 2;
    expectUntouched(scan.all(cache));
    scan.start = -5;
    expectFound(scan.all(cache), 10, 1);
}

TEST(CalcMaxMinOfAll, WidensTheCallersRangeByAFlagColumnOfAStepLine)
{
    const auto step = FormulaBuilder().output("b", 37, { { NAN, NAN } }).columnType(2).build();
    Scan scan;
    scan.before = { 0.5, 0.25 };
    expectFound(scan.all(step), 1.0, 0.0); // the values do not matter
    scan.before = { 7.0, -7.0 };
    expectFound(scan.all(step), 7.0, -7.0); // widened, not replaced
}

TEST(CalcMaxMinOfAll, OnlyWidensByNumbersBehindAFlagColumn)
{
    Scan scan;
    scan.before = { 7.0, -7.0 };
    expectFound(scan.all(FormulaBuilder().output("b", 37, { { 1 } }).columnType(2).line({ 3 }).build()), 7,
                -7);
    expectFound(scan.all(FormulaBuilder().line({ 3 }).output("b", 37, { { 1 } }).columnType(2).build()), 3,
                0);
}

TEST(CalcMaxMinOfAll, NeedsAValidBarForAFlagColumn)
{
    expectUntouched(
        Scan().all(FormulaBuilder().output("b", 37, { { 1 } }).columnType(2).valid({ 0 }).build()));
    expectUntouched(Scan().all(FormulaBuilder().output("n", 0, { { 1 } }).columnType(2).build()));
}

TEST(CalcMaxMinOfAll, GatesTwoColumnOutputsByExactZeroAndVisitsTwoColumns)
{
    expectFound(Scan().all(FormulaBuilder()
                               .output("t", 13, { { 0.0, 1e-9, 0.0 }, { 50, 60, 70 }, { 900, 900, 900 } })
                               .build()),
                60, 1e-9);
}

TEST(CalcMaxMinOfAll, CountsTheSumOfAStackOffTheAxisIncluded)
{
    auto cache = FormulaBuilder().output("s", 42, { { 1, 2 }, { 10 }, { 100, 200 } }).build();
    cache.result.columnNeedsAxis = { 1, 0, 0 };
    expectFound(Scan().all(cache), 202, 111); // the second series ends early: a missing term adds nothing
    cache.result.columnNeedsAxis = { 0, 1, 1 };
    expectUntouched(Scan().all(cache)); // the first column decides
}

TEST(CalcMaxMinOfAll, SkipsColumnsThatDoNotExist)
{
    auto cache = FormulaBuilder().line({ 1 }).line({ 2 }).build();
    cache.meta.outputColumns = { { 99, -1, 0 }, { 1 } };
    expectFound(Scan().all(cache), 2, 1);
}

TEST(CalcMaxMinOfOne, CountsZerosAndTheMissingMarkerAndColumnsOffTheAxis)
{
    expectFound(Scan().one(FormulaBuilder().line({ 0.0, DBL_MAX, NAN, INFINITY }).offAxis().build(), 0),
                DBL_MAX, 0);
}

TEST(CalcMaxMinOfOne, LooksAtItsOutputAlone)
{
    const auto cache = FormulaBuilder().line({ 1 }).line({ 2, 3 }).line({ 9 }).build();
    expectFound(Scan().one(cache, 1), 3, 2);
}

TEST(CalcMaxMinOfOne, NeverResetsToZero)
{
    auto cache = FormulaBuilder().line({ 1 }).build();
    expectUntouched(Scan().one(cache, -1));
    expectUntouched(Scan().one(cache, 1));
    cache.result.barTimes.clear();
    expectUntouched(Scan().one(cache, 0));
    expectUntouched(Scan().one(FormulaBuilder().line({ 1 }).width(0).build(), 0));
    expectUntouched(Scan().one(FormulaBuilder().line({ 1 }).columnType(3).build(), 0));
}

TEST(CalcMaxMinOfOne, FormsNoSumAndNoGateAndCountsFixedTexts)
{
    expectFound(Scan().one(FormulaBuilder().output("s", 42, { { 1 }, { 10 } }).build(), 0), 10, 1);
    expectFound(Scan().one(FormulaBuilder().output("t", 13, { { 0 }, { 5 } }).build(), 0), 5, 0);
    expectFound(Scan().one(FormulaBuilder().output("x", 31, { { 4 } }).build(), 0), 4, 4);
}

TEST(CalcMaxMinOfOne, WidensByAFlagColumnOfAStepLine)
{
    Scan scan;
    scan.before = { 0.5, 0.25 };
    expectFound(scan.one(FormulaBuilder().output("b", 37, { { NAN } }).columnType(2).build(), 0), 1, 0);
}

TEST(CalcMaxMinOfOne, StopsAtTheEndOfTheSeries)
{
    auto cache = FormulaBuilder().line({ 1, 2, 3 }).build();
    cache.result.numberSeries[0].resize(2);
    expectFound(Scan().one(cache, 0), 2, 1);
}
