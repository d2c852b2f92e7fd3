// SPDX-License-Identifier: MIT
#include "draw/internal/RiseFall.h"

#include <gtest/gtest.h>

#include <cmath>

using TC::detail::candleRises;
using TC::detail::volumeRises;

TEST(VolumeRises, ACloseAboveTheOpenRisesWhateverCameBefore)
{
    EXPECT_TRUE(volumeRises(10.0, 10.1, true, 99.0));
    EXPECT_TRUE(volumeRises(10.0, 10.1, false, 99.0));
    EXPECT_TRUE(volumeRises(10.0, 10.1, false, std::nullopt));
}

TEST(VolumeRises, ACloseBelowTheOpenFallsWhateverCameBefore)
{
    EXPECT_FALSE(volumeRises(10.0, 9.9, true, 1.0));
    EXPECT_FALSE(volumeRises(10.0, 9.9, false, 1.0));
}

TEST(VolumeRises, AnUnchangedFirstBarMustCloseStrictlyAboveItsReference)
{
    EXPECT_FALSE(volumeRises(10.0, 10.0, true, 10.0));
    EXPECT_FALSE(volumeRises(10.0, 10.0, true, 10.0 - 0.9e-5));
    EXPECT_TRUE(volumeRises(10.0, 10.0, true, 10.0 - 1.1e-5));
}

TEST(VolumeRises, AnUnchangedLaterBarMustNotCloseBelowItsReference)
{
    EXPECT_TRUE(volumeRises(10.0, 10.0, false, 10.0));
    EXPECT_TRUE(volumeRises(10.0, 10.0, false, 10.0 + 0.9e-5));
    EXPECT_FALSE(volumeRises(10.0, 10.0, false, 10.0 + 1.1e-5));
    EXPECT_FALSE(volumeRises(10.0, 10.0, false, std::nullopt));
}

TEST(VolumeRises, PricesThatAreNotNumbersFall)
{
    EXPECT_FALSE(volumeRises(NAN, 10.0, false, 1.0));
    EXPECT_FALSE(volumeRises(10.0, NAN, true, 1.0));
    EXPECT_FALSE(volumeRises(10.0, 10.0, false, NAN));
}

TEST(CandleRises, FollowsOpenAndCloseBeyondTheTolerance)
{
    EXPECT_TRUE(candleRises(10.0, 10.0 + 1.1e-5, 99.0));
    EXPECT_FALSE(candleRises(10.0, 10.0 - 1.1e-5, std::nullopt));
}

TEST(CandleRises, AnUnchangedFirstCandleRises)
{
    EXPECT_TRUE(candleRises(10.0, 10.0, std::nullopt));
}

TEST(CandleRises, AnUnchangedLaterCandleMustNotCloseBelowTheOneBefore)
{
    EXPECT_TRUE(candleRises(10.0, 10.0, 10.0));
    EXPECT_TRUE(candleRises(10.0, 10.0, 10.0 + 0.9e-5));
    EXPECT_FALSE(candleRises(10.0, 10.0, 10.0 + 1.1e-5));
}
