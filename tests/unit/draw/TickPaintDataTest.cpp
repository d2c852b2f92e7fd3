// SPDX-License-Identifier: MIT
#include "draw/tickPaintData.h"

#include <gtest/gtest.h>

TEST(TickPaintData, StartsFallingAndWithoutAPrice)
{
    const TC::tickPaintData trade;

    EXPECT_FALSE(trade.rise);
    EXPECT_EQ(trade.price, DBL_MAX);
}

TEST(TickPaintData, ClearReturnsToTheStartingState)
{
    TC::tickPaintData trade { true, 12.5 };

    trade.clear();

    EXPECT_FALSE(trade.rise);
    EXPECT_EQ(trade.price, DBL_MAX);
}
