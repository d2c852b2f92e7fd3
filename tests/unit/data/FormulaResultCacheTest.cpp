// SPDX-License-Identifier: MIT
#include "tests/support/FormulaBuilder.h"

#include <gtest/gtest.h>

#include <functional>
#include <type_traits>

using TC::RPCFormulaResultCache;

namespace {

RPCFormulaResultCache filledCache()
{
    RPCFormulaResultCache cache = test::FormulaBuilder().line({ 1.0, 2.0 }).texts({ "a", "b" }).build();
    cache.extra1 = 0xFEDC'BA98'7654'3210u;
    cache.extra2 = 0x8000'0000'0000'0001u;
    return cache;
}

} // namespace

TEST(FormulaResultCache, StartsWithoutOutputsBarsAndWords)
{
    const RPCFormulaResultCache cache;
    EXPECT_EQ(cache.meta.outputCount, 0);
    EXPECT_TRUE(cache.result.barTimes.empty());
    EXPECT_EQ(cache.extra1, 0u);
    EXPECT_EQ(cache.extra2, 0u);
}

TEST(FormulaResultCache, CopiesItsRecordsDeep)
{
    const RPCFormulaResultCache original = filledCache();
    RPCFormulaResultCache copy(original);
    copy.meta.outputNames[0] = "changed";
    copy.meta.outputColumns[0][0] = 7;
    copy.result.numberSeries[0][1] = 9.0;
    copy.result.textSeries[0][0] = "changed";
    EXPECT_EQ(original.meta.outputNames[0], "line");
    EXPECT_EQ(original.meta.outputColumns[0][0], 0);
    EXPECT_EQ(original.result.numberSeries[0][1], 2.0);
    EXPECT_EQ(original.result.textSeries[0][0], "a");
}

TEST(FormulaResultCache, AssignsItsRecordsDeep)
{
    RPCFormulaResultCache copy = test::FormulaBuilder().line({ 5.0 }).build();
    {
        const RPCFormulaResultCache original = filledCache();
        copy = original;
    }
    EXPECT_EQ(copy.result.numberSeries[0], (std::vector<double> { 1.0, 2.0 }));
    EXPECT_EQ(copy.result.textSeries[0], (std::vector<std::string> { "a", "b" }));
}

TEST(FormulaResultCache, CarriesTheHostsWordsBitForBit)
{
    const RPCFormulaResultCache original = filledCache();
    const RPCFormulaResultCache copy(original);
    RPCFormulaResultCache assigned;
    assigned = original;
    for (const RPCFormulaResultCache* cache :
         { &copy, static_cast<const RPCFormulaResultCache*>(&assigned) }) {
        EXPECT_EQ(cache->extra1, 0xFEDC'BA98'7654'3210u);
        EXPECT_EQ(cache->extra2, 0x8000'0000'0000'0001u);
    }
    EXPECT_EQ(sizeof original.extra1, 8u);
    EXPECT_EQ(sizeof original.extra2, 8u);
}

// Members are destroyed against their order: the result goes before the description.
TEST(FormulaResultCache, HoldsDescriptionResultAndWordsInThisOrder)
{
    const RPCFormulaResultCache cache;
    const std::less<const void*> before;
    EXPECT_TRUE(before(&cache.meta, &cache.result));
    EXPECT_TRUE(before(&cache.result, &cache.extra1));
    EXPECT_TRUE(before(&cache.extra1, &cache.extra2));
}
