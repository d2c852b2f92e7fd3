// SPDX-License-Identifier: MIT
#include "tests/support/Seeds.h"

#include <gtest/gtest.h>

TEST(Seeds, AreTheFirstOnesAndThoseThatFailedOnce)
{
    EXPECT_EQ(test::seedsFor("seeds_test", 2), std::vector<unsigned>({ 1, 2, 4711 }));
    EXPECT_EQ(test::seedsFor("suite_without_a_file", 2), std::vector<unsigned>({ 1, 2 }));
}
