// SPDX-License-Identifier: MIT
#include "draw/internal/LabelPlacement.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <ostream>

QT_BEGIN_NAMESPACE
inline void PrintTo(const QPoint& point, std::ostream* out)
{
    *out << point.x() << ',' << point.y();
}
QT_END_NAMESPACE

using TC::detail::asksForLabel;
using TC::detail::iconTop;
using TC::detail::textPoint;

namespace {

const QRect kPane(7, 20, 200, 100); // rows 20 to 119
const QSize kText(31, 15);          // halves 15 and 7

} // namespace

TEST(AsksForLabel, TakesAnyNumberButExactlyZero)
{
    EXPECT_TRUE(asksForLabel(1.0));
    EXPECT_TRUE(asksForLabel(-1.0));
    EXPECT_TRUE(asksForLabel(1e-9)); // below the usual tolerance
    EXPECT_FALSE(asksForLabel(0.0));
    EXPECT_FALSE(asksForLabel(-0.0));
}

TEST(AsksForLabel, AsksForNothingWithoutANumber)
{
    EXPECT_FALSE(asksForLabel(std::nullopt));
    EXPECT_FALSE(asksForLabel(NAN));
    EXPECT_FALSE(asksForLabel(INFINITY));
    EXPECT_FALSE(asksForLabel(DBL_MAX));
}

TEST(TextPoint, FollowsThePositionCode)
{
    EXPECT_EQ(textPoint(0, kPane, kText, 50, 60), QPoint(35, 53)); // 50 - 15, 60 - 7
    EXPECT_EQ(textPoint(1, kPane, kText, 50, 60), QPoint(50, 60));
    EXPECT_EQ(textPoint(2, kPane, kText, 50, 60), QPoint(19, 60));  // 50 - 31
    EXPECT_EQ(textPoint(3, kPane, kText, 50, 60), QPoint(35, 43));  // 100 / 2 - 7
    EXPECT_EQ(textPoint(4, kPane, kText, 50, 60), QPoint(35, 38));  // 20 + 3 + 15
    EXPECT_EQ(textPoint(5, kPane, kText, 50, 60), QPoint(35, 116)); // 119 - 3
}

TEST(TextPoint, TreatsUnknownCodesAsAtThePoint)
{
    for (int code : { 6, -1, INT_MAX, INT_MIN })
        EXPECT_EQ(textPoint(code, kPane, kText, 50, 60), QPoint(50, 60)) << code;
}

TEST(TextPoint, NeedsTheRowOnlyWhereTheCodeUsesIt)
{
    for (int code : { 0, 1, 2, 6 })
        EXPECT_FALSE(textPoint(code, kPane, kText, 50, std::nullopt)) << code;
    for (int code : { 3, 4, 5 })
        EXPECT_TRUE(textPoint(code, kPane, kText, 50, std::nullopt)) << code;
}

TEST(TextPoint, SaturatesAtTheIntLimits)
{
    EXPECT_EQ(textPoint(0, kPane, kText, INT_MIN, INT_MIN), QPoint(INT_MIN, INT_MIN));
    EXPECT_EQ(textPoint(2, kPane, kText, INT_MIN, 0), QPoint(INT_MIN, 0));
    const QRect lowest(QPoint(0, INT_MIN), QPoint(9, INT_MIN + 1)),
        highest(QPoint(0, INT_MAX), QPoint(9, INT_MAX));
    EXPECT_EQ(textPoint(5, lowest, kText, 50, 0), QPoint(35, INT_MIN));
    EXPECT_EQ(textPoint(4, highest, kText, 50, 0), QPoint(35, INT_MAX));
}

TEST(IconTop, FollowsThePositionCode)
{
    EXPECT_EQ(iconTop(0, kPane, 60), 57);
    EXPECT_EQ(iconTop(1, kPane, 60), 60);
    EXPECT_EQ(iconTop(2, kPane, 60), 54);
    EXPECT_EQ(iconTop(3, kPane, 60), 47); // 100 / 2 - 3, without the top
    EXPECT_EQ(iconTop(4, kPane, 60), 25); // 20 + 5
    EXPECT_EQ(iconTop(5, kPane, 60), 90); // 100 - 10, without the top
}

TEST(IconTop, IsRowZeroUnderUnknownCodes)
{
    for (int code : { 6, -1, INT_MAX, INT_MIN })
        EXPECT_EQ(iconTop(code, kPane, 60), 0) << code;
}

TEST(IconTop, NeedsTheRowOnlyWhereTheCodeUsesIt)
{
    for (int code : { 0, 1, 2 })
        EXPECT_FALSE(iconTop(code, kPane, std::nullopt)) << code;
    for (int code : { 3, 4, 5, 6 })
        EXPECT_TRUE(iconTop(code, kPane, std::nullopt)) << code;
}

TEST(IconTop, SaturatesAtTheIntLimits)
{
    EXPECT_EQ(iconTop(0, kPane, INT_MIN), INT_MIN);
    EXPECT_EQ(iconTop(2, kPane, INT_MIN), INT_MIN);
    EXPECT_EQ(iconTop(4, QRect(QPoint(0, INT_MAX), QPoint(9, INT_MAX)), 0), INT_MAX);
}
