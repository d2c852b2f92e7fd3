// SPDX-License-Identifier: MIT
#include "apps/chart/BarView.h"

#include <gtest/gtest.h>

using chart::BarView;

TEST(BarView, FindsTheBarUnderAColumn)
{
    const BarView view { 100, 109, 200 }; // 10 slots of 20 pixels
    EXPECT_EQ(view.barAt(0), 100);
    EXPECT_EQ(view.barAt(19), 100);
    EXPECT_EQ(view.barAt(20), 101);
    EXPECT_EQ(view.barAt(5000), 109);
    EXPECT_EQ(view.barAt(-3), 100);
}

TEST(BarView, HasNoBarUnderAColumnWhenNothingIsShown)
{
    EXPECT_EQ((BarView { 0, -1, 200 }).barAt(10), -1);
    EXPECT_EQ((BarView { 0, 9, 0 }).barAt(10), -1);
}

TEST(BarView, LeavesRoomBetweenBodies)
{
    for (int slot = 1; slot < 60; ++slot) {
        const BarView view { 0, 99, 100 * slot };
        EXPECT_LE(2 * view.halfWidth() + 1, std::max(1, slot - (slot > 3 ? 1 : 0))) << slot;
    }
}

TEST(BarView, PutsCandlesInTheMiddleOfTheirSlots)
{
    for (int slot = 1; slot < 200; ++slot) {
        const BarView view { 50, 59, 10 * slot };
        const int left = view.centre(52) - view.halfWidth() - 2 * slot,
                  right = 3 * slot - 1 - view.centre(52) - view.halfWidth();
        EXPECT_LE(std::abs(left - right), 1) << slot;
    }
}
