// SPDX-License-Identifier: MIT
#include "tests/support/FormulaBuilder.h"
#include "tests/support/Pane.h"

#include <gtest/gtest.h>

#include <climits>

using test::FormulaBuilder;

namespace {

/// An output of the draw type over two columns that need the axis or not.
TC::RPCFormulaResultCache outputOf(int drawType, bool firstOnAxis, bool secondOnAxis)
{
    TC::RPCFormulaResultCache cache = FormulaBuilder().output("out", drawType, { { 1.0 }, { 2.0 } }).build();
    cache.result.columnNeedsAxis = { firstOnAxis ? 1 : 0, secondOnAxis ? 1 : 0 };
    return cache;
}

bool needsAxis(const TC::RPCFormulaResultCache& cache, int output = 0)
{
    return test::Pane().isNeedYAxis(cache, output);
}

} // namespace

TEST(NeedYAxis, FollowsTheFirstColumn)
{
    for (const int drawType : { 0, 2, 10, 11, 27, 37 }) {
        EXPECT_TRUE(needsAxis(outputOf(drawType, true, false))) << drawType;
        EXPECT_FALSE(needsAxis(outputOf(drawType, false, true))) << drawType;
    }
}

TEST(NeedYAxis, FollowsTheSecondColumnOfTextsIconsNumbersAndStickLines)
{
    for (const int drawType : { 13, 19, 26, 28 }) {
        EXPECT_TRUE(needsAxis(outputOf(drawType, false, true))) << drawType;
        EXPECT_FALSE(needsAxis(outputOf(drawType, true, false))) << drawType;
    }
}

TEST(NeedYAxis, IsTrueForEveryOtherDrawType)
{
    for (const int drawType : { INT_MIN, -1, 1,  3,  4,  5,  6,  7,  8,  9,  12, 14, 18,
                                20,      25, 29, 31, 33, 34, 35, 36, 38, 39, 42, 99, INT_MAX })
        EXPECT_TRUE(needsAxis(outputOf(drawType, false, false))) << drawType;
}

TEST(NeedYAxis, CountsAnyValueButZeroAsNeeded)
{
    TC::RPCFormulaResultCache cache = outputOf(0, false, false);
    for (const int value : { INT_MIN, -1, 1, 2 }) {
        cache.result.columnNeedsAxis[0] = value;
        EXPECT_TRUE(needsAxis(cache)) << value;
    }
}

TEST(NeedYAxis, IsTrueForAnOutputBeyondItsVectors)
{
    const TC::RPCFormulaResultCache cache = outputOf(0, false, false);
    for (const int output : { INT_MIN, -1, 1, 2, INT_MAX })
        EXPECT_TRUE(needsAxis(cache, output)) << output;
}

TEST(NeedYAxis, IsTrueWhereTheColumnsOrTheDrawTypesAreShort)
{
    TC::RPCFormulaResultCache cache = outputOf(0, false, false);
    cache.meta.outputColumns.clear();
    EXPECT_TRUE(needsAxis(cache));
    cache = outputOf(0, false, false);
    cache.meta.drawType.clear();
    EXPECT_TRUE(needsAxis(cache));
}

TEST(NeedYAxis, AsksTheVectorsAndNotTheOutputCount)
{
    TC::RPCFormulaResultCache cache = outputOf(0, false, false);
    cache.meta.outputCount = 0;
    EXPECT_FALSE(needsAxis(cache));
}

TEST(NeedYAxis, IsTrueForAnOutputWithoutColumns)
{
    TC::RPCFormulaResultCache cache = outputOf(0, false, false);
    cache.meta.outputColumns[0].clear();
    EXPECT_TRUE(needsAxis(cache));
}

TEST(NeedYAxis, IsTrueWhereTheSecondColumnIsMissing)
{
    TC::RPCFormulaResultCache cache = outputOf(13, false, false);
    cache.meta.outputColumns[0] = { 0 };
    EXPECT_TRUE(needsAxis(cache));
}

TEST(NeedYAxis, IsTrueForAColumnBeyondTheAxisList)
{
    TC::RPCFormulaResultCache cache = outputOf(0, false, false);
    for (const int column : { INT_MIN, -1, 2, INT_MAX }) {
        cache.meta.outputColumns[0][0] = column;
        EXPECT_TRUE(needsAxis(cache)) << column;
    }
    cache = outputOf(28, false, false);
    cache.result.columnNeedsAxis.resize(1);
    EXPECT_TRUE(needsAxis(cache));
}
