// SPDX-License-Identifier: MIT
#include "draw/CDrawStyle.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>

using TC::dataToYAxis;

TEST(DataToYAxis, MapsTheMaximumToTheTopAndTheMinimumToTheBottom)
{
    EXPECT_EQ(dataToYAxis(10.0, 20, 119, 10.0, 0.0), 20);
    EXPECT_EQ(dataToYAxis(0.0, 20, 119, 10.0, 0.0), 119);
    EXPECT_EQ(dataToYAxis(5.0, 20, 119, 10.0, 0.0), 70); // 119 - trunc(49.5)
}

TEST(DataToYAxis, SubtractsTheTruncatedProductUnlikeTheOtherPainters)
{
    // 99 * 0.55 = 54.45: 119 - 54 = 65, where trunc(119 - 54.45) would be 64
    EXPECT_EQ(dataToYAxis(5.5, 20, 119, 10.0, 0.0), 65);
}

TEST(DataToYAxis, TakesMaximumAndMinimumInEitherOrder)
{
    for (double value : { -3.0, 0.0, 4.2, 10.0, 12.0 })
        EXPECT_EQ(dataToYAxis(value, 0, 99, 0.0, 10.0), dataToYAxis(value, 0, 99, 10.0, 0.0));
}

TEST(DataToYAxis, DoesNotClamp)
{
    EXPECT_EQ(dataToYAxis(20.0, 0, 100, 10.0, 0.0), -100);
    EXPECT_EQ(dataToYAxis(-10.0, 0, 100, 10.0, 0.0), 200);
}

TEST(DataToYAxis, AnswersTopMiddleOrBottomOnAFlatRange)
{
    EXPECT_EQ(dataToYAxis(5.1, 20, 119, 5.0, 5.0), 20);
    EXPECT_EQ(dataToYAxis(5.0, 20, 119, 5.0, 5.0), 70); // (20 + 1 + 119) / 2
    EXPECT_EQ(dataToYAxis(4.9, 20, 119, 5.0, 5.0), 119);
    EXPECT_EQ(dataToYAxis(5.0, -30, -20, 5.0, 5.0), -24); // -49 / 2, toward zero
}

TEST(DataToYAxis, MeasuresFlatValuesAboveTheMinimumAndBelowTheMaximum)
{
    // a range of 1e-5 is flat; 1.5e-5 above the minimum is above, although only 0.5e-5 above the maximum
    EXPECT_EQ(dataToYAxis(1.5e-5, 0, 100, 0.9e-5, 0.0), 0);
    EXPECT_EQ(dataToYAxis(0.5e-5, 0, 100, 0.9e-5, 0.0), 50);
    EXPECT_EQ(dataToYAxis(-0.5e-5, 0, 100, 0.9e-5, 0.0), 100); // 1.4e-5 below the maximum
}

TEST(DataToYAxis, SaturatesAndReadsNanAsTheBottom)
{
    EXPECT_EQ(dataToYAxis(1e300, 0, 100, 10.0, 0.0), INT_MIN + 101);
    EXPECT_EQ(dataToYAxis(-1e300, 0, 100, 10.0, 0.0), INT_MAX);
    EXPECT_EQ(dataToYAxis(NAN, 0, 100, 10.0, 0.0), 100);
    EXPECT_EQ(dataToYAxis(NAN, 0, 100, 5.0, 5.0), 100);
    EXPECT_EQ(dataToYAxis(1.0, INT_MIN, INT_MAX, 2.0, 0.0), 0);
}
