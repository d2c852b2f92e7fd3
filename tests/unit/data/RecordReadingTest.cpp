// SPDX-License-Identifier: MIT
#include "data/RecordReading.h"

#include "tests/support/FormulaBuilder.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>

using TC::recordedNumber;

TEST(RecordedNumber, IsTheStoredOneWhateverItIs)
{
    const auto cache = test::FormulaBuilder()
                           .output("VOL", 27, { { 1, 2 }, { 3, 4 }, { 5, DBL_MAX } })
                           .valid({ 0, 1 })
                           .build();
    EXPECT_EQ(recordedNumber(cache, 0, 2, 0), 5.0); // of an invalid bar as well
    EXPECT_EQ(recordedNumber(cache, 0, 2, 1), DBL_MAX);
}

TEST(RecordedNumber, IsEmptyWhereTheRecordsHaveNone)
{
    auto cache = test::FormulaBuilder().output("VOL", 27, { { 1, 2 }, { 3, 4 } }).build();
    for (const int wild : { INT_MIN, -1, 2, INT_MAX }) {
        EXPECT_FALSE(recordedNumber(cache, wild, 0, 0)) << wild;
        EXPECT_FALSE(recordedNumber(cache, 0, wild, 0)) << wild;
        EXPECT_FALSE(recordedNumber(cache, 0, 0, wild)) << wild;
    }
    cache.result.columnSeries[1] = 9;
    EXPECT_FALSE(recordedNumber(cache, 0, 1, 0));
    cache.meta.outputCount = 0;
    EXPECT_FALSE(recordedNumber(cache, 0, 0, 0));
}
