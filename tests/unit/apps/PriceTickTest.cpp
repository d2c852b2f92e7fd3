// SPDX-License-Identifier: MIT
#include "apps/chart/PriceTick.h"

#include <gtest/gtest.h>

#include <limits>

using chart::inferredPriceTick;

TEST(PriceTick, IsTheLargestPowerOfTenThatThePricesAreMultiplesOf)
{
    EXPECT_DOUBLE_EQ(inferredPriceTick({ 3228, 3190, 12 }), 1.0);
    EXPECT_DOUBLE_EQ(inferredPriceTick({ 27.12, 3000.5 }), 0.01);
    EXPECT_DOUBLE_EQ(inferredPriceTick({ 0.605, std::numeric_limits<double>::infinity() }), 0.001);
    EXPECT_DOUBLE_EQ(inferredPriceTick({ 0.8198, 27.1 }), 0.0001);
}

TEST(PriceTick, TellsSmallPricesApart)
{
    EXPECT_DOUBLE_EQ(inferredPriceTick({ 0.00002341, 0.00002 }), 1e-8);
    EXPECT_DOUBLE_EQ(inferredPriceTick({ 0.000035, 0.00002 }), 1e-6);
}

TEST(PriceTick, TakesNoMoreDigitsThanAPriceHas)
{
    EXPECT_DOUBLE_EQ(inferredPriceTick({ 12.345678912, 3000.1 / 7 }), 0.0001);
}
