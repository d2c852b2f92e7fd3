// SPDX-License-Identifier: MIT
#include "draw/internal/LabelSpot.h"

#include <gtest/gtest.h>

#include <climits>

using TC::detail::highLabelSpot;
using TC::detail::LabelSpot;
using TC::detail::lowLabelSpot;

namespace {

constexpr QSize kText(40, 14);

/// Columns 0 to 199, rows 50 to 149.
const QRect kPane(0, 50, 200, 100);

void expectSpot(const LabelSpot& spot, const QPoint& from, const QPoint& to, const QPoint& text)
{
    const auto shown = [](const QPoint& point) {
        return ::testing::Message() << point.x() << "," << point.y();
    };
    EXPECT_EQ(spot.leaderFrom, from) << shown(spot.leaderFrom);
    EXPECT_EQ(spot.leaderTo, to) << shown(spot.leaderTo);
    EXPECT_EQ(spot.text, text) << shown(spot.text);
}

} // namespace

TEST(HighLabelSpot, StandsAtTheRightWithARisingLeader)
{
    expectSpot(highLabelSpot({ 100, 60 }, kText, kPane), { 100, 60 }, { 108, 58 }, { 109, 58 });
}

TEST(HighLabelSpot, FitsAtTheRightUpToTheLastColumn)
{
    // 150 + 9 is not beyond 199 - 40
    expectSpot(highLabelSpot({ 150, 60 }, kText, kPane), { 150, 60 }, { 158, 58 }, { 159, 58 });
}

TEST(HighLabelSpot, StandsMirroredAtTheLeftWhenItDoesNotFit)
{
    // 151 - 9 - 40 = 102
    expectSpot(highLabelSpot({ 151, 60 }, kText, kPane), { 143, 58 }, { 151, 60 }, { 102, 58 });
}

TEST(HighLabelSpot, CountsTheRightEdgeOfThePane)
{
    const QRect shifted(100, 50, 100, 100);
    expectSpot(highLabelSpot({ 150, 60 }, kText, shifted), { 150, 60 }, { 158, 58 }, { 159, 58 });
}

TEST(HighLabelSpot, KeepsTheTextBelowRowZeroWithALevelLeader)
{
    // row 13 - 14 is above row 0, row 14 - 14 is not
    expectSpot(highLabelSpot({ 100, 13 }, kText, kPane), { 100, 13 }, { 108, 13 }, { 109, 14 });
    expectSpot(highLabelSpot({ 100, 14 }, kText, kPane), { 100, 14 }, { 108, 12 }, { 109, 12 });
    expectSpot(highLabelSpot({ 190, 13 }, kText, kPane), { 182, 13 }, { 190, 13 }, { 141, 14 });
}

TEST(HighLabelSpot, IsNotHeldAgainstTheTopOfThePane)
{
    // the text rises above the pane's top row 50, but not above row 0
    expectSpot(highLabelSpot({ 100, 50 }, kText, kPane), { 100, 50 }, { 108, 48 }, { 109, 48 });
}

TEST(LowLabelSpot, StandsAtTheLeftWithALevelLeader)
{
    // 100 - 10 - 40 = 50
    expectSpot(lowLabelSpot({ 100, 90 }, kText, kPane), { 90, 90 }, { 100, 90 }, { 50, 93 });
}

TEST(LowLabelSpot, FitsAtTheLeftDownToColumnZero)
{
    expectSpot(lowLabelSpot({ 50, 90 }, kText, kPane), { 40, 90 }, { 50, 90 }, { 0, 93 });
}

TEST(LowLabelSpot, StandsAtTheRightWhenThereIsNoRoom)
{
    expectSpot(lowLabelSpot({ 49, 90 }, kText, kPane), { 49, 90 }, { 58, 90 }, { 59, 93 });
}

TEST(LowLabelSpot, CountsRoomFromColumnZeroNotFromThePane)
{
    const QRect shifted(80, 50, 100, 100);
    expectSpot(lowLabelSpot({ 100, 90 }, kText, shifted), { 90, 90 }, { 100, 90 }, { 50, 93 });
}

TEST(LowLabelSpot, KeepsTheTextAtThePanesHeightWithARisingLeader)
{
    // 97 + 3 = 100 is not below row 100, 98 + 3 is
    expectSpot(lowLabelSpot({ 100, 97 }, kText, kPane), { 90, 97 }, { 100, 97 }, { 50, 100 });
    expectSpot(lowLabelSpot({ 100, 98 }, kText, kPane), { 90, 96 }, { 100, 98 }, { 50, 100 });
    expectSpot(lowLabelSpot({ 49, 98 }, kText, kPane), { 49, 98 }, { 58, 96 }, { 59, 100 });
}

TEST(LabelSpots, SaturateFarOutsideThePane)
{
    expectSpot(highLabelSpot({ INT_MIN, INT_MAX }, kText, kPane), { INT_MIN, INT_MAX },
               { INT_MIN + 8, INT_MAX - 2 }, { INT_MIN + 9, INT_MAX - 2 });
    expectSpot(lowLabelSpot({ INT_MIN, INT_MIN }, kText, kPane), { INT_MIN, INT_MIN },
               { INT_MIN + 9, INT_MIN }, { INT_MIN + 10, INT_MIN + 3 });
    expectSpot(highLabelSpot({ INT_MAX, 60 }, kText, kPane), { INT_MAX - 8, 58 }, { INT_MAX, 60 },
               { INT_MAX - 49, 58 });
}
